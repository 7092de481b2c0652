#include "CStr.h"
#include "NTypes.h"

#include <QtTest>

#include <cfloat>
#include <clocale>
#include <cmath>
#include <limits>
#include <type_traits>

namespace {

// Conversions of every width under one signature, so that a row can name the width.
struct SResult {
  bool ok;
  QString number;
};

template <typename T>
SResult convert(bool (*routine)(const QString&, T&, int), const QString& text, int base) {
  constexpr T kUntouched = 42;
  T value = kUntouched;
  const bool ok = routine(text, value, base);
  if (!ok && value != kUntouched) return {ok, QStringLiteral("output touched")};
  return {ok, QString::number(value)};
}

SResult convert(const QString& type, const QString& text, int base) {
  if (type == QLatin1String("u8")) return convert(&CStr::strToU8, text, base);
  if (type == QLatin1String("u16")) return convert(&CStr::strToU16, text, base);
  if (type == QLatin1String("u32")) return convert(&CStr::strToU32, text, base);
  if (type == QLatin1String("u64")) return convert(&CStr::strToU64, text, base);
  if (type == QLatin1String("i8")) return convert(&CStr::strToI8, text, base);
  if (type == QLatin1String("i16")) return convert(&CStr::strToI16, text, base);
  if (type == QLatin1String("i32")) return convert(&CStr::strToI32, text, base);
  if (type == QLatin1String("i64")) return convert(&CStr::strToI64, text, base);
  return {false, QStringLiteral("unknown type")};
}

const QString kFails = QStringLiteral("42");  // the untouched output

QString chars(std::initializer_list<ushort> codes) {
  QString text;
  for (const ushort code : codes) text += QChar(code);
  return text;
}

}  // namespace

class tst_CStr : public QObject {
  Q_OBJECT

 private slots:
  void limits_data();
  void limits();
  void integerTexts_data();
  void integerTexts();
  void floats_data();
  void floats();
  void refusedFloats_data();
  void refusedFloats();
  void everyWrittenFloatIsRead();
  void localeDoesNotMatter();
  void revisions_data();
  void revisions();
  void logFileNames_data();
  void logFileNames();
};

void tst_CStr::limits_data() {
  QTest::addColumn<QString>("type");
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("expected");
  struct SLimits {
    const char *type, *min, *max, *belowMin, *aboveMax;
  };
  const SLimits rows[] = {
      {"u8", "0", "255", "-1", "256"},
      {"u16", "0", "65535", "-1", "65536"},
      {"u32", "0", "4294967295", "-1", "4294967296"},
      {"u64", "0", "18446744073709551615", "-1", "18446744073709551616"},
      {"i8", "-128", "127", "-129", "128"},
      {"i16", "-32768", "32767", "-32769", "32768"},
      {"i32", "-2147483648", "2147483647", "-2147483649", "2147483648"},
      {"i64", "-9223372036854775808", "9223372036854775807", "-9223372036854775809",
       "9223372036854775808"},
  };
  for (const SLimits& row : rows) {
    const QString type = QString::fromLatin1(row.type);
    for (const char* text : {row.min, row.max}) {
      QTest::addRow("%s takes %s", row.type, text)
          << type << QString::fromLatin1(text) << QString::fromLatin1(text);
    }
    for (const char* text : {row.belowMin, row.aboveMax, "340282366920938463463374607431768211455"})
      QTest::addRow("%s refuses %s", row.type, text) << type << QString::fromLatin1(text) << kFails;
  }
}

void tst_CStr::limits() {
  QFETCH(QString, type);
  QFETCH(QString, text);
  QFETCH(QString, expected);
  const SResult result = convert(type, text, 0);
  QCOMPARE(result.number, expected);
  QCOMPARE(result.ok, expected != kFails);
}

void tst_CStr::integerTexts_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<int>("base");
  QTest::addColumn<QString>("asU32");
  QTest::addColumn<QString>("asI32");
  const auto row = [](const char* name, const QString& text, int base, const char* asU32,
                      const char* asI32) {
    const auto expected = [](const char* number) {
      return number == nullptr ? kFails : QString::fromLatin1(number);
    };
    QTest::newRow(name) << text << base << expected(asU32) << expected(asI32);
  };
  const auto same = [&row](const char* text, int base, const char* number) {
    row(text, QString::fromLatin1(text), base, number, number);
  };
  same("010", 0, "10");
  same("0x1f", 0, "31");
  same("0X1F", 0, "31");
  same("+0x10", 0, "16");
  same("+5", 0, "5");
  same(" \t\r\n7 \t\r\n", 0, "7");
  same("0000000000000000000000000000000000000000000000001", 0, "1");
  same("0x0000000000000000000000000000000000000000000000001", 0, "1");
  row("-0x10", QStringLiteral("-0x10"), 0, nullptr, "-16");
  row("-0", QStringLiteral("-0"), 0, nullptr, "0");
  row("0xffffffff", QStringLiteral("0xffffffff"), 0, "4294967295", nullptr);
  row("-0x80000000", QStringLiteral("-0x80000000"), 0, nullptr, "-2147483648");
  for (const char* text :
       {"",    " ",     "+",     "-",     "0x",  "0X",  "-0x", "+-5", "-+5",  "--5",
        "++5", "0x-5",  "0x+5",  "0x0x5", "x5",  "5 5", "+ 5", "- 5", "0 x5", "5.0",
        "5e0", "1,000", "1'000", "5u",    "0b1", "0xg", "ff",  "abc", "inf"}) {
    row(qPrintable(QStringLiteral("refused: %1").arg(QLatin1String(text))),
        QString::fromLatin1(text), 0, nullptr, nullptr);
  }
  row("null", QString(), 0, nullptr, nullptr);
  row("embedded NUL", chars({'5', 0}), 0, nullptr, nullptr);
  row("NUL in front", chars({0, '5'}), 0, nullptr, nullptr);
  row("Arabic digit", chars({0x0665}), 0, nullptr, nullptr);
  row("full-width digit", chars({0xFF15}), 0, nullptr, nullptr);
  row("superscript two", chars({'5', 0xB2}), 0, nullptr, nullptr);
  row("no-break space", chars({0xA0, '5'}), 0, nullptr, nullptr);
  row("form feed", chars({'\f', '5'}), 0, nullptr, nullptr);
  row("minus sign that is no hyphen", chars({0x2212, '5'}), 0, nullptr, nullptr);

  same("ff", 16, "255");
  same("0xff", 16, "255");
  same("z", 36, "35");
  same("101", 2, "5");
  row("base 10: 0x10", QStringLiteral("0x10"), 10, nullptr, nullptr);
  row("base 8: 8", QStringLiteral("8"), 8, nullptr, nullptr);
  for (const int base : {-10, 1, 37})
    row(qPrintable(QStringLiteral("base %1").arg(base)), QStringLiteral("1"), base, nullptr,
        nullptr);
}

void tst_CStr::integerTexts() {
  QFETCH(QString, text);
  QFETCH(int, base);
  QFETCH(QString, asU32);
  QFETCH(QString, asI32);
  const SResult u32 = convert(QStringLiteral("u32"), text, base);
  QCOMPARE(u32.number, asU32);
  QCOMPARE(u32.ok, asU32 != kFails);
  const SResult i32 = convert(QStringLiteral("i32"), text, base);
  QCOMPARE(i32.number, asI32);
  QCOMPARE(i32.ok, asI32 != kFails);
}

void tst_CStr::floats_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<double>("expected");
  const auto row = [](const char* text, double expected) {
    QTest::newRow(text) << QString::fromLatin1(text) << expected;
  };
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  row("0", 0.0);
  row("-0", -0.0);
  row("010", 10.0);
  row("0.1", 0.1);
  row("+2.5", 2.5);
  row(" \t\r\n-2.5 \t\r\n", -2.5);
  row(".5", 0.5);
  row("5.", 5.0);
  row("1e+20", 1e20);
  row("1E-5", 1e-5);
  row("9007199254740993", 9007199254740992.0);
  row("1.7976931348623157e308", DBL_MAX);
  row("1.79769313486232e+308", DBL_MAX);  // the largest double with 15 digits
  row("2.2250738585072014e-308", DBL_MIN);
  row("4.9e-324", std::numeric_limits<double>::denorm_min());
  row("-1e-310", -1e-310);
  row("0e400", 0.0);
  row("0.000e-9999", 0.0);
  row("inf", kInfinity);
  row("+inf", kInfinity);
  row("-INF", -kInfinity);
  row("nan", std::numeric_limits<double>::quiet_NaN());
  row("NaN", std::numeric_limits<double>::quiet_NaN());
  row("-nan", -std::numeric_limits<double>::quiet_NaN());
  QTest::newRow("long") << QString(100000, QLatin1Char('0')) + QStringLiteral("1") << 1.0;
}

void tst_CStr::floats() {
  QFETCH(QString, text);
  QFETCH(double, expected);
  double value = 42.0;
  QVERIFY(CStr::strToF64(text, value));
  QCOMPARE(std::isnan(value), std::isnan(expected));
  if (!std::isnan(expected)) QVERIFY(value == expected);  // QCOMPARE is fuzzy
  QCOMPARE(std::signbit(value), std::signbit(expected));
}

void tst_CStr::refusedFloats_data() {
  QTest::addColumn<QString>("text");
  const QByteArray texts =
      "| |.|-|+|e5|1e|1e+|+-5|-+5|--5|-.|0x10|0x1p3|1 2|1,5|1.5f|1.2.3|1e400|-1e400|1e-400|-1e-400|"
      "infinity|inf1|nan(1)|--inf|+-nan|i|1_000|1'000|1e99999999999999999999";
  for (const QByteArray& text : texts.split('|')) {
    QTest::newRow(text.constData()) << QString::fromLatin1(text);
  }
  QTest::newRow("null") << QString();
  QTest::newRow("embedded NUL") << chars({'5', 0});
  QTest::newRow("Arabic digit") << chars({0x0665});
  QTest::newRow("Arabic decimal separator") << chars({'5', 0x066B, '5'});
  QTest::newRow("no-break space") << chars({'5', 0xA0});
}

void tst_CStr::refusedFloats() {
  QFETCH(QString, text);
  double value = 42.0;
  QVERIFY(!CStr::strToF64(text, value));
  QVERIFY(value == 42.0);
}

// What is written with enough digits comes back bit by bit, over all magnitudes.
void tst_CStr::everyWrittenFloatIsRead() {
  double value = std::numeric_limits<double>::denorm_min();
  while (value < DBL_MAX / 3) {
    double read = 0.0;
    QVERIFY(CStr::strToF64(QString::number(-value, 'g', 17), read));
    QVERIFY(read == -value);
    value *= 2.7;
  }
}

void tst_CStr::localeDoesNotMatter() {
  const QLocale qtBefore;
  const QByteArray before = std::setlocale(LC_ALL, nullptr);
  QLocale::setDefault(QLocale(QLocale::German));
  std::setlocale(LC_ALL, "de_DE.UTF-8");  // stays as it is on a machine without that locale
  double value = 0.0;
  const bool point = CStr::strToF64(QStringLiteral("1.5"), value);
  const bool comma = CStr::strToF64(QStringLiteral("1,5"), value);
  QLocale::setDefault(qtBefore);
  std::setlocale(LC_ALL, before.constData());
  QVERIFY(point);
  QVERIFY(value == 1.5);
  QVERIFY(!comma);
}

void tst_CStr::revisions_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<unsigned int>("expected");
  constexpr unsigned int kNone = 0xDEADBEEF;
  const auto row = [](const char* text, unsigned int expected) {
    QTest::newRow(text) << QString::fromLatin1(text) << expected;
  };
  row("1.0", 0x10000);
  row("08.15", 0x8000F);
  row("7", 0x70000);
  row(" \t1.5\r\n", 0x10005);
  row("65535.65535", 0xFFFFFFFF);
  row("0.0", 0);
  row("00001.00002", 0x10002);
  for (const char* text :
       {"",        " ",    ".",  "1.",   ".1",   "1.2.3", "65536",       "1.65536",
        "65536.1", "-1",   "+1", "1.-1", "1.+1", "0x1.0", "1.0x1",       "1,0",
        "1 .0",    "1. 0", "a",  "1.a",  "1.0a", "V1.0",  "4294967297.1"})
    row(text, kNone);
  QTest::newRow("embedded NUL") << chars({'1', '.', '5', 0}) << kNone;
  QTest::newRow("Arabic digit") << chars({0x0661}) << kNone;
}

void tst_CStr::revisions() {
  QFETCH(QString, text);
  QFETCH(unsigned int, expected);
  constexpr unsigned int kNone = 0xDEADBEEF;
  unsigned int revision = kNone;
  QCOMPARE(CStr::stringToRevision(text, revision), expected != kNone);
  QCOMPARE(revision, expected);
  if (expected == kNone) return;

  unsigned int again = kNone;
  QVERIFY(CStr::stringToRevision(CStr::revisionToString(revision), again));
  QCOMPARE(again, revision);
  QCOMPARE(CStr::revisionToString(0x8000F), QStringLiteral("8.15"));
}

void tst_CStr::logFileNames_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<QString>("expected");
  QTest::newRow("plain") << QStringLiteral("ICSettingsFile")
                         << QStringLiteral("ICSettingsFile.log");
  QTest::newRow("empty") << QString() << QString();
  QTest::newRow("path") << QStringLiteral("../a\\b:c") << QStringLiteral(".._a_b_c.log");
  QTest::newRow("blanks and signs")
      << QStringLiteral("a b*?\"<>|\n") << QStringLiteral("a_b_______.log");
  QTest::newRow("kept") << QStringLiteral("Achse-2_x.y") << QStringLiteral("Achse-2_x.y.log");
  QTest::newRow("umlaut") << chars({0xC4}) << chars({0xC4, '.', 'l', 'o', 'g'});
  QTest::newRow("NUL") << chars({'a', 0, 'b'}) << QStringLiteral("a_b.log");
}

void tst_CStr::logFileNames() {
  QFETCH(QString, name);
  QFETCH(QString, expected);
  QCOMPARE(CStr::createLogFileName(name), expected);
}

// The reader's templates deduce the parameter type from these constants.
static_assert(std::is_same_v<decltype(NTypes::U16_MAX), const unsigned short>);
static_assert(std::is_same_v<decltype(NTypes::I8_MIN), const signed char>);
static_assert(NTypes::I8_MIN == -128 && NTypes::U64_MAX == 18446744073709551615ULL);

QTEST_APPLESS_MAIN(tst_CStr)
#include "tst_CStr.moc"
