#include "CStr.h"
#include "NTypes.h"
#include "TestRows.h"

#include <cfloat>
#include <clocale>
#include <cmath>
#include <functional>
#include <limits>
#include <type_traits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kRefused = 42.0;
constexpr unsigned int kNoRevision = 0xDEADBEEF;

/// Whether a text is taken where its number, if it is one, fits, and the output else left alone.
template <typename T>
bool isRight(bool (*convert)(const QString&, T&, int), const QString& text, int base,
             const QString& number) {
  using CLimits = std::numeric_limits<T>;
  bool isNumber = false;
  bool fits = false;
  T expected = 42;
  if constexpr (std::is_signed_v<T>) {
    const qlonglong wide = number.toLongLong(&isNumber);
    fits = isNumber && wide >= CLimits::min() && wide <= CLimits::max();
    if (fits) expected = static_cast<T>(wide);
  } else {
    const qulonglong wide = number.toULongLong(&isNumber);
    fits = isNumber && !text.contains('-') && wide <= CLimits::max();
    if (fits) expected = static_cast<T>(wide);
  }
  T value = 42;
  return convert(text, value, base) == fits && value == expected;
}

/// What no conversion takes: no-break spaces, other digits and more that a source cannot show.
void addOddRows(const std::function<void(const char*, const QString&)>& add) {
  add("null", QString());
  add("embedded NUL", "5" + QString(QChar(0)));
  add("Arabic digit", QChar(0x0665));
  add("Arabic decimal separator", "5" + QString(QChar(0x066B)) + "5");
  add("no-break space", QChar(0xA0) + QString("5"));
  add("form feed", "\f5");
}

}  // namespace

class tst_CStr : public QObject {
  Q_OBJECT

 private slots:
  void integers_data() {
    addColumns<QString, int, QString>("text", "base", "number");
    const QByteArray limits =
        "0 127 128 255 256 32767 32768 65535 65536 2147483647 2147483648 4294967295 4294967296 "
        "9223372036854775807 9223372036854775808 18446744073709551615 18446744073709551616 "
        "340282366920938463463374607431768211455 -0 -1 -128 -129 -32768 -32769 -2147483648 "
        "-2147483649 -9223372036854775808 -9223372036854775809";
    for (const QByteArray& text : limits.split(' '))
      addTextRow(text.constData(), 0, text.constData());
    const QByteArray others =
        "010=10|0x1f=31|0X1F=31|+0x10=16|+5=5| \t\r\n7 \t\r\n=7|-0x10=-16|0xffffffff=4294967295|"
        "-0x80000000=-2147483648|0000000000000000000000000000000000000000000000001=1|"
        "0x0000000000000000000000000000000000000000000000001=1";
    for (const QByteArray& row : others.split('|')) {
      const QByteArrayList cells = row.split('=');
      addTextRow(cells.first().constData(), 0, cells.last().constData());
    }
    addTextRow("ff", 16, "255");
    addTextRow("0xff", 16, "255");
    addTextRow("z", 36, "35");
    addTextRow("101", 2, "5");
    const QByteArray refused =
        "| |+|-|0x|0X|-0x|+-5|-+5|--5|++5|0x-5|0x+5|0x0x5|x5|5 5|+ 5|- 5|0 x5|5.0|5e0|1,000|1'000|"
        "5u|0b1|0xg|ff|abc|inf";
    for (const QByteArray& text : refused.split('|')) addTextRow(text.constData(), 0, "");
    addOddRows([](const char* name, const QString& text) { addRow(name, text, 0, ""); });
    addTextRow("0x10", 10, "");
    addTextRow("8", 8, "");
    for (const int base : {-10, 1, 37}) addTextRow("1", base, "");
  }
  void integers() {
    QFETCH(QString, text);
    QFETCH(int, base);
    QFETCH(QString, number);
    QVERIFY(isRight(&CStr::strToU8, text, base, number));
    QVERIFY(isRight(&CStr::strToU16, text, base, number));
    QVERIFY(isRight(&CStr::strToU32, text, base, number));
    QVERIFY(isRight(&CStr::strToU64, text, base, number));
    QVERIFY(isRight(&CStr::strToI8, text, base, number));
    QVERIFY(isRight(&CStr::strToI16, text, base, number));
    QVERIFY(isRight(&CStr::strToI32, text, base, number));
    QVERIFY(isRight(&CStr::strToI64, text, base, number));
  }

  void floats_data() {
    addColumns<QString, double>("text", "expected");
    addTextRow("0", 0.0);
    addTextRow("-0", -0.0);
    addTextRow("010", 10.0);
    addTextRow("0.1", 0.1);
    addTextRow("+2.5", 2.5);
    addTextRow(" \t\r\n-2.5 \t\r\n", -2.5);
    addTextRow(".5", 0.5);
    addTextRow("5.", 5.0);
    addTextRow("1E-5", 1e-5);
    addTextRow("9007199254740993", 9007199254740992.0);
    addTextRow("1.7976931348623157e308", DBL_MAX);
    addTextRow("1.79769313486232e+308", DBL_MAX);  // the largest double with 15 digits
    addTextRow("2.2250738585072014e-308", DBL_MIN);
    addTextRow("4.9e-324", std::numeric_limits<double>::denorm_min());
    addTextRow("-1e-310", -1e-310);
    addTextRow("0e400", 0.0);
    addTextRow("0.000e-9999", 0.0);
    addTextRow("inf", kInfinity);
    addTextRow("-INF", -kInfinity);
    addTextRow("nan", std::numeric_limits<double>::quiet_NaN());
    addTextRow("-nan", -std::numeric_limits<double>::quiet_NaN());
    addRow("long", QString(100000, '0') + "1", 1.0);
    const QByteArray refused =
        "| |.|-|+|e5|1e|1e+|+-5|-+5|--5|-.|0x10|0x1p3|1 2|1,5|1.5f|1.2.3|1e400|-1e400|1e-400|"
        "-1e-400|infinity|inf1|nan(1)|--inf|+-nan|i|1_000|1'000|1e99999999999999999999";
    for (const QByteArray& text : refused.split('|')) addTextRow(text.constData(), kRefused);
    addOddRows([](const char* name, const QString& text) { addRow(name, text, kRefused); });
    // What is written with enough digits comes back bit by bit, over all magnitudes.
    for (int exponent = -1074; exponent < 1024; ++exponent) {
      const double value = -std::ldexp(exponent < -1022 ? 1.0 : 1.7, exponent);
      addTextRow(QByteArray::number(value, 'g', 17).constData(), value);
    }
  }
  void floats() {
    QFETCH(QString, text);
    QFETCH(double, expected);
    double value = kRefused;
    QCOMPARE(CStr::strToF64(text, value), expected != kRefused);
    QCOMPARE(std::isnan(value), std::isnan(expected));
    if (!std::isnan(expected)) QVERIFY(value == expected);  // QCOMPARE is fuzzy
    QCOMPARE(std::signbit(value), std::signbit(expected));
  }

  void localeDoesNotMatter() {
    const QLocale qtBefore;
    const QByteArray before = std::setlocale(LC_ALL, nullptr);
    QLocale::setDefault(QLocale(QLocale::German));
    std::setlocale(LC_ALL, "de_DE.UTF-8");  // stays as it is on a machine without that locale
    double value = 0.0;
    const bool isRead = CStr::strToF64("1.5", value) && !CStr::strToF64("1,5", value);
    QLocale::setDefault(qtBefore);
    std::setlocale(LC_ALL, before.constData());
    QVERIFY(isRead);
    QVERIFY(value == 1.5);
  }

  void revisions_data() {
    addColumns<QString, unsigned int>("text", "expected");
    addTextRow("1.0", 0x10000U);
    addTextRow("08.15", 0x8000FU);
    addTextRow("7", 0x70000U);
    addTextRow(" \t1.5\r\n", 0x10005U);
    addTextRow("65535.65535", 0xFFFFFFFFU);
    addTextRow("0.0", 0U);
    addTextRow("00001.00002", 0x10002U);
    const QByteArray refused =
        "| |.|1.|.1|1.2.3|65536|1.65536|65536.1|-1|+1|1.-1|1.+1|0x1.0|1.0x1|1,0|1 .0|1. 0|a|1.a|"
        "1.0a|V1.0|4294967297.1";
    for (const QByteArray& text : refused.split('|')) addTextRow(text.constData(), kNoRevision);
    addOddRows([](const char* name, const QString& text) { addRow(name, text, kNoRevision); });
  }
  void revisions() {
    QFETCH(QString, text);
    QFETCH(unsigned int, expected);
    unsigned int revision = kNoRevision;
    QCOMPARE(CStr::stringToRevision(text, revision), expected != kNoRevision);
    QCOMPARE(revision, expected);
    if (expected == kNoRevision) return;
    unsigned int again = kNoRevision;
    QVERIFY(CStr::stringToRevision(CStr::revisionToString(revision), again));
    QCOMPARE(again, revision);
    QCOMPARE(CStr::revisionToString(0x8000F), QString("8.15"));
  }

  void logFileNames() {
    QCOMPARE(CStr::createLogFileName(""), QString());
    QCOMPARE(CStr::createLogFileName("../a\\b:c *?\"<>|\n"), QString(".._a_b_c________.log"));
    QCOMPARE(CStr::createLogFileName("Achse-2_x.y\u00C4"), QString("Achse-2_x.y\u00C4.log"));
    QCOMPARE(CStr::createLogFileName(QString("a") + QChar(0) + "b"), QString("a_b.log"));
  }
};

// The reader's templates deduce the parameter type from these constants.
static_assert(std::is_same_v<decltype(NTypes::U16_MAX), const unsigned short>);
static_assert(std::is_same_v<decltype(NTypes::I8_MIN), const signed char>);
static_assert(NTypes::I8_MIN == -128 && NTypes::U64_MAX == 18446744073709551615ULL);

QTEST_APPLESS_MAIN(tst_CStr)
#include "tst_CStr.moc"
