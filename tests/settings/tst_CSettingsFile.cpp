#include "CMessageBoardHelper.h"
#include "CSettingsFileImpl.h"
#include "GoldenFiles.h"
#include "ICLogfile.h"
#include "TestRows.h"

#include <QDomDocument>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using EError = ICSettingsFile::ESettingsError;
Q_DECLARE_METATYPE(ICSettingsFile::ESettingsError)

namespace {

const QString kVersion = QStringLiteral("1.0");
const QString kFilePrefix = QStringLiteral("File \"%1\" parse error: ");
const QByteArray kOld = "<C_SETTINGS_FORMAT><Old Type='STRING'>x</Old></C_SETTINGS_FORMAT>";
const QString kBufferPrefix = QStringLiteral("Bytearray parse error: ");

/// One line a node, as the expected files have it.
QString dump(const ICSettingsTreeNode& parent, int depth = 0) {
  QString result;
  for (int i = 0; i < parent.childCnt(); ++i) {
    const ICSettingsTreeNode& node = *parent.childPtr(i);
    result +=
        QString(depth, QLatin1Char(' ')) + NGoldenFiles::readable(node.name()) + QLatin1Char(' ');
    result += node.isGroup() ? QStringLiteral("group")
                             : CSettingsFileImpl::tagFromType(node.type()) + QLatin1String(" [") +
                                   NGoldenFiles::readable(node.value()) + QLatin1Char(']');
    result += node.unit().isEmpty() ? QString()
                                    : QLatin1String(" unit=") + NGoldenFiles::readable(node.unit());
    result += node.comment().isEmpty()
                  ? QString()
                  : QLatin1String(" comment=") + NGoldenFiles::readable(node.comment());
    result += QLatin1Char('\n') + dump(node, depth + 1);
  }
  return result;
}

QString dumpOf(ICSettingsFile& file) {
  return file.root() != nullptr ? dump(*file.root()) : QStringLiteral("no tree");
}

QByteArray document(const QString& content) {
  return QString(QLatin1String("<C_SETTINGS_FORMAT Version=\"1.0\">") + content +
                 QLatin1String("</C_SETTINGS_FORMAT>"))
      .toUtf8();
}

CSettingsTreeNodeImpl* rootOf(CSettingsFileImpl& file) {
  return static_cast<CSettingsTreeNodeImpl*>(file.root());
}

}  // namespace

class tst_CSettingsFile : public QObject {
  Q_OBJECT

 private slots:
  void init();
  void cleanup() { CMessageBoardHelper::setHandler({}); }

  void valid_data() { NGoldenFiles::addRows("settings/valid", ".txt"); }
  void valid();
  void invalid_data() { NGoldenFiles::addRows("settings/invalid", ".txt"); }
  void invalid();
  void golden_data() { NGoldenFiles::addRows("settings/golden", ".saved.xml"); }
  void golden();
  void example();
  void versions_data();
  void versions();
  void missingFile();
  void saveWithoutTree();
  void editedTreeIsSaved();
  void unsavableTexts_data();
  void unsavableTexts();
  void missingTexts_data();
  void missingTexts();
  void deepestTree();
  void qtDocument();
  void logfiles();

 private:
  std::unique_ptr<ICSettingsFile> makeFile() {
    return std::unique_ptr<ICSettingsFile>(ICSettingsFile::create(nullptr));
  }
  QString path(const QString& name) const { return mFolder.filePath(name); }

  QTemporaryDir mFolder;
  QStringList mCriticals;
};

void tst_CSettingsFile::init() {
  mCriticals.clear();
  CMessageBoardHelper::setHandler(
      [this](CMessageBoardHelper::EMessageKind kind, const QString& text) {
        QCOMPARE(kind, CMessageBoardHelper::Critical);
        mCriticals << text;
      });
}

// Every file gives the tree beside it, from the file and from a buffer.
void tst_CSettingsFile::valid() {
  QFETCH(QString, name);
  const QDir folder = NGoldenFiles::folder("settings/valid");
  const QString fileName = folder.filePath(name + QLatin1String(".xml"));
  const QString expected =
      QString::fromUtf8(NTestFiles::read(folder.filePath(name + QLatin1String(".txt"))));
  const auto file = makeFile();
  QCOMPARE(file->load(fileName, kVersion), EError::NoError);
  QCOMPARE(file->errorMsg(), QString());
  QCOMPARE(dumpOf(*file), expected);
  QCOMPARE(file->root()->name(), QStringLiteral("C_SETTINGS_FORMAT"));
  QVERIFY(file->root()->isGroup());
  QCOMPARE(file->root()->comment(), QString());

  file->clear();
  QVERIFY(file->root() == nullptr);
  QCOMPARE(file->loadFromBuffer(NTestFiles::read(fileName), kVersion), EError::NoError);
  QCOMPARE(dumpOf(*file), expected);
  QCOMPARE(mCriticals, QStringList());
}

// The file beside it holds the result, the message behind its prefix, and the part read; "-" says
// that the file is not opened, so that the old tree stays.
void tst_CSettingsFile::invalid() {
  QFETCH(QString, name);
  const QDir folder = NGoldenFiles::folder("settings/invalid");
  const QString fileName = folder.filePath(name + QLatin1String(".xml"));
  QStringList lines = NGoldenFiles::lines(folder.filePath(name + QLatin1String(".txt")));
  const auto result = static_cast<EError>(lines.takeFirst().toInt());
  const QString message = lines.takeFirst();
  const bool opened = lines.first() != QLatin1String("-");
  const QString tree = opened ? lines.join(QLatin1Char('\n')) : QStringLiteral("Old STRING [x]\n");
  const QStringList messages = {kFilePrefix.arg(fileName) + message, kBufferPrefix + message};

  const auto file = makeFile();
  QCOMPARE(file->loadFromBuffer(kOld, kVersion), EError::NoError);
  QCOMPARE(file->load(fileName, kVersion), result);
  QCOMPARE(file->errorMsg(), messages.first());
  QCOMPARE(dumpOf(*file), tree);
  QCOMPARE(file->loadFromBuffer(kOld, kVersion), EError::NoError);
  QCOMPARE(file->errorMsg(), QString());
  QCOMPARE(file->loadFromBuffer(NTestFiles::read(fileName), kVersion), result);
  QCOMPARE(file->errorMsg(), messages.last());
  QCOMPARE(dumpOf(*file), tree);
  QCOMPARE(mCriticals, opened ? messages : QStringList());
}

// A file, loaded and saved, gives the bytes beside it, and those give themselves.
void tst_CSettingsFile::golden() {
  QFETCH(QString, name);
  const QDir folder = NGoldenFiles::folder("settings/golden");
  const QByteArray saved = NTestFiles::read(folder.filePath(name + QLatin1String(".saved.xml")));
  const auto file = makeFile();
  QCOMPARE(file->load(folder.filePath(name + QLatin1String(".xml")), kVersion), EError::NoError);
  const QString tree = dumpOf(*file);
  QByteArray buffer;
  QCOMPARE(file->saveToBuffer(buffer, QStringLiteral("1.2")), EError::NoError);
  QCOMPARE(buffer, saved);
  QCOMPARE(file->save(path(name), QStringLiteral("1.2")), EError::NoError);
  QCOMPARE(NTestFiles::read(path(name)), saved);

  QCOMPARE(file->load(path(name), kVersion), EError::NoError);
  QCOMPARE(dumpOf(*file), tree);
  QCOMPARE(file->saveToBuffer(buffer, QStringLiteral("1.2")), EError::NoError);
  QCOMPARE(buffer, saved);
}

// The example is as this library writes it, so a save changes nothing in it.
void tst_CSettingsFile::example() {
  const QByteArray bytes =
      NTestFiles::read(NTestFiles::example(QStringLiteral("MachineSettings.xset")));
  const auto file = makeFile();
  QCOMPARE(file->loadFromBuffer(bytes, kVersion), EError::NoError);
  QByteArray buffer;
  QCOMPARE(file->saveToBuffer(buffer, kVersion), EError::NoError);
  QCOMPARE(buffer, bytes);
}

void tst_CSettingsFile::versions_data() {
  QTest::addColumn<QString>("inFile");
  QTest::addColumn<QString>("expected");
  QTest::addColumn<bool>("accepted");
  addRow("same", "1.0", "1.0", true);
  addRow("other sub-number", "1.5", "1.0", true);
  addRow("no sub-number", "1", "1.65535", true);
  addRow("leading zero", "08.15", "8.0", true);
  addRow("other main number", "2.0", "1.5", false);
  addRow("none in the file", "", "1.0", true);
  addRow("none expected", "1.0", "", false);
  addRow("same text, no version", "beta", "beta", true);
  addRow("no version in the file", "beta", "1.0", false);
  addRow("no version expected", "1.0", "beta", false);
}

void tst_CSettingsFile::versions() {
  QFETCH(QString, inFile);
  QFETCH(QString, expected);
  QFETCH(bool, accepted);
  const QByteArray bytes = document(QString()).replace("1.0", inFile.toUtf8());
  QVERIFY(NTestFiles::write(path(QStringLiteral("versions")), bytes));
  const auto file = makeFile();
  const EError result = accepted ? EError::NoError : EError::VersionError;
  QCOMPARE(file->loadFromBuffer(bytes, expected), result);
  QCOMPARE(file->load(path(QStringLiteral("versions")), expected), result);
  // A rejected version says nothing about the next file.
  QCOMPARE(file->loadFromBuffer("<", expected), EError::OpenError);
}

void tst_CSettingsFile::missingFile() {
  const QString fileName = path(QStringLiteral("missing/%1"));
  const QString reason = QStringLiteral("No such file or directory.");
  const auto file = makeFile();
  QCOMPARE(file->load(fileName, kVersion), EError::OpenError);
  QCOMPARE(file->errorMsg(),
           kFilePrefix.arg(fileName) + QLatin1String("the file cannot be opened: ") + reason);
  QCOMPARE(file->loadFromBuffer(kOld, kVersion), EError::NoError);
  QCOMPARE(file->save(fileName, kVersion), EError::SaveError);
  QCOMPARE(file->errorMsg(), QString(QLatin1String("File \"") + fileName +
                                     QLatin1String("\": the file cannot be written: ") + reason));
  QCOMPARE(mCriticals, QStringList());
}

void tst_CSettingsFile::saveWithoutTree() {
  const QString fileName = path(QStringLiteral("without-tree"));
  QByteArray buffer = "before";
  const auto file = makeFile();
  QCOMPARE(file->save(fileName, kVersion), EError::SaveError);
  QCOMPARE(file->errorMsg(),
           QStringLiteral("File \"%1\": There are no settings to save.").arg(fileName));
  QVERIFY(!QFile::exists(fileName));
  QCOMPARE(file->saveToBuffer(buffer, kVersion), EError::SaveError);
  QCOMPARE(file->errorMsg(), QStringLiteral("There are no settings to save."));
  QCOMPARE(buffer, QByteArray("before"));
}

void tst_CSettingsFile::editedTreeIsSaved() {
  CSettingsFileImpl file(nullptr);
  QCOMPARE(
      file.loadFromBuffer(
          document(QStringLiteral("<A Type='UINT8' unit='m'>0x1</A><G><!-- --></G>")), kVersion),
      EError::NoError);
  ICSettingsTreeNode* const value = file.root()->childPtr(0);
  value->setValue(CParamVal(static_cast<unsigned char>(255)));
  value->setUnit(QString());
  ICSettingsTreeNode* const group = file.root()->childPtr(1);
  group->setComment(QStringLiteral("c"));
  group->setValue(CParamVal("1"));
  group->setUnit(QStringLiteral("m"));
  // Nodes without a name are not written, nor does their group count as filled by them.
  rootOf(file)->addChild(new CSettingsTreeNodeImpl(QString(), ICSettingsTreeNode::TypeInt8));
  static_cast<CSettingsTreeNodeImpl*>(group)->addChild(
      new CSettingsTreeNodeImpl(QString(), ICSettingsTreeNode::TypeGroup));
  QByteArray buffer;
  QCOMPARE(file.saveToBuffer(buffer, kVersion), EError::NoError);
  QCOMPARE(file.loadFromBuffer(buffer, kVersion), EError::NoError);
  QCOMPARE(dumpOf(file), QStringLiteral("A UINT8 [0xff]\nG group comment=c\n"));
}

void tst_CSettingsFile::unsavableTexts_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<QString>("value");
  QTest::addColumn<QString>("unit");
  QTest::addColumn<QString>("comment");
  QTest::addColumn<QString>("message");
  const QString fine = QStringLiteral("fine");
  const QString bell = QStringLiteral("a\x7");
  addRow("value", "A", bell, fine, fine,
         "<A>: the text of <A> holds the character \\u0007, which XML cannot hold.");
  addRow("lone surrogate", "A", QString(QChar(0xD83D)), fine, fine,
         "<A>: the text of <A> holds the character \\uD83D, which XML "
         "cannot hold.");
  addRow("unit", "A", fine, bell, fine,
         "<A>: attribute \"unit\" holds the character \\u0007, which XML cannot hold.");
  addRow("comment", "A", fine, fine, QString(QChar(0xFFFE)),
         "<A>: attribute \"comment\" holds the character \\uFFFE, which XML "
         "cannot hold.");
  addRow("name with a blank", "a b", fine, fine, fine,
         "\"a b\" cannot be the name of an XML element.");
  addRow("name of digits", "1", fine, fine, fine, "\"1\" cannot be the name of an XML element.");
}

void tst_CSettingsFile::missingTexts_data() {
  QTest::addColumn<int>("type");
  QTest::addColumn<QString>("value");
  QTest::addColumn<bool>("saved");
  for (int type = ICSettingsTreeNode::TypeUInt8; type <= ICSettingsTreeNode::TypeBoolean; ++type) {
    const QString& name = CSettingsFileImpl::mTypeTags.at(type);
    const bool saved = type == ICSettingsTreeNode::TypeString;
    QTest::newRow(qPrintable(name + " empty")) << type << QString() << saved;
    QTest::newRow(qPrintable(name + " white space")) << type << " \t\r\n" << saved;
    QTest::newRow(qPrintable(name + " no-break space")) << type << QString(QChar(0xA0)) << true;
  }
}

// What a load would refuse is not written, however deep it stands; what is written can be loaded.
void tst_CSettingsFile::missingTexts() {
  QFETCH(int, type);
  QFETCH(QString, value);
  QFETCH(bool, saved);
  const QString fileName = path(QStringLiteral("missing-text"));
  QVERIFY(NTestFiles::write(fileName, "old"));
  CSettingsFileImpl file(nullptr);
  QCOMPARE(file.loadFromBuffer(document(QStringLiteral("<G><H><!-- --></H></G>")), kVersion),
           EError::NoError);
  auto* const node = new CSettingsTreeNodeImpl(
      QStringLiteral("Port"), static_cast<ICSettingsTreeNode::ESettingsType>(type));
  node->setValue(value);
  static_cast<CSettingsTreeNodeImpl*>(file.root()->childPtr(0)->childPtr(0))->addChild(node);

  ICSettingsFile& settings = file;
  QByteArray buffer = "old";
  QCOMPARE(settings.saveToBuffer(buffer, kVersion), saved ? EError::NoError : EError::SaveError);
  QCOMPARE(settings.save(fileName, kVersion), saved ? EError::NoError : EError::SaveError);
  if (saved) {
    QCOMPARE(NTestFiles::read(fileName), buffer);
    QCOMPARE(settings.loadFromBuffer(buffer, kVersion), EError::NoError);
    return;
  }
  const QString message =
      QStringLiteral("The value <Port> of type %1 has no text, so it could not be loaded again.")
          .arg(CSettingsFileImpl::mTypeTags.at(type));
  QCOMPARE(settings.errorMsg(), QStringLiteral("File \"%1\": %2").arg(fileName, message));
  QCOMPARE(settings.saveToBuffer(buffer, kVersion), EError::SaveError);
  QCOMPARE(settings.errorMsg(), message);
  QCOMPARE(buffer, QByteArray("old"));
  QCOMPARE(NTestFiles::read(fileName), QByteArray("old"));
}

// A save that fails leaves the old file and the old buffer, and the tree can be saved once it holds
// nothing wrong any more.
void tst_CSettingsFile::unsavableTexts() {
  QFETCH(QString, name);
  QFETCH(QString, value);
  QFETCH(QString, unit);
  QFETCH(QString, comment);
  QFETCH(QString, message);
  const QString fileName = path(QStringLiteral("unsavable"));
  QVERIFY(NTestFiles::write(fileName, "old"));
  CSettingsFileImpl file(nullptr);
  QCOMPARE(file.loadFromBuffer(document(QString()), kVersion), EError::NoError);
  auto* const node = new CSettingsTreeNodeImpl(name, ICSettingsTreeNode::TypeString);
  node->setValue(value);
  node->setUnit(unit);
  node->setComment(comment);
  rootOf(file)->addChild(node);

  QByteArray buffer = "old";
  QCOMPARE(file.saveToBuffer(buffer, kVersion), EError::SaveError);
  QCOMPARE(file.errorMsg(), message);
  QCOMPARE(buffer, QByteArray("old"));
  QCOMPARE(static_cast<ICSettingsFile&>(file).save(fileName, kVersion), EError::SaveError);
  QCOMPARE(file.errorMsg(), QStringLiteral("File \"%1\": %2").arg(fileName, message));
  QCOMPARE(NTestFiles::read(fileName), QByteArray("old"));
  QCOMPARE(mCriticals, QStringList());

  rootOf(file)->removeAllChildren();
  QCOMPARE(file.saveToBuffer(buffer, kVersion), EError::NoError);
  QCOMPARE(file.errorMsg(), QString());
}

// The deepest tree that a file can hold is read, written and read again; one more level is refused
// by both.
void tst_CSettingsFile::deepestTree() {
  constexpr int kGroups = 1022;  // below the root, with a value in the innermost
  const QString value = QStringLiteral("<A Type='UINT8'>0x1</A>");
  const auto nested = [&](int groups) {
    return document(QStringLiteral("<G>").repeated(groups) + value +
                    QStringLiteral("</G>").repeated(groups));
  };
  CSettingsFileImpl file(nullptr);
  QCOMPARE(file.loadFromBuffer(nested(kGroups), kVersion), EError::NoError);
  const QString tree = dumpOf(file);
  QByteArray buffer;
  QCOMPARE(file.saveToBuffer(buffer, kVersion), EError::NoError);
  QCOMPARE(file.loadFromBuffer(nested(kGroups + 1), kVersion), EError::OpenError);
  QCOMPARE(file.loadFromBuffer(buffer, kVersion), EError::NoError);
  QCOMPARE(dumpOf(file), tree);

  CTreeNode<CSettingsNodeData>* innermost = rootOf(file);
  while (innermost->childCount() > 0) {
    innermost = innermost->child(0);
  }
  auto* const group = new CSettingsTreeNodeImpl(QStringLiteral("G"), ICSettingsTreeNode::TypeGroup);
  group->addChild(new CSettingsTreeNodeImpl(QStringLiteral("A"), ICSettingsTreeNode::TypeString));
  innermost->parent()->addChild(group);
  QCOMPARE(file.saveToBuffer(buffer, kVersion), EError::SaveError);
}

// What Qt's document gives is the same tree, and Qt reads what is written here.
void tst_CSettingsFile::qtDocument() {
  const QDir folder = NGoldenFiles::folder("settings/golden");
  CSettingsFileImpl file(nullptr);
  QCOMPARE(file.load(folder.filePath(QStringLiteral("groups.xml")), kVersion), EError::NoError);
  // Qt's document drops the text of a blank.
  file.root()->childPtr(0)->childPtr(0)->childPtr(0)->setValue(QStringLiteral(" text "));
  QByteArray buffer;
  QCOMPARE(file.saveToBuffer(buffer, kVersion), EError::NoError);
  QDomDocument written;
  QVERIFY(written.setContent(buffer));

  CSettingsTreeNodeImpl read(QStringLiteral("root"), ICSettingsTreeNode::TypeGroup);
  QCOMPARE(file.readGroupFromDom(written.documentElement(), &read), EError::NoError);
  QCOMPARE(dump(read), dumpOf(file));

  QDomDocument copied;
  QDomElement root = copied.createElement(QStringLiteral("C_SETTINGS_FORMAT"));
  copied.appendChild(root);
  QCOMPARE(file.appendGroupToDom(root, file.root()), EError::NoError);
  QCOMPARE(file.loadFromBuffer(copied.toByteArray(), kVersion), EError::NoError);
  QCOMPARE(dump(read), dumpOf(file));

  EError error = EError::NoError;
  const QDomElement value = root.firstChildElement().firstChildElement().firstChildElement();
  QCOMPARE(file.toValue(value, error)->value(), CParamVal(" text "));
  QVERIFY(!file.toValue(root, error));
  QCOMPARE(error, EError::NoError);
}

// A given logfile gets what is posted and stays the caller's; an own one leaves no file.
void tst_CSettingsFile::logfiles() {
  const QString logName = path(QStringLiteral("settings.log"));
  const std::unique_ptr<ICLogfile> log(
      ICLogfile::createLogfile(ICLogfile::LogFile, logName, ICLogfile::kLevelErrors));
  std::unique_ptr<ICSettingsFile> file(ICSettingsFile::create(log.get()));
  QCOMPARE(file->loadFromBuffer(document(QStringLiteral("<A/>")), kVersion), EError::TypeError);
  const QString message = file->errorMsg();
  file.reset();
  QVERIFY(log->isActive());
  QVERIFY(NTestFiles::read(logName).contains(message.toUtf8()));

  const QString before = QDir::currentPath();
  QVERIFY(QDir::setCurrent(mFolder.path()));
  QCOMPARE(makeFile()->loadFromBuffer(document(QStringLiteral("<A/>")), kVersion),
           EError::TypeError);
  QVERIFY(QDir::setCurrent(before));
  QVERIFY(!QFile::exists(path(QStringLiteral("ICSettingsFile.log"))));
}

QTEST_GUILESS_MAIN(tst_CSettingsFile)
#include "tst_CSettingsFile.moc"
