#include "CCompensationFileImpl.h"
#include "CMessageBoardHelper.h"
#include "GoldenFiles.h"
#include "LumoToday.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

Q_DECLARE_METATYPE(ICCompensationFile::EDataPointFormat)

namespace {

const QString kVersion = QStringLiteral("1.0");
const QByteArray kEmptyTable =
    "<C_COMPENSATION_FORMAT Version='1.0'><HEADER/><POINTLIST/></C_COMPENSATION_FORMAT>";
const QByteArray kOldPoint =
    "<C_COMPENSATION_FORMAT><HEADER><MAX>9</MAX></HEADER><POINTLIST><POINT><ERROR>7</ERROR>"
    "</POINT></POINTLIST></C_COMPENSATION_FORMAT>";

QDate testDay() {
  return QDate(2027, 2, 28);
}

QString bracketed(const QString& text) {
  return QLatin1Char('[') + NGoldenFiles::readable(text) + QLatin1Char(']');
}

/// All that a file holds, as the expected files have it.
QString dump(const ICCompensationFile& file) {
  const CXMLMetaData head = file.metaData();
  QStringList lines;
  lines << QStringLiteral("format %1").arg(file.detectedDataPointFormat());
  lines << QStringLiteral("head %1 %2 %3")
               .arg(head.date().toString(Qt::ISODate), bracketed(head.author()),
                    bracketed(head.comment()));
  lines << QStringLiteral("range %1 %2")
               .arg(bracketed(file.header().minimum()), bracketed(file.header().maximum()));
  for (const CCompensationPoint& point : file.allPoints()) {
    lines << QStringLiteral("%1 %2").arg(bracketed(point.position()),
                                         bracketed(point.adjustment()));
  }
  return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

/// A file whose document refuses one element.
class CRefusingFile : public CCompensationFileImpl {
 public:
  explicit CRefusingFile(const QString& tag) : CCompensationFileImpl(nullptr), mTag(tag) {}
  CDomElement domElement(QLatin1String tag, CDomElement parent) override {
    return tag == mTag ? CDomElement() : CCompensationFileImpl::domElement(tag, parent);
  }

 private:
  QString mTag;
};

}  // namespace

class tst_CCompensationFile : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase();
  void init();
  void cleanup() { CMessageBoardHelper::setHandler({}); }
  void cleanupTestCase() { NLumoToday::setToday(nullptr); }

  void valid_data() { NGoldenFiles::addRows("compensation/valid", ".txt"); }
  void valid();
  void invalid_data() { NGoldenFiles::addRows("compensation/invalid", ".txt"); }
  void invalid();
  void golden_data() { NGoldenFiles::addRows("compensation/golden", ".current.xml"); }
  void golden();
  void examples_data();
  void examples();
  void versions_data();
  void versions();
  void missingFile();
  void metaDataIsFilled();
  void saveFormats();
  void clearResetsEverything();
  void unsavableTexts_data();
  void unsavableTexts();
  void refusedElements_data();
  void refusedElements();

 private:
  QString path(const QString& name) const { return mFolder.filePath(name); }

  QTemporaryDir mFolder;
  QStringList mPosted;
  std::unique_ptr<ICCompensationFile> mFile;
};

void tst_CCompensationFile::initTestCase() {
  qputenv("USER", "tester");
  NLumoToday::setToday(&testDay);
}

void tst_CCompensationFile::init() {
  mFile.reset(ICCompensationFile::create(nullptr));
  mPosted.clear();
  CMessageBoardHelper::setHandler(
      [this](CMessageBoardHelper::EMessageKind kind, const QString& text) {
        mPosted << QStringLiteral("%1 %2").arg(QString::number(kind), text);
      });
}

// Every file gives what stands beside it, from the file and from a buffer.
void tst_CCompensationFile::valid() {
  QFETCH(QString, name);
  const QDir folder = NGoldenFiles::folder("compensation/valid");
  const QString fileName = folder.filePath(name + QLatin1String(".xml"));
  const QString expected =
      QString::fromUtf8(NTestFiles::read(folder.filePath(name + QLatin1String(".txt"))));
  QCOMPARE(mFile->load(fileName, kVersion), 0);
  QCOMPARE(mFile->errorMsg(), QString());
  QCOMPARE(dump(*mFile), expected);
  const bool isOld = expected.startsWith(QLatin1String("format 1"));
  const QString warning = QStringLiteral("0 Old compensation data point format found.");
  QCOMPARE(mPosted, isOld ? QStringList{warning} : QStringList());

  QCOMPARE(mFile->loadFromBuffer(NTestFiles::read(fileName), kVersion), 0);
  QCOMPARE(dump(*mFile), expected);
}

// The file beside it holds the results for a file and for a buffer, the message and the part read.
void tst_CCompensationFile::invalid() {
  QFETCH(QString, name);
  const QDir folder = NGoldenFiles::folder("compensation/invalid");
  const QString fileName = folder.filePath(name + QLatin1String(".xml"));
  QStringList lines = NGoldenFiles::lines(folder.filePath(name + QLatin1String(".txt")));
  const QStringList results = lines.takeFirst().split(QLatin1Char(' '));
  const QString message = lines.takeFirst();
  const QString content = lines.join(QLatin1Char('\n'));
  const bool opened = results.first() == QLatin1String("1");

  QCOMPARE(mFile->loadFromBuffer(kOldPoint, kVersion), 0);
  QCOMPARE(mFile->load(fileName, kVersion), results.first().toInt());
  QCOMPARE(mFile->errorMsg(),
           opened ? message : QStringLiteral("File \"%1\": %2").arg(fileName, message));
  QCOMPARE(dump(*mFile), content);

  QCOMPARE(mFile->loadFromBuffer(kOldPoint, kVersion), 0);
  QCOMPARE(mFile->loadFromBuffer(NTestFiles::read(fileName), kVersion), results.last().toInt());
  QCOMPARE(mFile->errorMsg(), message);
  QCOMPARE(dump(*mFile), content);
}

// A file, loaded and saved in either format, gives the bytes beside it, and those give themselves.
void tst_CCompensationFile::golden() {
  QFETCH(QString, name);
  const QDir folder = NGoldenFiles::folder("compensation/golden");
  QCOMPARE(mFile->load(folder.filePath(name + QLatin1String(".xml")), kVersion), 0);
  const QList<CCompensationPoint> points = mFile->allPoints();
  for (const auto& suffix : {QStringLiteral(".current.xml"), QStringLiteral(".old.xml")}) {
    const bool isOld = suffix == QLatin1String(".old.xml");
    const QByteArray saved = NTestFiles::read(folder.filePath(name + suffix));
    mFile->setDataPointSaveFormat(isOld ? ICCompensationFile::OldFormat
                                        : ICCompensationFile::CurrentFormat);
    QByteArray buffer;
    QCOMPARE(mFile->saveToBuffer(buffer, QStringLiteral("1.2")), 0);
    QCOMPARE(buffer, saved);
    QCOMPARE(mFile->save(path(name), QStringLiteral("1.2")), 0);
    QCOMPARE(NTestFiles::read(path(name)), saved);

    QCOMPARE(mFile->load(path(name), kVersion), 0);
    QCOMPARE(mFile->detectedDataPointFormat(), points.isEmpty() ? ICCompensationFile::NoFormat
                                               : isOld          ? ICCompensationFile::OldFormat
                                                       : ICCompensationFile::CurrentFormat);
    QCOMPARE(mFile->saveToBuffer(buffer, QStringLiteral("1.2")), 0);
    QCOMPARE(buffer, saved);
  }
}

void tst_CCompensationFile::examples_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<ICCompensationFile::EDataPointFormat>("format");
  QTest::newRow("current") << "SpindleCompensation.xcomp" << ICCompensationFile::CurrentFormat;
  QTest::newRow("old") << "SpindleCompensationOld.xcomp" << ICCompensationFile::OldFormat;
}

// The examples are good tables as this library writes them, so a save changes nothing in them.
void tst_CCompensationFile::examples() {
  QFETCH(QString, name);
  QFETCH(ICCompensationFile::EDataPointFormat, format);
  const QByteArray bytes = NTestFiles::read(NTestFiles::example(name));
  mFile->setDataPointSaveFormat(format);
  QCOMPARE(mFile->loadFromBuffer(bytes, kVersion), 0);
  QCOMPARE(mFile->detectedDataPointFormat(), format);
  QCOMPARE(mFile->checkAll(), 0);
  QByteArray buffer;
  QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
  QCOMPARE(buffer, bytes);
}

void tst_CCompensationFile::versions_data() {
  QTest::addColumn<QByteArray>("inFile");
  QTest::addColumn<QString>("expected");
  QTest::addColumn<bool>("accepted");
  QTest::newRow("same") << QByteArray("1.0") << "1.0" << true;
  QTest::newRow("other sub-number") << QByteArray("1.5") << "1.0" << true;
  QTest::newRow("other main number") << QByteArray("2.0") << "1.5" << false;
  QTest::newRow("none in the file") << QByteArray() << "1.0" << true;
  QTest::newRow("none expected") << QByteArray("1.0") << "" << false;
  QTest::newRow("no version in the file") << QByteArray("beta") << "1.0" << false;
  QTest::newRow("no version expected") << QByteArray("1.0") << "beta" << false;
}

void tst_CCompensationFile::versions() {
  QFETCH(QByteArray, inFile);
  QFETCH(QString, expected);
  QFETCH(bool, accepted);
  QByteArray bytes = kEmptyTable;
  bytes.replace("1.0", inFile);
  QVERIFY(NTestFiles::write(path(QStringLiteral("versions")), bytes));
  QCOMPARE(mFile->loadFromBuffer(bytes, expected), accepted ? 0 : 3);
  QCOMPARE(mFile->load(path(QStringLiteral("versions")), expected), accepted ? 0 : 4);
  // A rejected version says nothing about the next file.
  QCOMPARE(mFile->load(path(QStringLiteral("missing")), expected), 2);
}

void tst_CCompensationFile::missingFile() {
  const QString fileName = path(QStringLiteral("missing/%1"));
  const QString prefix =
      QLatin1String("File \"") + fileName + QLatin1String("\": the file cannot be ");
  const QString reason = QStringLiteral(": No such file or directory.");
  QCOMPARE(mFile->load(fileName, kVersion), 2);
  QCOMPARE(mFile->errorMsg(), QString(prefix + QLatin1String("opened") + reason));
  QCOMPARE(mFile->save(fileName, kVersion), 5);
  QCOMPARE(mFile->errorMsg(), QString(prefix + QLatin1String("written") + reason));
}

// Empty meta data is filled by a save and stays; data that is partly there is left alone.
void tst_CCompensationFile::metaDataIsFilled() {
  QByteArray first;
  QCOMPARE(mFile->saveToBuffer(first, kVersion), 0);
  QCOMPARE(mFile->metaData().author(), QStringLiteral("tester"));
  QCOMPARE(mFile->metaData().date(), testDay());
  QCOMPARE(mFile->metaData().comment(), QString());

  NLumoToday::setToday([] { return testDay().addDays(1); });
  QByteArray second;
  QCOMPARE(mFile->saveToBuffer(second, kVersion), 0);
  NLumoToday::setToday(&testDay);
  QCOMPARE(second, first);

  CXMLMetaData comment;
  comment.setComment(QStringLiteral("only this"));
  mFile->setMetaData(comment);
  QCOMPARE(mFile->saveToBuffer(second, kVersion), 0);
  QCOMPARE(mFile->metaData().author(), QString());
  QVERIFY(mFile->metaData().date().isNull());
  QCOMPARE(mFile->metaData().comment(), QStringLiteral("only this"));
}

// The save format is the application's: a load does not choose it, nor does it reset it.
void tst_CCompensationFile::saveFormats() {
  QByteArray buffer;
  QCOMPARE(mFile->loadFromBuffer(kOldPoint, kVersion), 0);
  QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
  mFile->setDataPointSaveFormat(ICCompensationFile::NoFormat);  // as the old one
  QCOMPARE(mFile->loadFromBuffer(buffer, kVersion), 0);
  QCOMPARE(mFile->detectedDataPointFormat(), ICCompensationFile::CurrentFormat);
  QCOMPARE(mFile->point(0).adjustment(), CParamVal("7"));
  QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
  QCOMPARE(mFile->loadFromBuffer(buffer, kVersion), 0);
  QCOMPARE(mFile->detectedDataPointFormat(), ICCompensationFile::OldFormat);
}

void tst_CCompensationFile::clearResetsEverything() {
  const QString fresh = dump(*mFile);
  QCOMPARE(fresh, QStringLiteral("format 2\nhead  [] []\nrange [0] [0]\n"));
  mFile->setDataPointSaveFormat(ICCompensationFile::OldFormat);
  QCOMPARE(mFile->loadFromBuffer(kOldPoint, kVersion), 0);
  QVERIFY(dump(*mFile) != fresh);
  mFile->clear();
  QCOMPARE(dump(*mFile), fresh);
  QVERIFY(mFile->loadFromBuffer(QByteArray(), kVersion) != 0);
  QVERIFY(!mFile->errorMsg().isEmpty());
  mFile->clear();
  QCOMPARE(mFile->errorMsg(), QString());

  mFile->appendPoint(CCompensationPoint());
  QByteArray buffer;
  QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
  QCOMPARE(mFile->loadFromBuffer(buffer, kVersion), 0);
  QCOMPARE(mFile->detectedDataPointFormat(), ICCompensationFile::CurrentFormat);
}

void tst_CCompensationFile::unsavableTexts_data() {
  QTest::addColumn<QString>("position");
  QTest::addColumn<QString>("maximum");
  QTest::addColumn<QString>("author");
  QTest::addColumn<QString>("message");
  const QString fine = QStringLiteral("1");
  const QString bad = QStringLiteral("1\x1b");
  QTest::newRow("position") << bad << fine << fine
                            << "<POSITION>: the text of <POSITION> holds the character \\u001B, "
                               "which XML cannot hold.";
  QTest::newRow("maximum") << fine << bad << fine
                           << "<MAX>: the text of <MAX> holds the character \\u001B, which XML "
                              "cannot hold.";
  QTest::newRow("author")
      << fine << fine << bad
      << "<Author>: the text of <Author> holds the character \\u001B, which XML "
         "cannot hold.";
}

// A save that fails leaves the old file and the old buffer.
void tst_CCompensationFile::unsavableTexts() {
  QFETCH(QString, position);
  QFETCH(QString, maximum);
  QFETCH(QString, author);
  QFETCH(QString, message);
  const QString fileName = path(QStringLiteral("unsavable"));
  QVERIFY(NTestFiles::write(fileName, "old"));
  CCompensationPoint point;
  point.setPosition(position);
  mFile->appendPoint(point);
  CCompensationHeader header;
  header.setMaximum(maximum);
  mFile->setHeader(header);
  CXMLMetaData metaData;
  metaData.setAuthor(author);
  mFile->setMetaData(metaData);

  QByteArray buffer = "old";
  QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 5);
  QCOMPARE(mFile->errorMsg(), message);
  QCOMPARE(buffer, QByteArray("old"));
  QCOMPARE(mFile->save(fileName, kVersion), 5);
  QCOMPARE(mFile->errorMsg(), QStringLiteral("File \"%1\": %2").arg(fileName, message));
  QCOMPARE(NTestFiles::read(fileName), QByteArray("old"));

  mFile->clear();
  QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
  QCOMPARE(mFile->errorMsg(), QString());
}

void tst_CCompensationFile::refusedElements_data() {
  QTest::addColumn<QString>("tag");
  for (const char* tag : {"Head", "HEADER", "POINTLIST"}) {
    QTest::newRow(tag) << QString::fromLatin1(tag);
  }
}

void tst_CCompensationFile::refusedElements() {
  QFETCH(QString, tag);
  const QString fileName = path(QStringLiteral("refused"));
  const QString message = QStringLiteral("The element \"%1\" could not be written.").arg(tag);
  mFile = std::make_unique<CRefusingFile>(tag);
  QByteArray buffer;
  QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 1);
  QCOMPARE(mFile->errorMsg(), message);
  QVERIFY(buffer.isEmpty());
  QCOMPARE(mFile->save(fileName, kVersion), 1);
  QCOMPARE(mFile->errorMsg(), message);
  QVERIFY(!QFile::exists(fileName));
}

QTEST_GUILESS_MAIN(tst_CCompensationFile)
#include "tst_CCompensationFile.moc"
