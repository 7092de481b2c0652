#include "CParamVal.h"
#include "TestRows.h"

#include <limits>

namespace {

template <typename T>
void readBack(T number) {
  T read = 0;
  QVERIFY2(CParamVal(number).value(read), qPrintable(CParamVal(number).asStr()));
  QCOMPARE(read, number);
  QCOMPARE(static_cast<T>(CParamVal(number)), number);
}

template <typename T>
void readBackLimits() {
  readBack(std::numeric_limits<T>::min());
  readBack(T(0));
  readBack(std::numeric_limits<T>::max());
}

}  // namespace

class tst_CParamVal : public QObject {
  Q_OBJECT
 private slots:
  void writesNumbers_data() {
    addColumns<QString, QString>("expected", "written");
    const auto row = [](const char* text, const CParamVal& v) { addTextRow(text, v.asStr()); };
    row("0x0", static_cast<unsigned char>(0));
    row("0xff", static_cast<unsigned char>(255));
    row("0xabcd", static_cast<unsigned short>(0xABCD));
    row("0x1000", 4096U);
    row("0xffffffffffffffff", std::numeric_limits<unsigned long long>::max());
    row("-128", static_cast<signed char>(-128));
    row("-32768", static_cast<short>(-32768));
    row("-7", -7);
    row("-9223372036854775808", std::numeric_limits<long long>::min());
    row("2.5", 2.5);
    row("1", 1.0);
    row("0.1", 0.1);
    row("0.333333333333333", 1.0 / 3.0);
    row("1e+20", 1e20);
    row("inf", std::numeric_limits<double>::infinity());
  }
  void writesNumbers() {
    QFETCH(QString, written);
    QTEST(written, "expected");
  }

  void readsBackItsOwnTexts() {
    readBackLimits<unsigned char>();
    readBackLimits<unsigned short>();
    readBackLimits<unsigned int>();
    readBackLimits<unsigned long long>();
    readBackLimits<signed char>();
    readBackLimits<short>();
    readBackLimits<int>();
    QCOMPARE(CParamVal(std::numeric_limits<long long>::min()).asI64(),
             std::numeric_limits<long long>::min());
    readBack(1e-300);
    readBack(-2.5e300);
  }

  void failedReadLeavesTheOutput() {
    const CParamVal value("abc");
    unsigned int number = 7;
    double real = 7.5;
    QVERIFY(!value.value(number));
    QVERIFY(!value.value(real));
    QCOMPARE(number, 7U);
    QCOMPARE(real, 7.5);
    QCOMPARE(value.asU32(), 0U);
    QCOMPARE(value.asF64(), 0.0);
  }

  void convertsToLongLongThroughEightBits() {
    QCOMPARE(static_cast<long long>(CParamVal("-5")), -5LL);
    QCOMPARE(static_cast<long long>(CParamVal("127")), 127LL);
    QCOMPARE(static_cast<long long>(CParamVal("128")), 0LL);
    QCOMPARE(static_cast<long long>(CParamVal("1000")), 0LL);
    QCOMPARE(CParamVal("1000").asI64(), 1000LL);
  }

  void comparesTexts() {
    QVERIFY(CParamVal("10") == CParamVal("10"));
    QVERIFY(CParamVal("0xa") != CParamVal("10"));
    QVERIFY(CParamVal("0xA") != CParamVal("0xa"));
    QVERIFY(CParamVal("1.0") != CParamVal("1"));
    QVERIFY(CParamVal() == CParamVal(""));
  }

  void tellsNullFromEmpty() {
    const CParamVal nothing[] = {{}, QString(), static_cast<const char*>(nullptr)};
    for (const CParamVal& value : nothing) QVERIFY(value.isNull() && value.isEmpty());
    const CParamVal empty[] = {QString(""), ""};
    for (const CParamVal& value : empty) QVERIFY(!value.isNull() && value.isEmpty());
    QVERIFY(!CParamVal(" ").isEmpty());
  }
};

QTEST_APPLESS_MAIN(tst_CParamVal)
#include "tst_CParamVal.moc"
