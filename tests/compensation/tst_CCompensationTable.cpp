#include "GoldenFiles.h"
#include "ICCompensationFile.h"
#include "TestRows.h"

#include <QtTest>

#include <memory>

using Indices = QList<int>;

namespace {

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
QStringList texts(const ICCompensationFile& file) {
  QStringList texts;
  for (const CCompensationPoint& point : file.allPoints())
    texts << point.position() << point.adjustment();
  return texts;
}

Indices indices(const QString& text) {
  Indices result;
  for (const QString& index : text.split(' '))
    if (index != "-") result << index.toInt();
  return result;
}

}  // namespace

class tst_CCompensationTable : public QObject {
  Q_OBJECT

 private slots:
  void init() { mFile.reset(ICCompensationFile::create(nullptr)); }

  void header_data() {
    QTest::addColumn<QString>("minimum");
    QTest::addColumn<QString>("maximum");
    QTest::addColumn<bool>("good");
    addRow("below", "-1", "1", true);
    addRow("below as numbers", "9", "10", true);
    addRow("equal", "1", "1.0", false);
    addRow("above", "10", "9", false);
    addRow("initial", "0.0", "0.0", false);
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
    QCOMPARE(mFile->header().minimum().asStr(), minimum);
    QCOMPARE(mFile->header().maximum().asStr(), maximum);
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
    const Indices badPoints = indices(points);
    const Indices badInTable = indices(table);
    mFile->setHeader(makeHeader("0", "10"));
    QList<CCompensationPoint> all;
    for (const QString& position : positions.split(' ')) all << makePoint(position, "1");
    mFile->setAllPoints(all);
    Indices bad;
    for (int i = 0; i < mFile->count(); ++i)
      if (!mFile->checkPoint(i)) bad << i;
    QCOMPARE(bad, badPoints);

    bad = {7, 8};
    QCOMPARE(mFile->checkAllPoints(&bad), badInTable.isEmpty());
    QCOMPARE(bad, badInTable);
    QCOMPARE(mFile->checkAllPoints(nullptr), badInTable.isEmpty());
    QCOMPARE(mFile->checkAll(), badInTable.isEmpty() ? 0 : 2);
    QVERIFY(!mFile->checkPoint(-1));
    QVERIFY(!mFile->checkPoint(mFile->count()));
  }

  /// A table can use 511 points; far more are still read, checked and written in one pass.
  void longTable() {
    mFile->setHeader(makeHeader("0", "1e6"));
    for (int i = 0; i < 511; ++i) mFile->appendPoint(makePoint(i, -i));
    Indices bad = {1};
    QVERIFY(mFile->checkAllPoints(&bad));
    QCOMPARE(bad, Indices());
    Indices unused;
    for (int i = 511; i < 100000; ++i) {
      mFile->appendPoint(makePoint(i, -i));
      unused << i;
    }
    QVERIFY(!mFile->checkAllPoints(&bad));
    QCOMPARE(bad, unused);
    for (const int i : {500, 510, 511, 512, 99999}) QCOMPARE(mFile->checkPoint(i), i < 511);
    QByteArray buffer;
    QCOMPARE(mFile->saveToBuffer(buffer, "1.0"), 0);
    const QStringList before = texts(*mFile);
    QCOMPARE(mFile->loadFromBuffer(buffer, "1.0"), 0);
    QCOMPARE(texts(*mFile), before);
  }

  void editing() {
    QVERIFY(!mFile->insertPoint(0, makePoint("1")));
    QCOMPARE(mFile->count(), 0);
    mFile->appendPoint(makePoint("2", "a"));
    QVERIFY(mFile->insertPoint(0, makePoint("0", "b")));
    QVERIFY(mFile->insertPoint(1, makePoint("1", "c")));
    QCOMPARE(texts(*mFile), QStringList({"0", "b", "1", "c", "2", "a"}));
    QVERIFY(mFile->setPoint(1, makePoint("9", "d")));
    QVERIFY(mFile->setPoint(2, makePoint("8", "e")));
    QCOMPARE(texts(*mFile), QStringList({"0", "b", "9", "d", "8", "e"}));
    QCOMPARE(mFile->count(), 3);
    QCOMPARE(mFile->size(), 3);
    QCOMPARE(mFile->point(2).position().asStr(), "8");

    const QList<CCompensationPoint> copy = mFile->allPoints();
    QVERIFY(mFile->removePoint(2));
    QVERIFY(mFile->removePoint(0));
    QCOMPARE(texts(*mFile), QStringList({"9", "d"}));
    mFile->setAllPoints(copy);
    QCOMPARE(texts(*mFile), QStringList({"0", "b", "9", "d", "8", "e"}));
  }

  /// The count is refused as well: appending is what appendPoint() is for.
  void badIndices() {
    mFile->appendPoint(makePoint("1", "a"));
    mFile->appendPoint(makePoint("2", "b"));
    const QStringList before = texts(*mFile);
    for (const int index : {-1, 2, 1000000}) {
      QVERIFY(!mFile->setPoint(index, makePoint("3")));
      QVERIFY(!mFile->insertPoint(index, makePoint("3")));
      QVERIFY(!mFile->removePoint(index));
      QVERIFY(!mFile->checkPoint(index));
      QCOMPARE(texts(*mFile), before);
      QCOMPARE(mFile->point(index).position().asStr(), "0");
      QCOMPARE(mFile->point(index).adjustment().asStr(), "0");
    }
  }

 private:
  std::unique_ptr<ICCompensationFile> mFile;
};

QTEST_APPLESS_MAIN(tst_CCompensationTable)
#include "tst_CCompensationTable.moc"
