#include "CParamVal.h"

#include <QtTest>

#include <limits>

namespace {

/// A number gives this text, and the text the number.
template <typename T>
void isWritten(T number, const char* text) {
  const CParamVal value(number);
  T read = 0;
  QCOMPARE(value.asStr(), QString(text));
  QVERIFY2(value.value(read) && read == number, text);
  if constexpr (!std::is_same_v<T, long long>) QCOMPARE(static_cast<T>(value), number);
}

template <typename T>
void limitsAreWritten(const char* min, const char* max) {
  isWritten(std::numeric_limits<T>::min(), min);
  isWritten(std::numeric_limits<T>::max(), max);
}

}  // namespace

class tst_CParamVal : public QObject {
  Q_OBJECT
 private slots:
  void writesAndReadsNumbers() {
    limitsAreWritten<unsigned char>("0x0", "0xff");
    limitsAreWritten<unsigned short>("0x0", "0xffff");
    limitsAreWritten<unsigned int>("0x0", "0xffffffff");
    limitsAreWritten<unsigned long long>("0x0", "0xffffffffffffffff");
    limitsAreWritten<signed char>("-128", "127");
    limitsAreWritten<short>("-32768", "32767");
    limitsAreWritten<int>("-2147483648", "2147483647");
    limitsAreWritten<long long>("-9223372036854775808", "9223372036854775807");
    isWritten(1.0, "1");
    isWritten(-2.5e-300, "-2.5e-300");
    isWritten(std::numeric_limits<double>::infinity(), "inf");
    QCOMPARE(CParamVal(1.0 / 3.0).asStr(), QString("0.333333333333333"));
    QCOMPARE(CParamVal("-9223372036854775808").asI64(), std::numeric_limits<long long>::min());
    // To this type by way of eight bits.
    QCOMPARE(static_cast<long long>(CParamVal("127")), 127LL);
    QCOMPARE(static_cast<long long>(CParamVal("128")), 0LL);
    unsigned int number = 7;
    QVERIFY(!CParamVal("abc").value(number) && number == 7 && CParamVal("abc").asU32() == 0);
  }

  void comparesTexts() {
    QVERIFY(CParamVal("10") == CParamVal("10") && CParamVal() == CParamVal(""));
    QVERIFY(CParamVal("0xA") != CParamVal("0xa") && CParamVal("1.0") != CParamVal("1"));
    for (const CParamVal& value : {CParamVal(), CParamVal(static_cast<const char*>(nullptr))})
      QVERIFY(value.isNull() && value.isEmpty());
    for (const CParamVal& value : {CParamVal(QString("")), CParamVal("")})
      QVERIFY(!value.isNull() && value.isEmpty());
  }
};

QTEST_APPLESS_MAIN(tst_CParamVal)
#include "tst_CParamVal.moc"
