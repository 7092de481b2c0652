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
  for (const CCompensationPoint& point : file.allPoints()) {
    texts << point.position() << point.adjustment();
  }
  return texts;
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
    QTest::addColumn<QStringList>("positions");
    QTest::addColumn<Indices>("badPoints");   // by checkPoint()
    QTest::addColumn<Indices>("badInTable");  // by checkAllPoints()
    const auto row = [](const char* name, const char* positions, const Indices& badPoints,
                        const Indices& badInTable) {
      addRow(name, QString(positions).split(' '), badPoints, badInTable);
    };
    // The range is 0 to 10.
    row("from end to end, as numbers", "0 5 10", {}, {});
    row("one point at the minimum", "0", {}, {});
    row("one point at the maximum", "10", {}, {});
    row("one point below", "-0.001", {0}, {0});
    row("one point above", "10.001", {0}, {0});
    row("both ends outside", "-1 5 11", {0, 2}, {0, 2});
    row("doubled first", "0 0", {0, 1}, {1});
    row("doubled last", "5 10 10", {1, 2}, {2});
    row("doubled within", "1 5 5 9", {1, 2}, {2});
    row("doubled as another text", "1 5 5.0 9", {1, 2}, {2});
    row("descending", "9 5 1", {0, 1, 2}, {1, 2});
    row("one too large hides those behind", "5 12 7", {1, 2}, {1, 2});
    row("only neighbours see one too large", "1 12 3 4 5", {1, 2}, {1, 2, 3, 4});
    row("one within range but too large", "1 8 3 4 9", {1, 2}, {2, 3});
    row("one too small", "4 5 1 6 7", {1, 2}, {2});
    row("later one equal to the minimum", "-1 0", {0}, {0, 1});
    row("all below the minimum", "-3 -2 -1", {0, 1, 2}, {0, 1, 2});
    row("no number counts as 0", "abc 1 def 3", {1, 2}, {2});
    row("not a number", "1 nan 3", {0, 1, 2}, {1});
    row("first is not a number", "nan 0 3", {0, 1}, {0, 1});
  }
  void points() {
    QFETCH(QStringList, positions);
    QFETCH(Indices, badPoints);
    QFETCH(Indices, badInTable);
    mFile->setHeader(makeHeader("0", "10"));
    QList<CCompensationPoint> points;
    Indices bad;
    for (const QString& position : positions) points << makePoint(position, "1");
    mFile->setAllPoints(points);
    for (int i = 0; i < mFile->count(); ++i) {
      if (!mFile->checkPoint(i)) bad << i;
    }
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
