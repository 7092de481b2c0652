#include "CStr.h"
#include "NTypes.h"

#include <QtTest>

#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <type_traits>

namespace {

/// What no conversion takes: no-break spaces, other digits and more that a source cannot show.
const QStringList kOddTexts{QString(),   "",   QString("5") + QChar(0), u8"\u0665", u8"5\u066B5",
                            u8"\u00A05", "\f5"};

/// Whether a text is taken where its number, if it is one, fits, and the output else left alone.
template <typename T>
bool isRight(bool (*convert)(const QString&, T&, int), const QString& text, int base,
             const QByteArray& number) {
  using CLimits = std::numeric_limits<T>;
  const long double wide = std::strtold(number.constData(), nullptr);  // exact up to 64 bits
  const bool fits = !number.isEmpty() && wide >= CLimits::min() && wide <= CLimits::max() &&
                    (CLimits::is_signed || !text.contains('-'));
  T value = 42;
  return convert(text, value, base) == fits && value == (fits ? static_cast<T>(wide) : T(42));
}

void checkIntegers(const QString& text, const QByteArray& number, int base = 0) {
  QVERIFY2(isRight(&CStr::strToU8, text, base, number), qPrintable(text));
  QVERIFY2(isRight(&CStr::strToU16, text, base, number), qPrintable(text));
  QVERIFY2(isRight(&CStr::strToU32, text, base, number), qPrintable(text));
  QVERIFY2(isRight(&CStr::strToU64, text, base, number), qPrintable(text));
  QVERIFY2(isRight(&CStr::strToI8, text, base, number), qPrintable(text));
  QVERIFY2(isRight(&CStr::strToI16, text, base, number), qPrintable(text));
  QVERIFY2(isRight(&CStr::strToI32, text, base, number), qPrintable(text));
  QVERIFY2(isRight(&CStr::strToI64, text, base, number), qPrintable(text));
}

void checkReal(const QString& text, bool isNumber) {
  const double expected = isNumber ? std::strtod(qPrintable(text), nullptr) : 42.0;
  double value = 42.0;
  QVERIFY2(CStr::strToF64(text, value) == isNumber, qPrintable(text));
  QVERIFY2(std::isnan(expected) ? std::isnan(value) : value == expected, qPrintable(text));
  QCOMPARE(std::signbit(value), std::signbit(expected));
}

}  // namespace

class tst_CStr : public QObject {
  Q_OBJECT

 private slots:
  void integers() {
    const QByteArray plain =
        "0 127 128 255 256 32767 32768 65535 65536 2147483647 2147483648 4294967295 4294967296 "
        "9223372036854775807 9223372036854775808 18446744073709551615 18446744073709551616 "
        "340282366920938463463374607431768211455 -0 -1 -128 -129 -32768 -32769 -2147483648 "
        "-2147483649 -9223372036854775808 -9223372036854775809";
    for (const QByteArray& text : plain.split(' ')) checkIntegers(text, text);
    const QString others =
        "010=10|0x1f=31|0X1F=31|+0x10=16|+5=5| \t\r\n7 \t\r\n=7|-0x10=-16|0xffffffff=4294967295|"
        "-0x80000000=-2147483648|0000000000000000000000000000000000000000000000001=1|"
        "0x0000000000000000000000000000000000000000000000001=1|ff=255=16|0xff=255=16|z=35=36|"
        "101=5=2|0x10==10|8==8|1==-10|1==1|1==37";
    for (const QString& row : others.split('|')) {
      const QStringList cells = row.split('=');
      checkIntegers(cells.at(0), cells.at(1).toLatin1(), cells.value(2).toInt());
    }
    const QString refused =
        " |+|-|0x|0X|-0x|+-5|-+5|--5|++5|0x-5|0x+5|0x0x5|x5|5 5|+ 5|- 5|0 x5|5.0|5e0|1,000|1'000|"
        "5u|0b1|0xg|ff|abc|inf";
    for (const QString& text : refused.split('|') + kOddTexts) checkIntegers(text, "");
  }

  void reals() {
    const QString numbers =
        "0|-0|010|0.1|+2.5| \t\r\n-2.5 \t\r\n|.5|5.|1E-5|9007199254740993|1.7976931348623157e308|"
        "2.2250738585072014e-308|4.9e-324|-1e-310|0e400|0.000e-9999|inf|-INF|nan|-nan";
    for (const QString& text : numbers.split('|') + QStringList(QString(100000, '0') + '1'))
      checkReal(text, true);
    const QString refused =
        " |.|-|+|e5|1e|1e+|+-5|-+5|--5|-.|0x10|0x1p3|1 2|1,5|1.5f|1.2.3|1e400|-1e400|1e-400|"
        "-1e-400|infinity|inf1|nan(1)|--inf|+-nan|i|1_000|1'000|1e99999999999999999999";
    for (const QString& text : refused.split('|') + kOddTexts) checkReal(text, false);
    // What is written with enough digits comes back bit by bit, over all magnitudes.
    for (int exponent = -1074; exponent < 1024; ++exponent) {
      const double value = -std::ldexp(exponent < -1022 ? 1.0 : 1.7, exponent);
      checkReal(QByteArray::number(value, 'g', 17), true);
    }
    double largest = 0.0;
    QVERIFY(CStr::strToF64("1.79769313486232e+308", largest) && largest == DBL_MAX);  // 15 digits
  }

  void revisions() {
    const QString numbers =
        "1.0=10000|08.15=8000f|7=70000| \t1.5\r\n=10005|65535.65535=ffffffff|0.0=0|"
        "00001.00002=10002";
    for (const QString& row : numbers.split('|')) {
      unsigned int revision = 0xDEADBEEF;
      QVERIFY2(CStr::stringToRevision(row.section('=', 0, 0), revision), qPrintable(row));
      QCOMPARE(QString::number(revision, 16), row.section('=', 1));
    }
    QCOMPARE(CStr::revisionToString(0xFFFFFFFE), QString("65535.65534"));
    QCOMPARE(CStr::revisionToString(0x8000F), QString("8.15"));
    const QString refused =
        " |.|1.|.1|1.2.3|65536|1.65536|65536.1|-1|+1|1.-1|1.+1|0x1.0|1.0x1|1,0|1 .0|1. 0|a|1.a|"
        "1.0a|V1.0|4294967297.1";
    for (const QString& text : refused.split('|') + kOddTexts) {
      unsigned int revision = 42;
      QVERIFY2(!CStr::stringToRevision(text, revision) && revision == 42, qPrintable(text));
    }
  }

  void logFileNames() {
    QCOMPARE(CStr::createLogFileName(""), QString());
    QCOMPARE(CStr::createLogFileName(u8"../a\\b:c *?\"<>|\n-2_x.y\u00C4" + QString(QChar(0))),
             QString(u8".._a_b_c________-2_x.y\u00C4_.log"));
  }
};

// The reader's templates deduce the parameter type from these constants.
static_assert(std::is_same_v<decltype(NTypes::U16_MAX), const unsigned short>);
static_assert(std::is_same_v<decltype(NTypes::I8_MIN), const signed char>);
static_assert(NTypes::I8_MIN == -128 && NTypes::U64_MAX == 18446744073709551615ULL);

QTEST_APPLESS_MAIN(tst_CStr)
#include "tst_CStr.moc"
