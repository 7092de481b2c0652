#include "CStr.h"
#include "NTypes.h"
#include "TestRows.h"

#include <cfloat>
#include <clocale>
#include <cmath>
#include <limits>
#include <type_traits>

namespace {

const char* const kRefused = "refused";
constexpr unsigned int kNoRevision = 0xDEADBEEF;

// Conversions of every width under one signature, so that a row can name the width.
template <typename T>
QString convert(bool (*routine)(const QString&, T&, int), const QString& text, int base) {
  constexpr T kUntouched = 42;
  T value = kUntouched;
  if (routine(text, value, base)) return QString::number(value);
  return value == kUntouched ? kRefused : "output touched";
}

QString convert(const QString& type, const QString& text, int base) {
  if (type == "u8") return convert(&CStr::strToU8, text, base);
  if (type == "u16") return convert(&CStr::strToU16, text, base);
  if (type == "u32") return convert(&CStr::strToU32, text, base);
  if (type == "u64") return convert(&CStr::strToU64, text, base);
  if (type == "i8") return convert(&CStr::strToI8, text, base);
  if (type == "i16") return convert(&CStr::strToI16, text, base);
  if (type == "i32") return convert(&CStr::strToI32, text, base);
  if (type == "i64") return convert(&CStr::strToI64, text, base);
  return "unknown type";
}

QString chars(std::initializer_list<ushort> codes) {
  QString text;
  for (const ushort code : codes) text += QChar(code);
  return text;
}

}  // namespace

class tst_CStr : public QObject {
  Q_OBJECT

 private slots:
  void limits_data() {
    addColumns<QString, QString, QString>("type", "text", "expected");
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
      for (const char* text : {row.min, row.max})
        QTest::addRow("%s takes %s", row.type, text) << row.type << text << text;
      for (const char* text :
           {row.belowMin, row.aboveMax, "340282366920938463463374607431768211455"}) {
        QTest::addRow("%s refuses %s", row.type, text) << row.type << text << kRefused;
      }
    }
  }
  void limits() {
    QFETCH(QString, type);
    QFETCH(QString, text);
    QTEST(convert(type, text, 0), "expected");
  }

  void integerTexts_data() {
    addColumns<QString, int, QString, QString>("text", "base", "asU32", "asI32");
    const auto taken = [](const char* text, int base, const char* number) {
      addTextRow(text, base, number, number);
    };
    taken("010", 0, "10");
    taken("0x1f", 0, "31");
    taken("0X1F", 0, "31");
    taken("+0x10", 0, "16");
    taken("+5", 0, "5");
    taken(" \t\r\n7 \t\r\n", 0, "7");
    taken("0000000000000000000000000000000000000000000000001", 0, "1");
    taken("0x0000000000000000000000000000000000000000000000001", 0, "1");
    taken("ff", 16, "255");
    taken("0xff", 16, "255");
    taken("z", 36, "35");
    taken("101", 2, "5");
    addTextRow("-0x10", 0, kRefused, "-16");
    addTextRow("-0", 0, kRefused, "0");
    addTextRow("0xffffffff", 0, "4294967295", kRefused);
    addTextRow("-0x80000000", 0, kRefused, "-2147483648");

    const auto refused = [](const char* name, const QString& text, int base = 0) {
      QTest::addRow("refused: %s", name) << text << base << kRefused << kRefused;
    };
    for (const char* text :
         {"",    " ",     "+",     "-",     "0x",  "0X",  "-0x", "+-5", "-+5",  "--5",
          "++5", "0x-5",  "0x+5",  "0x0x5", "x5",  "5 5", "+ 5", "- 5", "0 x5", "5.0",
          "5e0", "1,000", "1'000", "5u",    "0b1", "0xg", "ff",  "abc", "inf"}) {
      refused(text, text);
    }
    refused("null", QString());
    refused("Arabic digit", chars({0x0665}));
    refused("no-break space", chars({0xA0, '5'}));
    refused("form feed", "\f5");
    refused("0x10 in base 10", "0x10", 10);
    refused("8 in base 8", "8", 8);
    for (const int base : {-10, 1, 37})
      refused(qPrintable(QStringLiteral("base %1").arg(base)), "1", base);
  }
  void integerTexts() {
    QFETCH(QString, text);
    QFETCH(int, base);
    QTEST(convert("u32", text, base), "asU32");
    QTEST(convert("i32", text, base), "asI32");
  }

  void floats_data() {
    addColumns<QString, double>("text", "expected");
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
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
    addTextRow("nan", kNan);
    addTextRow("-nan", -kNan);
    addRow("long", QString(100000, '0') + "1", 1.0);
  }
  void floats() {
    QFETCH(QString, text);
    QFETCH(double, expected);
    double value = 42.0;
    QVERIFY(CStr::strToF64(text, value));
    QCOMPARE(std::isnan(value), std::isnan(expected));
    if (!std::isnan(expected)) QVERIFY(value == expected);  // QCOMPARE is fuzzy
    QCOMPARE(std::signbit(value), std::signbit(expected));
  }

  void refusedFloats_data() {
    QTest::addColumn<QString>("text");
    const QByteArray texts =
        "| |.|-|+|e5|1e|1e+|+-5|-+5|--5|-.|0x10|0x1p3|1 "
        "2|1,5|1.5f|1.2.3|1e400|-1e400|1e-400|-1e-400|"
        "infinity|inf1|nan(1)|--inf|+-nan|i|1_000|1'000|1e99999999999999999999";
    for (const QByteArray& text : texts.split('|')) addTextRow(text.constData());
    addRow("null", QString());
    addRow("embedded NUL", chars({'5', 0}));
    addRow("Arabic digit", chars({0x0665}));
    addRow("Arabic decimal separator", chars({'5', 0x066B, '5'}));
    addRow("no-break space", chars({'5', 0xA0}));
  }
  void refusedFloats() {
    QFETCH(QString, text);
    double value = 42.0;
    QVERIFY(!CStr::strToF64(text, value));
    QVERIFY(value == 42.0);
  }

  // What is written with enough digits comes back bit by bit, over all magnitudes.
  void everyWrittenFloatIsRead() {
    double value = std::numeric_limits<double>::denorm_min();
    while (value < DBL_MAX / 3) {
      double read = 0.0;
      QVERIFY(CStr::strToF64(QString::number(-value, 'g', 17), read));
      QVERIFY(read == -value);
      value *= 2.7;
    }
  }

  void localeDoesNotMatter() {
    const QLocale qtBefore;
    const QByteArray before = std::setlocale(LC_ALL, nullptr);
    QLocale::setDefault(QLocale(QLocale::German));
    std::setlocale(LC_ALL, "de_DE.UTF-8");  // stays as it is on a machine without that locale
    double value = 0.0;
    const bool point = CStr::strToF64("1.5", value);
    const bool comma = CStr::strToF64("1,5", value);
    QLocale::setDefault(qtBefore);
    std::setlocale(LC_ALL, before.constData());
    QVERIFY(point);
    QVERIFY(value == 1.5);
    QVERIFY(!comma);
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
    for (const char* text :
         {"",        " ",    ".",  "1.",   ".1",   "1.2.3", "65536",       "1.65536",
          "65536.1", "-1",   "+1", "1.-1", "1.+1", "0x1.0", "1.0x1",       "1,0",
          "1 .0",    "1. 0", "a",  "1.a",  "1.0a", "V1.0",  "4294967297.1"}) {
      addTextRow(text, kNoRevision);
    }
    addRow("embedded NUL", chars({'1', '.', '5', 0}), kNoRevision);
    addRow("Arabic digit", chars({0x0661}), kNoRevision);
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

  void logFileNames_data() {
    addColumns<QString, QString>("name", "expected");
    addRow("plain", "ICSettingsFile", "ICSettingsFile.log");
    addRow("empty", "", "");
    addRow("path", "../a\\b:c", ".._a_b_c.log");
    addRow("blanks and signs", "a b*?\"<>|\n", "a_b_______.log");
    addRow("kept", "Achse-2_x.y", "Achse-2_x.y.log");
    addRow("umlaut", "\u00C4", "\u00C4.log");
    addRow("NUL", chars({'a', 0, 'b'}), "a_b.log");
  }
  void logFileNames() {
    QFETCH(QString, name);
    QTEST(CStr::createLogFileName(name), "expected");
  }
};

// The reader's templates deduce the parameter type from these constants.
static_assert(std::is_same_v<decltype(NTypes::U16_MAX), const unsigned short>);
static_assert(std::is_same_v<decltype(NTypes::I8_MIN), const signed char>);
static_assert(NTypes::I8_MIN == -128 && NTypes::U64_MAX == 18446744073709551615ULL);

QTEST_APPLESS_MAIN(tst_CStr)
#include "tst_CStr.moc"
