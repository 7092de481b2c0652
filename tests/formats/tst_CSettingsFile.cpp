#include "CSettingsFileImpl.h"
#include "GoldenFiles.h"
#include "KeptMessages.h"

#include <QDomDocument>
#include <QTemporaryDir>

using namespace NTestFiles;
using CNode = CSettingsTreeNodeImpl;
using EError = ICSettingsFile::ESettingsError;

namespace {

const QString kVersion = "1.0";

QByteArray document(const QString& content) {
  return QString("<C_SETTINGS_FORMAT>" + content + "</C_SETTINGS_FORMAT>").toUtf8();
}

QString saved(ICSettingsFile& file) {
  QByteArray buffer;
  const EError result = file.saveToBuffer(buffer, kVersion);
  return result == EError::NoError
             ? QString::fromUtf16(reinterpret_cast<const ushort*>(buffer.constData()),
                                  buffer.size() / 2)
             : file.errorMsg();
}

}  // namespace

class tst_CSettingsFile : public QObject {
  Q_OBJECT

 private slots:
  void saveWithoutTree() {
    const QString name = mFolder.filePath("missing/%1");
    CSettingsFileImpl file(nullptr);
    ICSettingsFile& settings = file;
    const auto told = [&] {
      return settings.save(name, kVersion) == EError::SaveError ? file.errorMsg() : "";
    };
    const QString message = "File \"" + name + "\": ";
    QCOMPARE(told(), message + "There are no settings to save.");
    QCOMPARE(file.load(example("MachineSettings.xset"), kVersion), EError::NoError);
    QCOMPARE(told(), message + "the file cannot be written: No such file or directory.");
    file.clear();
    QVERIFY(file.root() == nullptr);
    QByteArray buffer = "before";
    QCOMPARE(file.saveToBuffer(buffer, kVersion), EError::SaveError);
    QCOMPARE(buffer, "before");
  }

  void editedTreeIsSaved() {
    CSettingsFileImpl file(nullptr);
    QCOMPARE(
        file.loadFromBuffer(document("<A Type='UINT8' unit='m'>0x1</A><G><!-- --></G>"), kVersion),
        EError::NoError);
    file.root()->childPtr(0)->setValue(CParamVal(static_cast<unsigned char>(255)));
    file.root()->childPtr(0)->setUnit("");
    auto* const group = static_cast<CNode*>(file.root()->childPtr(1));
    group->setComment("c");
    // Nodes without a name are not written, nor does their group count as filled by them.
    group->addChild(new CNode("", CNode::TypeGroup));
    group->addChild(new CNode("", CNode::TypeInt8));
    QVERIFY(group->rootPtr() == file.root() && group->childPtr(1)->parentPtr() == group);
    for (const ICSettingsTreeNode* node : {group->childPtr(0), group->childPtr(1)})
      QVERIFY(!node->isGroup() && !node->isParam());
    group->setValue("0x1");
    QVERIFY(group->siblingNo() == 1 && group->value().isNull() && !file.root()->childPtr(2));
    QCOMPARE(saved(file).section('\n', 2),
             " <A Type=\"UINT8\">0xff</A>\n <G comment=\"c\"><!----></G>\n</C_SETTINGS_FORMAT>\n");
  }

  void savesWhatCanBeLoaded_data() {
    addColumns<QString, int, QString, QString>("name", "type", "value", "message");
    addRow("value", "A", 10, "\x7",
           "<A>: the text of <A> holds the character \\u0007, which XML cannot hold.");
    addRow("name", "1", 10, "x", "\"1\" cannot be the name of an XML element.");
    addRow("blank text", "A", 10, " \t\r\n", "");
    for (const int type : {1, 9, 11}) {
      const QString& tag = CSettingsFileImpl::mTypeTags.at(type);
      addRow(qPrintable(tag + " blank"), "A", type, " \t\r\n",
             "The value <A> of type " + tag + " has no text, so it could not be loaded again.");
      addRow(qPrintable(tag + " no-break space"), "A", type, u8"\u00a0", "");
    }
  }
  /// What a load would refuse is not written, however deep it lies: a save that fails leaves the
  /// old file and the old buffer. What is written can be loaded.
  void savesWhatCanBeLoaded() {
    const auto [name, type, value, message] =
        cells<QString, int, QString, QString>("name", "type", "value", "message");
    CSettingsFileImpl file(nullptr);
    ICSettingsFile& settings = file;
    QCOMPARE(file.loadFromBuffer(document("<G><H><!-- --></H></G>"), kVersion), EError::NoError);
    auto* const node = new CNode(name, CNode::ESettingsType(type));
    node->setValue(value);
    node->setUnit("m");
    static_cast<CNode*>(file.root()->childPtr(0)->childPtr(0))->addChild(node);

    const int result = message.isEmpty() ? 0 : 5;
    const QString path = mFolder.filePath("file");
    QByteArray buffer = "old";
    QVERIFY(write(path, buffer));
    QCOMPARE(int(settings.save(path, kVersion)), result);
    QCOMPARE(file.errorMsg(), result == 0 ? QString() : "File \"" + path + "\": " + message);
    QCOMPARE(int(file.saveToBuffer(buffer, kVersion)), result);
    QCOMPARE(file.errorMsg(), message);
    QCOMPARE(read(path), buffer);
    QCOMPARE(file.loadFromBuffer(buffer, kVersion) == EError::NoError, result == 0);
  }

  /// The deepest tree that a file can hold is read and written; one more level is refused by both.
  void deepestTree() {
    const auto nested = [](int groups) {
      const QString value = "<A Type='UINT8'>0x1</A>";
      return document(QString("<G>").repeated(groups) + value + QString("</G>").repeated(groups));
    };
    CSettingsFileImpl file(nullptr);
    QCOMPARE(file.loadFromBuffer(nested(1023), kVersion), EError::OpenError);
    QCOMPARE(file.loadFromBuffer(nested(1022), kVersion), EError::NoError);
    QVERIFY(saved(file).endsWith("</C_SETTINGS_FORMAT>\n"));
    ICSettingsTreeNode* innermost = file.root();
    while (innermost->childPtr(0)->isGroup()) innermost = innermost->childPtr(0);
    auto* const group = new CNode("G", CNode::TypeGroup);
    group->addChild(new CNode("A", CNode::TypeString));
    static_cast<CNode*>(innermost)->addChild(group);
    QVERIFY(saved(file).contains("1024"));
  }

  /// Through Qt's document goes the same tree, in both directions.
  void qtDocument() {
    CSettingsFileImpl file(nullptr);
    QCOMPARE(file.load(data("settings/valid/groups.xml"), kVersion), EError::NoError);
    const QString text = saved(file);
    QDomDocument document;
    QDomElement root = document.createElement("C_SETTINGS_FORMAT");
    QCOMPARE(file.appendGroupToDom(root, file.root()), EError::NoError);
    auto* const tree = static_cast<CNode*>(file.root());
    tree->removeAllChildren();
    QCOMPARE(file.readGroupFromDom(root, tree), EError::NoError);
    QCOMPARE(saved(file), text);
    EError error = EError::NoError;
    QVERIFY(!file.toValue(root, error) && error == EError::NoError);
    QCOMPARE(file.toValue(root.lastChildElement(), error)->value(), CParamVal("0x2"));

    tree->removeAllChildren();
    QVERIFY(document.setContent(read(data("settings/valid/escapes.xml"))));
    QCOMPARE(file.readGroupFromDom(document.documentElement(), tree), EError::NoError);
    QByteArray bytes;
    QCOMPARE(file.saveToBuffer(bytes, kVersion), EError::NoError);
    QCOMPARE(bytes, read(data("settings/saved/escapes.xml")));
  }

  /// A given logfile gets what is posted.
  void logfile() {
    CKeptLines log(ICLogfile::kLevelErrors);
    const std::unique_ptr<ICSettingsFile> file(ICSettingsFile::create(&log));
    QCOMPARE(file->loadFromBuffer(document("<A/>"), kVersion), EError::TypeError);
    QCOMPARE(log.lines, QStringList(file->errorMsg()));
  }

 private:
  QTemporaryDir mFolder;
};

QTEST_GUILESS_MAIN(tst_CSettingsFile)
#include "tst_CSettingsFile.moc"
