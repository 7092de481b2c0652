#include "CSettingsFileImpl.h"
#include "GoldenFiles.h"
#include "ICLogfile.h"
#include "KeptMessages.h"
#include "SubVersions.h"

#include <QDomDocument>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace NTestFiles;
using EError = ICSettingsFile::ESettingsError;
Q_DECLARE_METATYPE(ICSettingsFile::ESettingsError)

namespace {

const QString kVersion = "1.0";
const QString kFilePrefix = "File \"%1\" parse error: ";
const QString kBufferPrefix = "Bytearray parse error: ";
const QByteArray kOld = "<C_SETTINGS_FORMAT><Old Type='STRING'>x</Old></C_SETTINGS_FORMAT>";

/// One line a node, as the expected files have it.
QString dump(const ICSettingsTreeNode& parent, int depth = 0) {
  const auto unlessEmpty = [](const char* name, const QString& text) {
    return text.isEmpty() ? QString() : name + NGoldenFiles::readable(text);
  };
  QString result;
  for (int i = 0; i < parent.childCnt(); ++i) {
    const ICSettingsTreeNode& node = *parent.childPtr(i);
    const QString value = CSettingsFileImpl::tagFromType(node.type()) + " [" +
                          NGoldenFiles::readable(node.value()) + ']';
    result += QString(depth, ' ') + NGoldenFiles::readable(node.name()) + ' ' +
              (node.isGroup() ? "group" : value) + unlessEmpty(" unit=", node.unit()) +
              unlessEmpty(" comment=", node.comment()) + '\n' + dump(node, depth + 1);
  }
  return result;
}

QString dump(ICSettingsFile& file) {
  return file.root() ? dump(*file.root()) : "no tree";
}

QByteArray document(const QString& content) {
  const QString text = "<C_SETTINGS_FORMAT Version=\"1.0\">" + content + "</C_SETTINGS_FORMAT>";
  return text.toUtf8();
}

CSettingsTreeNodeImpl* rootOf(CSettingsFileImpl& file) {
  return static_cast<CSettingsTreeNodeImpl*>(file.root());
}

std::unique_ptr<ICSettingsFile> makeFile() {
  return std::unique_ptr<ICSettingsFile>(ICSettingsFile::create(nullptr));
}

}  // namespace

class tst_CSettingsFile : public QObject {
  Q_OBJECT

 private slots:
  void init() { mBoard.texts.clear(); }

  /// Every file gives the tree beside it, from the file and from a buffer.
  void valid_data() { NGoldenFiles::addRows("settings/valid", ".txt"); }
  void valid() {
    QFETCH(QString, name);
    const QString base = data("settings/valid/") + name;
    const QString expected = QString::fromUtf8(read(base + ".txt"));
    const auto file = makeFile();
    QCOMPARE(file->load(base + ".xml", kVersion), EError::NoError);
    QCOMPARE(file->errorMsg(), "");
    QCOMPARE(dump(*file), expected);
    QCOMPARE(file->root()->name(), "C_SETTINGS_FORMAT");
    QVERIFY(file->root()->isGroup());
    QCOMPARE(file->root()->comment(), "");

    file->clear();
    QVERIFY(!file->root());
    QCOMPARE(file->loadFromBuffer(read(base + ".xml"), kVersion), EError::NoError);
    QCOMPARE(dump(*file), expected);
    QCOMPARE(mBoard.texts, QStringList());
  }

  /// The file beside it holds the result, the message behind its prefix, and the part read; "-"
  /// says that the file is not opened, so that the old tree stays.
  void invalid_data() { NGoldenFiles::addRows("settings/invalid", ".txt"); }
  void invalid() {
    QFETCH(QString, name);
    const QString base = data("settings/invalid/") + name;
    QStringList lines = NGoldenFiles::lines(base + ".txt");
    const auto result = EError(lines.takeFirst().toInt());
    const QString message = lines.takeFirst();
    const bool opened = lines.first() != "-";
    const QString tree = opened ? lines.join('\n') : "Old STRING [x]\n";
    const QStringList messages = {kFilePrefix.arg(base + ".xml") + message,
                                  kBufferPrefix + message};

    const auto file = makeFile();
    QCOMPARE(file->loadFromBuffer(kOld, kVersion), EError::NoError);
    QCOMPARE(file->load(base + ".xml", kVersion), result);
    QCOMPARE(file->errorMsg(), messages.first());
    QCOMPARE(dump(*file), tree);
    QCOMPARE(file->loadFromBuffer(kOld, kVersion), EError::NoError);
    QCOMPARE(file->errorMsg(), "");
    QCOMPARE(file->loadFromBuffer(read(base + ".xml"), kVersion), result);
    QCOMPARE(file->errorMsg(), messages.last());
    QCOMPARE(dump(*file), tree);
    const QStringList posted = {"2 " + messages.first(), "2 " + messages.last()};
    QCOMPARE(mBoard.texts, opened ? posted : QStringList());
  }

  /// A file, loaded and saved, gives the bytes beside it, and those give themselves.
  void golden_data() { NGoldenFiles::addRows("settings/golden", ".saved.xml"); }
  void golden() {
    QFETCH(QString, name);
    const QString base = data("settings/golden/") + name;
    const QByteArray saved = read(base + ".saved.xml");
    const auto file = makeFile();
    QCOMPARE(file->load(base + ".xml", kVersion), EError::NoError);
    const QString tree = dump(*file);
    QByteArray buffer;
    for (int round = 0; round < 2; ++round) {
      QCOMPARE(file->saveToBuffer(buffer, "1.2"), EError::NoError);
      QCOMPARE(buffer, saved);
      QCOMPARE(file->save(path(name), "1.2"), EError::NoError);
      QCOMPARE(read(path(name)), saved);
      QCOMPARE(file->load(path(name), kVersion), EError::NoError);
      QCOMPARE(dump(*file), tree);
    }
  }

  /// The example is as this library writes it, so a save changes nothing in it.
  void example() {
    const QByteArray bytes = read(NTestFiles::example("MachineSettings.xset"));
    const auto file = makeFile();
    QCOMPARE(file->loadFromBuffer(bytes, kVersion), EError::NoError);
    QByteArray buffer;
    QCOMPARE(file->saveToBuffer(buffer, kVersion), EError::NoError);
    QCOMPARE(buffer, bytes);
  }

  void versions_data() { addSubVersionRows(); }
  void versions() {
    QFETCH(QString, inFile);
    QFETCH(QString, expected);
    QFETCH(bool, accepted);
    const QByteArray bytes = document("").replace("1.0", inFile.toUtf8());
    QVERIFY(write(path("versions"), bytes));
    const auto file = makeFile();
    const EError result = accepted ? EError::NoError : EError::VersionError;
    QCOMPARE(file->loadFromBuffer(bytes, expected), result);
    QCOMPARE(file->load(path("versions"), expected), result);
    // A rejected version says nothing about the next file.
    QCOMPARE(file->loadFromBuffer("<", expected), EError::OpenError);
  }

  void missingFile() {
    const QString name = path("missing/%1");
    const QString reason = "No such file or directory.";
    const auto file = makeFile();
    QCOMPARE(file->load(name, kVersion), EError::OpenError);
    QCOMPARE(file->errorMsg(),
             QString(kFilePrefix.arg(name) + "the file cannot be opened: " + reason));
    QCOMPARE(file->loadFromBuffer(kOld, kVersion), EError::NoError);
    QCOMPARE(file->save(name, kVersion), EError::SaveError);
    QCOMPARE(file->errorMsg(),
             QString("File \"" + name + "\": the file cannot be written: " + reason));
    QCOMPARE(mBoard.texts, QStringList());
  }

  void saveWithoutTree() {
    QByteArray buffer = "before";
    const auto file = makeFile();
    QCOMPARE(file->save(path("none"), kVersion), EError::SaveError);
    QCOMPARE(file->errorMsg(),
             QString("File \"%1\": There are no settings to save.").arg(path("none")));
    QVERIFY(!QFile::exists(path("none")));
    QCOMPARE(file->saveToBuffer(buffer, kVersion), EError::SaveError);
    QCOMPARE(file->errorMsg(), "There are no settings to save.");
    QCOMPARE(buffer, "before");
  }

  void editedTreeIsSaved() {
    CSettingsFileImpl file(nullptr);
    const QByteArray bytes = document("<A Type='UINT8' unit='m'>0x1</A><G><!-- --></G>");
    QCOMPARE(file.loadFromBuffer(bytes, kVersion), EError::NoError);
    ICSettingsTreeNode* const value = file.root()->childPtr(0);
    value->setValue(CParamVal(static_cast<unsigned char>(255)));
    value->setUnit("");
    ICSettingsTreeNode* const group = file.root()->childPtr(1);
    group->setComment("c");
    group->setValue(CParamVal("1"));
    group->setUnit("m");
    // Nodes without a name are not written, nor does their group count as filled by them.
    rootOf(file)->addChild(new CSettingsTreeNodeImpl("", ICSettingsTreeNode::TypeInt8));
    static_cast<CSettingsTreeNodeImpl*>(group)->addChild(
        new CSettingsTreeNodeImpl("", ICSettingsTreeNode::TypeGroup));
    QByteArray buffer;
    QCOMPARE(file.saveToBuffer(buffer, kVersion), EError::NoError);
    QCOMPARE(file.loadFromBuffer(buffer, kVersion), EError::NoError);
    QCOMPARE(dump(file), "A UINT8 [0xff]\nG group comment=c\n");
  }

  void savesWhatCanBeLoaded_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("comment");
    QTest::addColumn<QString>("message");  // empty when the value is saved
    const int string = ICSettingsTreeNode::TypeString;
    const QString held = " holds the character \\u%1, which XML cannot hold.";
    const auto row = [&](const char* test, const char* name, const QString& value,
                         const QString& unit, const QString& comment, const QString& message) {
      addRow(test, name, string, value, unit, comment, message);
    };
    row("value", "A", "a\x7", "m", "c", "<A>: the text of <A>" + held.arg("0007"));
    row("surrogate", "A", QChar(0xD83D), "m", "c", "<A>: the text of <A>" + held.arg("D83D"));
    row("unit", "A", "x", "a\x7", "c", "<A>: attribute \"unit\"" + held.arg("0007"));
    row("comment", "A", "x", "m", QChar(0xFFFE), "<A>: attribute \"comment\"" + held.arg("FFFE"));
    row("blank in a name", "a b", "x", "m", "c", "\"a b\" cannot be the name of an XML element.");
    row("name of digits", "1", "x", "m", "c", "\"1\" cannot be the name of an XML element.");
    const QString missing =
        "The value <Port> of type %1 has no text, so it could not be loaded again.";
    for (int type = ICSettingsTreeNode::TypeUInt8; type <= ICSettingsTreeNode::TypeBoolean;
         ++type) {
      const QString& tag = CSettingsFileImpl::mTypeTags.at(type);
      const QString message = type == string ? QString() : missing.arg(tag);
      addRow(qPrintable(tag + " empty"), "Port", type, "", "", "", message);
      addRow(qPrintable(tag + " white space"), "Port", type, " \t\r\n", "", "", message);
      addRow(qPrintable(tag + " no-break space"), "Port", type, u8"\u00a0", "", "", "");
    }
  }

  /// What a load would refuse is not written, however deep it stands: a save that fails leaves the
  /// old file and the old buffer. What is written can be loaded.
  void savesWhatCanBeLoaded() {
    QFETCH(QString, name);
    QFETCH(int, type);
    QFETCH(QString, value);
    QFETCH(QString, unit);
    QFETCH(QString, comment);
    QFETCH(QString, message);
    CSettingsFileImpl file(nullptr);
    ICSettingsFile& settings = file;
    QCOMPARE(settings.loadFromBuffer(document("<G><H><!-- --></H></G>"), kVersion),
             EError::NoError);
    auto* const node = new CSettingsTreeNodeImpl(name, ICSettingsTreeNode::ESettingsType(type));
    node->setValue(value);
    node->setUnit(unit);
    node->setComment(comment);
    static_cast<CSettingsTreeNodeImpl*>(file.root()->childPtr(0)->childPtr(0))->addChild(node);

    const bool saved = message.isEmpty();
    const EError result = saved ? EError::NoError : EError::SaveError;
    QByteArray buffer = "old";
    QVERIFY(write(path("file"), "old"));
    QCOMPARE(settings.save(path("file"), kVersion), result);
    QCOMPARE(settings.errorMsg(),
             saved ? QString() : QString("File \"%1\": %2").arg(path("file"), message));
    QCOMPARE(settings.saveToBuffer(buffer, kVersion), result);
    QCOMPARE(settings.errorMsg(), message);
    QCOMPARE(buffer != "old", saved);
    QCOMPARE(read(path("file")), buffer);
    QCOMPARE(mBoard.texts, QStringList());

    if (!saved) rootOf(file)->removeAllChildren();  // and with them what was wrong
    QCOMPARE(settings.saveToBuffer(buffer, kVersion), EError::NoError);
    QCOMPARE(settings.errorMsg(), "");
    QCOMPARE(settings.loadFromBuffer(buffer, kVersion), EError::NoError);
  }

  /// The deepest tree that a file can hold is read, written and read again; one more level is
  /// refused by both.
  void deepestTree() {
    constexpr int kGroups = 1022;  // below the root, with a value in the innermost
    const auto nested = [&](int groups) {
      return document(QString("<G>").repeated(groups) + "<A Type='UINT8'>0x1</A>" +
                      QString("</G>").repeated(groups));
    };
    CSettingsFileImpl file(nullptr);
    QCOMPARE(file.loadFromBuffer(nested(kGroups), kVersion), EError::NoError);
    const QString tree = dump(file);
    QByteArray buffer;
    QCOMPARE(file.saveToBuffer(buffer, kVersion), EError::NoError);
    QCOMPARE(file.loadFromBuffer(nested(kGroups + 1), kVersion), EError::OpenError);
    QCOMPARE(file.loadFromBuffer(buffer, kVersion), EError::NoError);
    QCOMPARE(dump(file), tree);

    CTreeNode<CSettingsNodeData>* innermost = rootOf(file);
    while (innermost->childCount() > 0) innermost = innermost->child(0);
    auto* const group = new CSettingsTreeNodeImpl("G", ICSettingsTreeNode::TypeGroup);
    group->addChild(new CSettingsTreeNodeImpl("A", ICSettingsTreeNode::TypeString));
    innermost->parent()->addChild(group);
    QCOMPARE(file.saveToBuffer(buffer, kVersion), EError::SaveError);
  }

  /// What Qt's document gives is the same tree, and Qt reads what is written here.
  void qtDocument() {
    CSettingsFileImpl file(nullptr);
    QCOMPARE(file.load(data("settings/golden/groups.xml"), kVersion), EError::NoError);
    // Qt's document drops the text of a blank.
    file.root()->childPtr(0)->childPtr(0)->childPtr(0)->setValue(" text ");
    QByteArray buffer;
    QCOMPARE(file.saveToBuffer(buffer, kVersion), EError::NoError);
    QDomDocument written;
    QVERIFY(written.setContent(buffer));

    CSettingsTreeNodeImpl read("root", ICSettingsTreeNode::TypeGroup);
    QCOMPARE(file.readGroupFromDom(written.documentElement(), &read), EError::NoError);
    QCOMPARE(dump(read), dump(file));

    QDomDocument copied;
    QDomElement root = copied.createElement("C_SETTINGS_FORMAT");
    copied.appendChild(root);
    QCOMPARE(file.appendGroupToDom(root, file.root()), EError::NoError);
    QCOMPARE(file.loadFromBuffer(copied.toByteArray(), kVersion), EError::NoError);
    QCOMPARE(dump(read), dump(file));

    EError error = EError::NoError;
    const QDomElement value = root.firstChildElement().firstChildElement().firstChildElement();
    QCOMPARE(file.toValue(value, error)->value(), CParamVal(" text "));
    QVERIFY(!file.toValue(root, error));
    QCOMPARE(error, EError::NoError);
  }

  /// A given logfile gets what is posted and stays the caller's; an own one leaves no file.
  void logfiles() {
    const std::unique_ptr<ICLogfile> log(ICLogfile::createLogfile(
        ICLogfile::LogFile, path("settings.log"), ICLogfile::kLevelErrors));
    std::unique_ptr<ICSettingsFile> file(ICSettingsFile::create(log.get()));
    QCOMPARE(file->loadFromBuffer(document("<A/>"), kVersion), EError::TypeError);
    const QString message = file->errorMsg();
    file.reset();
    QVERIFY(log->isActive());
    QVERIFY(read(path("settings.log")).contains(message.toUtf8()));

    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(mFolder.path()));
    QCOMPARE(makeFile()->loadFromBuffer(document("<A/>"), kVersion), EError::TypeError);
    QVERIFY(QDir::setCurrent(before));
    QVERIFY(!QFile::exists(path("ICSettingsFile.log")));
  }

 private:
  QString path(const QString& name) const { return mFolder.filePath(name); }

  QTemporaryDir mFolder;
  SKeptMessages mBoard;
};

QTEST_GUILESS_MAIN(tst_CSettingsFile)
#include "tst_CSettingsFile.moc"
