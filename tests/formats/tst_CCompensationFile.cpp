#include "CCompensationFileImpl.h"
#include "GoldenFiles.h"
#include "NClock.h"
#include "TestRows.h"

#include <QTemporaryDir>

#include <memory>

using namespace NTestFiles;
using CIndices = QList<int>;
using Format = ICCompensationFile::EDataPointFormat;

namespace {

const QString kVersion = "1.0";
const QByteArray kOldPoint =
    "<C_COMPENSATION_FORMAT><HEADER><MAX>9</MAX></HEADER><POINTLIST><POINT><ERROR>7</ERROR>"
    "</POINT></POINTLIST></C_COMPENSATION_FORMAT>";

CCompensationPoint makePoint(const CParamVal& position, const CParamVal& adjustment = 0.0) {
  CCompensationPoint point;
  point.setPosition(position);
  point.setAdjustment(adjustment);
  return point;
}

CCompensationHeader makeHeader(const CParamVal& minimum, const CParamVal& maximum) {
  CCompensationHeader header;
  header.setMinimum(minimum);
  header.setMaximum(maximum);
  return header;
}

/// The texts of all points: position and adjustment in turn.
QString texts(const ICCompensationFile& file) {
  QStringList texts;
  for (const CCompensationPoint& point : file.allPoints())
    texts << point.position() << point.adjustment();
  return texts.join(' ');
}

CIndices indices(const QString& text) {
  CIndices result;
  for (const QString& index : text.split(' '))
    if (index != "-") result << index.toInt();
  return result;
}

}  // namespace

class tst_CCompensationFile : public QObject {
  Q_OBJECT

 private slots:
  void init() { mFile.reset(ICCompensationFile::create(nullptr)); }

  /// Empty meta data is filled by a save and stays; data that is partly there is left alone.
  void metaDataIsFilled() {
    qputenv("USER", "tester");
    QByteArray buffer;
    for (const auto today :
         {+[] { return QDate(2027, 2, 28); }, +[] { return QDate(2027, 3, 1); }}) {
      NClock::setToday(today);
      QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
      QCOMPARE(mFile->metaData().author(), "tester");
      QCOMPARE(mFile->metaData().date(), QDate(2027, 2, 28));
    }
    NClock::setToday(nullptr);
    CXMLMetaData comment;
    comment.setComment("only this");
    mFile->setMetaData(comment);
    QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
    QVERIFY(mFile->metaData().author().isEmpty() && mFile->metaData().date().isNull());
    QCOMPARE(mFile->metaData().comment(), "only this");
  }

  /// The save format is the application's: a load does not choose it, nor does it reset it.
  void saveFormats() {
    QByteArray buffer;
    const auto reload = [&] {
      return mFile->saveToBuffer(buffer, kVersion) == 0 &&
             mFile->loadFromBuffer(buffer, kVersion) == 0;
    };
    QCOMPARE(mFile->loadFromBuffer(kOldPoint, kVersion), 0);
    QVERIFY(reload() && mFile->detectedDataPointFormat() == Format::CurrentFormat);
    QCOMPARE(texts(*mFile), "0.0 7");
    mFile->setDataPointSaveFormat(Format::NoFormat);  // as the old one
    QVERIFY(reload() && reload() && mFile->detectedDataPointFormat() == Format::OldFormat);
    QCOMPARE(mFile->load(data("compensation/valid/table.xml"), kVersion), 0);
    QVERIFY(reload());
    QCOMPARE(buffer, read(data("compensation/table.old.xml")));

    mFile->clear();
    QCOMPARE(mFile->count(), 0);
    QCOMPARE(mFile->header().maximum(), CParamVal("0"));
    QVERIFY(mFile->metaData().isEmpty());
    QVERIFY(mFile->loadFromBuffer("", kVersion) != 0 && !mFile->errorMsg().isEmpty());
    mFile->clear();
    QCOMPARE(mFile->errorMsg(), "");
    mFile->appendPoint(CCompensationPoint());
    QVERIFY(reload() && mFile->detectedDataPointFormat() == Format::CurrentFormat);
  }

  /// A save that fails leaves the old file and the old buffer.
  void unsavableTexts() {
    const QString name = mFolder.filePath("unsavable");
    for (const QString tag : {"POSITION", "MAX", "Author"}) {
      const auto textOf = [&](const char* each) { return tag == each ? "\x1b" : "1"; };
      CXMLMetaData metaData;
      metaData.setAuthor(textOf("Author"));
      mFile->setMetaData(metaData);
      mFile->setHeader(makeHeader("0", textOf("MAX")));
      mFile->setAllPoints({makePoint(textOf("POSITION"))});
      const QString message =
          QString("<%1>: the text of <%1> holds the character \\u001B, which XML cannot hold.")
              .arg(tag);
      QByteArray buffer = "old";
      QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 5);
      QCOMPARE(mFile->errorMsg(), message);
      QVERIFY(write(name, "old"));
      QCOMPARE(mFile->save(name, kVersion), 5);
      QCOMPARE(mFile->errorMsg(), QString("File \"" + name + "\": " + message));
      QCOMPARE(buffer + read(name), QByteArray("oldold"));
    }
    mFile->clear();
    QVERIFY(mFile->save(name, kVersion) == 0 && mFile->errorMsg().isEmpty());
    QCOMPARE(mFile->save(name + "/none", kVersion), 5);
    QVERIFY(mFile->errorMsg().contains("the file cannot be written"));
  }

  void header_data() {
    addColumns<QString, QString, bool>("minimum", "maximum", "good");
    addRow("below", "-1", "1", true);
    addRow("below as numbers", "9", "10", true);
    addRow("equal", "1", "1.0", false);
    addRow("above", "10", "9", false);
    addRow("no number counts as 0", "abc", "1", true);
    addRow("no number on both ends", "abc", "", false);
    addRow("not a number", "nan", "1", false);
    addRow("maximum that is not a number", "1", "nan", false);
    addRow("infinite", "-inf", "inf", true);
  }
  void header() {
    QFETCH(QString, minimum);
    QFETCH(QString, maximum);
    QFETCH(bool, good);
    mFile->setHeader(makeHeader(minimum, maximum));
    QCOMPARE(mFile->checkHeader(), good);
    QCOMPARE(mFile->checkAll(), good ? 0 : 1);
    // A bad header is told before bad points.
    mFile->appendPoint(makePoint("1e300"));
    const bool inRange = maximum == "inf";
    QCOMPARE(mFile->checkAllPoints(nullptr), inRange);
    QCOMPARE(mFile->checkPoint(0), inRange);
    QCOMPARE(mFile->checkAll(), !good ? 1 : inRange ? 0 : 2);
  }

  void points_data() {
    NGoldenFiles::addTable("compensation/points.txt", {"name", "positions", "points", "table"});
  }
  void points() {
    QFETCH(QString, positions);
    QFETCH(QString, points);
    QFETCH(QString, table);
    const CIndices badInTable = indices(table);
    mFile->setHeader(makeHeader("0", "10"));
    QList<CCompensationPoint> all;
    for (const QString& position : positions.split(' ')) all << makePoint(position, "1");
    mFile->setAllPoints(all);
    CIndices bad;
    for (int i = 0; i < mFile->count(); ++i)
      if (!mFile->checkPoint(i)) bad << i;
    QCOMPARE(bad, indices(points));

    bad = {7, 8};
    QCOMPARE(mFile->checkAllPoints(&bad), badInTable.isEmpty());
    QCOMPARE(bad, badInTable);
    QCOMPARE(mFile->checkAll(), badInTable.isEmpty() ? 0 : 2);
  }

  /// A table can use 511 points; more are still read, checked and written.
  void longTable() {
    mFile->setHeader(makeHeader("0", "1e6"));
    CIndices bad;
    for (int i = 0; i < 513; ++i) {
      mFile->appendPoint(makePoint(i, -i));
      QCOMPARE(mFile->checkPoint(i), i < 511);
      QCOMPARE(mFile->checkAllPoints(&bad), i < 511);
    }
    QCOMPARE(bad, CIndices({511, 512}));
    QByteArray buffer;
    const QString before = texts(*mFile);
    QVERIFY(mFile->saveToBuffer(buffer, kVersion) == 0);
    QVERIFY(mFile->loadFromBuffer(buffer, kVersion) == 0 && texts(*mFile) == before);
  }

  /// The count is refused as an index as well: appending is what appendPoint() is for.
  void editing() {
    QVERIFY(!mFile->insertPoint(0, makePoint("1")));
    mFile->appendPoint(makePoint("2", "a"));
    QVERIFY(mFile->insertPoint(0, makePoint("0", "b")));
    QVERIFY(mFile->insertPoint(1, makePoint("1", "c")));
    QCOMPARE(texts(*mFile), "0 b 1 c 2 a");
    QVERIFY(mFile->setPoint(1, makePoint("9", "d")));
    QVERIFY(mFile->setPoint(2, makePoint("8", "e")));
    for (const int index : {-1, 3, 1000000}) {
      QVERIFY(!mFile->setPoint(index, makePoint("3")));
      QVERIFY(!mFile->insertPoint(index, makePoint("3")));
      QVERIFY(!mFile->removePoint(index));
      QVERIFY(!mFile->checkPoint(index));
      QCOMPARE(mFile->point(index).position().asStr(), "0");
      QCOMPARE(mFile->point(index).adjustment().asStr(), "0");
    }
    QCOMPARE(texts(*mFile), "0 b 9 d 8 e");
    QCOMPARE(mFile->size(), 3);
    QCOMPARE(mFile->point(2).position().asStr(), "8");
    const QList<CCompensationPoint> copy = mFile->allPoints();
    QVERIFY(mFile->removePoint(2) && mFile->removePoint(0));
    QCOMPARE(texts(*mFile), "9 d");
    mFile->setAllPoints(copy);
    QCOMPARE(texts(*mFile), "0 b 9 d 8 e");
  }

 private:
  QTemporaryDir mFolder;
  std::unique_ptr<ICCompensationFile> mFile;
};

QTEST_GUILESS_MAIN(tst_CCompensationFile)
#include "tst_CCompensationFile.moc"
