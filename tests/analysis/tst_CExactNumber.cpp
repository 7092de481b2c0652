#include "CExactNumber.h"
#include "TestRows.h"

#include <QtTest>

#include <cmath>
#include <limits>

using namespace NParamDef;

class tst_CExactNumber : public QObject {
  Q_OBJECT

 private slots:
  void comparesExactly_data() {
    QTest::addColumn<int>("typeA");
    QTest::addColumn<QString>("a");
    QTest::addColumn<int>("typeB");
    QTest::addColumn<QString>("b");
    QTest::addColumn<int>("order");  // -1 below, 0 equal, 1 above, 2 neither
    const int u64 = PARAM_TYPE_U64;
    const int i64 = PARAM_TYPE_I64;
    const int f64 = PARAM_TYPE_F64;
    const char* maxU64 = "0xffffffffffffffff";
    const char* maxI64 = "9223372036854775807";
    const char* minI64 = "-9223372036854775808";
    addRow("neighbours that a double rounds together", u64, "0xfffffffffffffffe", u64, maxU64, -1);
    addRow("signed neighbours", i64, "-9007199254740993", i64, "-9007199254740992", -1);
    QTest::newRow("unsigned above signed") << u64 << "9223372036854775808" << i64 << maxI64 << 1;
    QTest::newRow("negative below unsigned") << i64 << "-1" << u64 << "0" << -1;
    QTest::newRow("same bits") << i64 << "-1" << u64 << maxU64 << -1;
    QTest::newRow("smallest") << i64 << minI64 << i64 << "-9223372036854775807" << -1;
    QTest::newRow("smallest equals its double") << i64 << minI64 << f64 << minI64 << 0;
    addRow("largest below its rounded double", i64, maxI64, f64, "9223372036854775807", -1);
    addRow("largest unsigned below 2^64", u64, maxU64, f64, "18446744073709551616", -1);
    addRow("integer beyond 2^53", u64, "9007199254740993", f64, "9007199254740992", 1);
    QTest::newRow("fraction above") << f64 << "2.5" << i64 << "2" << 1;
    QTest::newRow("fraction below") << f64 << "2.5" << i64 << "3" << -1;
    QTest::newRow("negative fraction above") << f64 << "-2.5" << i64 << "-3" << 1;
    QTest::newRow("negative fraction below") << f64 << "-2.5" << i64 << "-2" << -1;
    QTest::newRow("fractions") << f64 << "0.1" << f64 << "0.2" << -1;
    QTest::newRow("integral double") << f64 << "7.0" << u64 << "7" << 0;
    QTest::newRow("negative zero") << f64 << "-0.0" << u64 << "0" << 0;
    QTest::newRow("infinity") << f64 << "inf" << u64 << maxU64 << 1;
    QTest::newRow("minus infinity") << f64 << "-inf" << i64 << minI64 << -1;
    QTest::newRow("nan and integer") << f64 << "nan" << i64 << "0" << 2;
    QTest::newRow("nan and nan") << f64 << "nan" << f64 << "nan" << 2;
  }
  void comparesExactly() {
    QFETCH(int, typeA);
    QFETCH(QString, a);
    QFETCH(int, typeB);
    QFETCH(QString, b);
    QFETCH(int, order);
    const auto x = CExactNumber::of(CParamVal(a), static_cast<EParamType>(typeA));
    const auto y = CExactNumber::of(CParamVal(b), static_cast<EParamType>(typeB));
    QVERIFY(x && y);
    QCOMPARE(*x < *y, order == -1);
    QCOMPARE(*y < *x, order == 1);
    QCOMPARE(x->isNan() || y->isNan(), order == 2);
  }

  void isAChoiceWhenItIsExactlyThat_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isChoice");
    QTest::addColumn<qint64>("choice");
    const qint64 minimum = std::numeric_limits<qint64>::min();
    QTest::newRow("smallest") << int(PARAM_TYPE_I64) << "-9223372036854775808" << true << minimum;
    QTest::newRow("too large") << int(PARAM_TYPE_U64) << "0x8000000000000000" << false << qint64(0);
    QTest::newRow("integral") << int(PARAM_TYPE_F64) << "-3" << true << qint64(-3);
    QTest::newRow("fraction") << int(PARAM_TYPE_F64) << "-3.5" << false << qint64(0);
    addRow("too small", int(PARAM_TYPE_F64), "-9223372036854777856", false, qint64(0));
  }
  void isAChoiceWhenItIsExactlyThat() {
    QFETCH(int, type);
    QFETCH(QString, text);
    QFETCH(bool, isChoice);
    QFETCH(qint64, choice);
    const auto number = CExactNumber::of(CParamVal(text), static_cast<EParamType>(type));
    QVERIFY(number);
    QCOMPARE(number->asI64().has_value(), isChoice);
    QCOMPARE(number->asI64().value_or(0), choice);
  }
};

QTEST_APPLESS_MAIN(tst_CExactNumber)
#include "tst_CExactNumber.moc"
