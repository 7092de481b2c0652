#include "CCompensationFileImpl.h"
#include "GoldenFiles.h"
#include "KeptMessages.h"
#include "NClock.h"
#include "SubVersions.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace NTestFiles;
using NGoldenFiles::readable;
using Format = ICCompensationFile::EDataPointFormat;

namespace {

const QString kVersion = "1.0";
const QByteArray kEmptyTable =
    "<C_COMPENSATION_FORMAT Version='1.0'><HEADER/><POINTLIST/></C_COMPENSATION_FORMAT>";
const QByteArray kOldPoint =
    "<C_COMPENSATION_FORMAT><HEADER><MAX>9</MAX></HEADER><POINTLIST><POINT><ERROR>7</ERROR>"
    "</POINT></POINTLIST></C_COMPENSATION_FORMAT>";

QDate testDay() {
  return QDate(2027, 2, 28);
}

/// All that a file holds, as the expected files have it.
QString dump(const ICCompensationFile& file) {
  const auto line = [](const QString& start, const QString& first, const QString& second) {
    return QString("%1[%2] [%3]\n").arg(start, readable(first), readable(second));
  };
  const CXMLMetaData head = file.metaData();
  const CCompensationHeader range = file.header();
  QString result = QString("format %1\n").arg(file.detectedDataPointFormat());
  result += line("head " + head.date().toString(Qt::ISODate) + ' ', head.author(), head.comment());
  result += line("range ", range.minimum(), range.maximum());
  for (const CCompensationPoint& point : file.allPoints())
    result += line("", point.position(), point.adjustment());
  return result;
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
  void initTestCase() {
    qputenv("USER", "tester");
    NClock::setToday(&testDay);
  }
  void cleanupTestCase() { NClock::setToday(nullptr); }
  void init() {
    mFile.reset(ICCompensationFile::create(nullptr));
    mBoard.texts.clear();
  }

  /// Every file gives what stands beside it, from the file and from a buffer.
  void valid_data() { NGoldenFiles::addRows("compensation/valid", ".txt"); }
  void valid() {
    QFETCH(QString, name);
    const QString base = data("compensation/valid/") + name;
    const QString expected = QString::fromUtf8(read(base + ".txt"));
    QCOMPARE(mFile->load(base + ".xml", kVersion), 0);
    QCOMPARE(mFile->errorMsg(), "");
    QCOMPARE(dump(*mFile), expected);
    const QStringList warning("0 Old compensation data point format found.");
    QCOMPARE(mBoard.texts, expected.startsWith("format 1") ? warning : QStringList());

    QCOMPARE(mFile->loadFromBuffer(read(base + ".xml"), kVersion), 0);
    QCOMPARE(dump(*mFile), expected);
  }

  /// The file beside it holds the results for a file and for a buffer, the message and the part
  /// read.
  void invalid_data() { NGoldenFiles::addRows("compensation/invalid", ".txt"); }
  void invalid() {
    QFETCH(QString, name);
    const QString base = data("compensation/invalid/") + name;
    QStringList lines = NGoldenFiles::lines(base + ".txt");
    const QStringList results = lines.takeFirst().split(' ');
    const QString message = lines.takeFirst();
    const QString content = lines.join('\n');
    const bool opened = results.first() == "1";

    QCOMPARE(mFile->loadFromBuffer(kOldPoint, kVersion), 0);
    QCOMPARE(mFile->load(base + ".xml", kVersion), results.first().toInt());
    QCOMPARE(mFile->errorMsg(),
             opened ? message : QString("File \"%1\": %2").arg(base + ".xml", message));
    QCOMPARE(dump(*mFile), content);

    QCOMPARE(mFile->loadFromBuffer(kOldPoint, kVersion), 0);
    QCOMPARE(mFile->loadFromBuffer(read(base + ".xml"), kVersion), results.last().toInt());
    QCOMPARE(mFile->errorMsg(), message);
    QCOMPARE(dump(*mFile), content);
  }

  /// A file, loaded and saved in either format, gives the bytes beside it, and those give
  /// themselves.
  void golden_data() { NGoldenFiles::addRows("compensation/golden", ".current.xml"); }
  void golden() {
    QFETCH(QString, name);
    const QString base = data("compensation/golden/") + name;
    QCOMPARE(mFile->load(base + ".xml", kVersion), 0);
    const bool isEmpty = mFile->count() == 0;
    for (const Format format : {Format::CurrentFormat, Format::OldFormat}) {
      const QByteArray saved =
          read(base + (format == Format::OldFormat ? ".old.xml" : ".current.xml"));
      mFile->setDataPointSaveFormat(format);
      QByteArray buffer;
      QCOMPARE(mFile->saveToBuffer(buffer, "1.2"), 0);
      QCOMPARE(buffer, saved);
      QCOMPARE(mFile->save(path(name), "1.2"), 0);
      QCOMPARE(read(path(name)), saved);

      QCOMPARE(mFile->load(path(name), kVersion), 0);
      QCOMPARE(mFile->detectedDataPointFormat(), isEmpty ? Format::NoFormat : format);
      QCOMPARE(mFile->saveToBuffer(buffer, "1.2"), 0);
      QCOMPARE(buffer, saved);
    }
  }

  /// The example is a good table as this library writes it, so a save changes nothing in it.
  void example() {
    const QByteArray bytes = read(NTestFiles::example("SpindleCompensation.xcomp"));
    QCOMPARE(mFile->loadFromBuffer(bytes, kVersion), 0);
    QCOMPARE(mFile->detectedDataPointFormat(), Format::CurrentFormat);
    QCOMPARE(mFile->checkAll(), 0);
    QByteArray buffer;
    QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
    QCOMPARE(buffer, bytes);
  }

  void versions_data() { addSubVersionRows(); }
  void versions() {
    QFETCH(QString, inFile);
    QFETCH(QString, expected);
    QFETCH(bool, accepted);
    const QByteArray bytes = QByteArray(kEmptyTable).replace("1.0", inFile.toUtf8());
    QVERIFY(write(path("versions"), bytes));
    QCOMPARE(mFile->loadFromBuffer(bytes, expected), accepted ? 0 : 3);
    QCOMPARE(mFile->load(path("versions"), expected), accepted ? 0 : 4);
    // A rejected version says nothing about the next file.
    QCOMPARE(mFile->load(path("missing"), expected), 2);
  }

  void missingFile() {
    const QString message = "File \"" + path("missing/%1") + "\": the file cannot be ";
    const QString reason = ": No such file or directory.";
    QCOMPARE(mFile->load(path("missing/%1"), kVersion), 2);
    QCOMPARE(mFile->errorMsg(), QString(message + "opened" + reason));
    QCOMPARE(mFile->save(path("missing/%1"), kVersion), 5);
    QCOMPARE(mFile->errorMsg(), QString(message + "written" + reason));
  }

  /// Empty meta data is filled by a save and stays; data that is partly there is left alone.
  void metaDataIsFilled() {
    QByteArray first;
    QCOMPARE(mFile->saveToBuffer(first, kVersion), 0);
    QCOMPARE(mFile->metaData().author(), "tester");
    QCOMPARE(mFile->metaData().date(), testDay());
    QCOMPARE(mFile->metaData().comment(), "");

    NClock::setToday([] { return testDay().addDays(1); });
    QByteArray second;
    QCOMPARE(mFile->saveToBuffer(second, kVersion), 0);
    NClock::setToday(&testDay);
    QCOMPARE(second, first);

    CXMLMetaData comment;
    comment.setComment("only this");
    mFile->setMetaData(comment);
    QCOMPARE(mFile->saveToBuffer(second, kVersion), 0);
    QCOMPARE(mFile->metaData().author(), "");
    QVERIFY(mFile->metaData().date().isNull());
    QCOMPARE(mFile->metaData().comment(), "only this");
  }

  /// The save format is the application's: a load does not choose it, nor does it reset it.
  void saveFormats() {
    QByteArray buffer;
    QCOMPARE(mFile->loadFromBuffer(kOldPoint, kVersion), 0);
    QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
    mFile->setDataPointSaveFormat(Format::NoFormat);  // as the old one
    QCOMPARE(mFile->loadFromBuffer(buffer, kVersion), 0);
    QCOMPARE(mFile->detectedDataPointFormat(), Format::CurrentFormat);
    QCOMPARE(mFile->point(0).adjustment(), CParamVal("7"));
    QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
    QCOMPARE(mFile->loadFromBuffer(buffer, kVersion), 0);
    QCOMPARE(mFile->detectedDataPointFormat(), Format::OldFormat);
  }

  void clearResetsEverything() {
    const QString fresh = dump(*mFile);
    QCOMPARE(fresh, "format 2\nhead  [] []\nrange [0] [0]\n");
    mFile->setDataPointSaveFormat(Format::OldFormat);
    QCOMPARE(mFile->loadFromBuffer(kOldPoint, kVersion), 0);
    QVERIFY(dump(*mFile) != fresh);
    mFile->clear();
    QCOMPARE(dump(*mFile), fresh);
    QVERIFY(mFile->loadFromBuffer("", kVersion) != 0);
    QVERIFY(!mFile->errorMsg().isEmpty());
    mFile->clear();
    QCOMPARE(mFile->errorMsg(), "");

    mFile->appendPoint(CCompensationPoint());
    QByteArray buffer;
    QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
    QCOMPARE(mFile->loadFromBuffer(buffer, kVersion), 0);
    QCOMPARE(mFile->detectedDataPointFormat(), Format::CurrentFormat);
  }

  void unsavableTexts_data() {
    QTest::addColumn<QString>("position");
    QTest::addColumn<QString>("maximum");
    QTest::addColumn<QString>("author");
    QTest::addColumn<QString>("tag");
    addRow("position", "\x1b", "1", "1", "POSITION");
    addRow("maximum", "1", "\x1b", "1", "MAX");
    addRow("author", "1", "1", "\x1b", "Author");
  }
  /// A save that fails leaves the old file and the old buffer.
  void unsavableTexts() {
    QFETCH(QString, position);
    QFETCH(QString, maximum);
    QFETCH(QString, author);
    QFETCH(QString, tag);
    CCompensationPoint point;
    point.setPosition(position);
    mFile->appendPoint(point);
    CCompensationHeader header;
    header.setMaximum(maximum);
    mFile->setHeader(header);
    CXMLMetaData metaData;
    metaData.setAuthor(author);
    mFile->setMetaData(metaData);

    const QString message =
        QString("<%1>: the text of <%1> holds the character \\u001B, which XML cannot hold.")
            .arg(tag);
    QByteArray buffer = "old";
    QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 5);
    QCOMPARE(mFile->errorMsg(), message);
    QCOMPARE(buffer, "old");
    QVERIFY(write(path("unsavable"), "old"));
    QCOMPARE(mFile->save(path("unsavable"), kVersion), 5);
    QCOMPARE(mFile->errorMsg(), QString("File \"%1\": %2").arg(path("unsavable"), message));
    QCOMPARE(read(path("unsavable")), "old");

    mFile->clear();
    QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
    QCOMPARE(mFile->errorMsg(), "");
  }

  void refusedElements() {
    for (const char* tag : {"Head", "HEADER", "POINTLIST"}) {
      const QString message = QString("The element \"%1\" could not be written.").arg(tag);
      mFile = std::make_unique<CRefusingFile>(tag);
      QByteArray buffer;
      QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 1);
      QCOMPARE(mFile->errorMsg(), message);
      QVERIFY(buffer.isEmpty());
      QCOMPARE(mFile->save(path("refused"), kVersion), 1);
      QCOMPARE(mFile->errorMsg(), message);
      QVERIFY(!QFile::exists(path("refused")));
    }
  }

 private:
  QString path(const QString& name) const { return mFolder.filePath(name); }

  QTemporaryDir mFolder;
  SKeptMessages mBoard;
  std::unique_ptr<ICCompensationFile> mFile;
};

QTEST_GUILESS_MAIN(tst_CCompensationFile)
#include "tst_CCompensationFile.moc"
