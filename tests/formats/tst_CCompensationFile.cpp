#include "CompensationTables.h"
#include "GoldenFiles.h"
#include "NClock.h"

using namespace NTestFiles;
using CIndices = QList<int>;
using Format = ICCompensationFile::EDataPointFormat;

namespace {

const QString kVersion = "1.0";

/// The texts of all points, as the words of a table.
QString words(const ICCompensationFile& file) {
  QStringList words;
  for (const CCompensationPoint& point : file.allPoints())
    words << point.position().asStr() + '/' + point.adjustment().asStr();
  return words.join(' ');
}

QString told(const CIndices& indices) {
  QStringList numbers;
  for (const int index : indices) numbers << QString::number(index);
  return numbers.isEmpty() ? QString("-") : numbers.join(' ');
}

}  // namespace

class tst_CCompensationFile : public QObject {
  Q_OBJECT

 private slots:
  void init() { mFile.reset(ICCompensationFile::create(nullptr)); }

  /// Empty meta data is filled by a save and stays; data that is partly there is left alone.
  void metaDataIsFilled() {
    qputenv("USER", "tester");
    NClock::setToday([] { return QDate(2027, 2, 28); });
    QByteArray buffer;
    QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
    NClock::setToday(nullptr);
    QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
    QCOMPARE(mFile->metaData().author() + mFile->metaData().date().toString(Qt::ISODate),
             "tester2027-02-28");
    CXMLMetaData comment;
    comment.setComment("only this");
    mFile->setMetaData(comment);
    QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
    QVERIFY(mFile->metaData().author().isEmpty() && mFile->metaData().date().isNull());
  }

  /// The save format is the application's: a load does not choose it, nor does it reset it.
  void saveFormats() {
    QByteArray buffer;
    const auto reload = [&] {
      return mFile->saveToBuffer(buffer, kVersion) == 0 &&
             mFile->loadFromBuffer(buffer, kVersion) == 0;
    };
    QCOMPARE(mFile->load(data("compensation/valid/old.xml"), kVersion), 0);
    QVERIFY(reload() && mFile->detectedDataPointFormat() == Format::CurrentFormat);
    QCOMPARE(words(*mFile), "0/0.1 25/0.2 50/0.0");
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

  /// A save that fails leaves the old buffer.
  void unsavableText() {
    QByteArray buffer = "old";
    mFile = compensationTable("0/9 \x1b/1");
    QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 5);
    QCOMPARE(mFile->errorMsg(),
             "<POSITION>: the text of <POSITION> holds the character \\u001B, which "
             "XML cannot hold.");
    QCOMPARE(buffer, QByteArray("old"));
    mFile->clear();
    QCOMPARE(mFile->save("/no/such", kVersion), 5);
    QVERIFY(mFile->errorMsg().startsWith("File \"/no/such\": the file cannot be written"));
  }

  void checks_data() {
    NGoldenFiles::addTable("compensation/points.txt", {"name", "table", "points", "all", "result"});
  }
  void checks() {
    QFETCH(QString, table);
    mFile = compensationTable(table);
    CIndices bad;
    for (int i = 0; i < mFile->count(); ++i)
      if (!mFile->checkPoint(i)) bad << i;
    QTEST(told(bad), "points");
    bad = {7, 8};
    const bool isGood = mFile->checkAllPoints(&bad);
    QCOMPARE(isGood, bad.isEmpty());
    QTEST(told(bad), "all");
    QTEST(QString::number(mFile->checkAll()), "result");
    QCOMPARE(mFile->checkHeader(), mFile->checkAll() != 1);
  }

  /// A table can use 511 points; more are still read, checked and written.
  void longTable() {
    QString text = "0/1e6";
    for (int i = 0; i < 513; ++i) text += QString(" %1/-%1").arg(i);
    mFile = compensationTable(text);
    QVERIFY(mFile->checkPoint(510) && !mFile->checkPoint(511));
    QByteArray buffer;
    QVERIFY(mFile->saveToBuffer(buffer, kVersion) == 0);
    QVERIFY(mFile->loadFromBuffer(buffer, kVersion) == 0 && text.endsWith(' ' + words(*mFile)));
  }

  /// The count is refused as an index as well: appending is what appendPoint() is for.
  void editing() {
    CCompensationPoint point;
    point.setPosition("1");
    QVERIFY(!mFile->insertPoint(0, point));
    mFile = compensationTable("0/9 0/b 2/a");
    QVERIFY(mFile->insertPoint(1, point) && mFile->insertPoint(0, point));
    QCOMPARE(words(*mFile), "1/0 0/b 1/0 2/a");
    point.setAdjustment("d");
    QVERIFY(mFile->setPoint(1, point) && mFile->setPoint(3, point));
    for (const int index : {-1, 4, 1000000}) {
      QVERIFY(!mFile->setPoint(index, point) && !mFile->insertPoint(index, point));
      QVERIFY(!mFile->removePoint(index) && !mFile->checkPoint(index));
      QCOMPARE(mFile->point(index).position().asStr() + mFile->point(index).adjustment().asStr(),
               "00");
    }
    QCOMPARE(words(*mFile), "1/0 1/d 1/0 1/d");
    QVERIFY(mFile->size() == 4 && mFile->point(3).adjustment() == CParamVal("d"));
    QVERIFY(mFile->removePoint(3) && mFile->removePoint(0));
    QCOMPARE(words(*mFile), "1/d 1/0");
  }

 private:
  std::unique_ptr<ICCompensationFile> mFile;
};

QTEST_GUILESS_MAIN(tst_CCompensationFile)
#include "tst_CCompensationFile.moc"
