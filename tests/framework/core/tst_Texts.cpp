#include "CFileElement.h"
#include "CStr.h"
#include "NDisplayText.h"
#include "NShortText.h"
#include "NTypes.h"

#include <QTest>

#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <type_traits>

namespace {

/// What no conversion takes: no-break spaces, other digits and more that a source cannot show.
const QStringList kOddTexts{QString(),   "",   QString("5") + QChar(0), u8"\u0665", u8"5\u066B5",
                            u8"\u00A05", "\f5"};

void checkReal(const QString& text, bool isNumber) {
  const double expected = isNumber ? std::strtod(qPrintable(text), nullptr) : 42.0;
  double value = 42.0;
  QVERIFY2(CStr::strToF64(text, value) == isNumber, qPrintable(text));
  QVERIFY2(std::isnan(expected) ? std::isnan(value) : value == expected, qPrintable(text));
  QCOMPARE(std::signbit(value), std::signbit(expected));
}

}  // namespace

class tst_Texts : public QObject {
  Q_OBJECT

 private slots:
  /// Texts with their number, where it is written otherwise, and base; "x=" is not taken. The
  /// other types are judged with the definitions.
  void integers() {
    const QString rows =
        "0|9223372036854775807|9223372036854775808=|18446744073709551616=|"
        "340282366920938463463374607431768211455=|-0=0|-1|-9223372036854775808|-"
        "9223372036854775809=|"
        "010=10|0x1f=31|0X1F=31|+0x10=16|+5=5|-0x10=-16|-0x80000000=-2147483648| \t\r\n7 \t\r\n=7|"
        "0000000000000000000000000000000000000000000000001=1|"
        "0x0000000000000000000000000000000000000000000000001=1|ff=255=16|0xff=255=16|z=35=36|"
        "101=5=2|0x10==10|8==8|1==-10|1==1|1==37| =|+=|-=|0x=|0X=|-0x=|+-5=|-+5=|--5=|++5=|0x-5=|"
        "0x+5=|0x0x5=|x5=|5 5=|+ 5=|- 5=|0 x5=|5.0=|5e0=|1,000=|1'000=|5u=|0b1=|0xg=|ff=|inf=";
    for (const QString& row : rows.split('|') + kOddTexts) {
      const QStringList cells = row.split('=');
      const QString number = kOddTexts.contains(row) ? "" : cells.value(1, cells.first());
      long long value = 42;
      const bool isNumber = CStr::strToI64(cells.first(), value, cells.value(2).toInt());
      QVERIFY2((isNumber ? QString::number(value) : "") == number, qPrintable(row));
      QVERIFY(isNumber || value == 42);
    }
  }

  void reals() {
    const QString rows =
        "0|-0|010|0.1|+2.5| \t\r\n-2.5 \t\r\n|.5|5.|1E-5|9007199254740993|1.7976931348623157e308|"
        "2.2250738585072014e-308|4.9e-324|-1e-310|0e400|0.000e-9999|inf|-INF|nan|-nan| =|.=|-=|+=|"
        "e5=|1e=|1e+=|+-5=|-+5=|--5=|-.=|0x10=|0x1p3=|1 2=|1,5=|1.5f=|1.2.3=|1e400=|-1e400=|"
        "1e-400=|-1e-400=|infinity=|inf1=|nan(1)=|--inf=|+-nan=|i=|1_000=|1'000=|"
        "1e99999999999999999999=";
    for (const QString& row : rows.split('|'))
      checkReal(row.section('=', 0, 0), !row.contains('='));
    for (const QString& text : kOddTexts) checkReal(text, false);
    checkReal(QString(100000, '0') + '1', true);
    // What is written with enough digits comes back bit by bit, over all magnitudes.
    for (int exponent = -1074; exponent < 1024; ++exponent) {
      const double value = -std::ldexp(exponent < -1022 ? 1.0 : 1.7, exponent);
      checkReal(QByteArray::number(value, 'g', 17), true);
    }
    double largest = 0.0;
    QVERIFY(CStr::strToF64("1.79769313486232e+308", largest) && largest == DBL_MAX);  // 15 digits
  }

  void revisions() {
    const QString rows =
        "1.0=10000|08.15=8000f|7=70000| \t1.5\r\n=10005|65535.65535=ffffffff|0.0=0|"
        "00001.00002=10002| =|.=|1.=|.1=|1.2.3=|65536=|1.65536=|65536.1=|-1=|+1=|1.-1=|1.+1=|"
        "0x1.0=|1.0x1=|1,0=|1 .0=|1. 0=|a=|1.a=|1.0a=|V1.0=|4294967297.1=";
    for (const QString& row : rows.split('|') + kOddTexts) {
      unsigned int revision = 0xDEADBEEF;
      const QString expected = row.section('=', 1);
      QVERIFY2(CStr::stringToRevision(row.section('=', 0, 0), revision) != expected.isEmpty(),
               qPrintable(row));
      QCOMPARE(QString::number(revision, 16), expected.isEmpty() ? "deadbeef" : expected);
    }
    QCOMPARE(CStr::revisionToString(0xFFFFFFFE), QString("65535.65534"));
  }

  void showsTexts() {
    const QList<QStringList> rows{{"", "\"\"", "0"},
                                  {"a \"b\" \\", "a \"b\" \\", "7"},
                                  {"\"a\"", "\"\\\"a\\\"\"", "3"},
                                  {"a ", "\"a \"", "2"},
                                  {u8"\u00a0a", u8"\"\u00a0a\"", "2"},
                                  {u8"\x1b[2J\u009b", "\"\\u001b[2J\\u009b\"", "5"},
                                  {QString("a%1b").arg(QChar(0x202E)), "\"a\\u202eb\"", "2"},
                                  {u8"\u00AD\U000E0001", "\"\\u00ad\\udb40\\udc01\"", "0"},
                                  {u8"\uE000\uFFFE\uFE0F", u8"\"\uE000\\ufffe\\ufe0f\"", "2"},
                                  {u8"a\r\n\t\u2028b", "\"a\\r\\n\\t\\u2028b\"", "6"},
                                  {u8"a\u0301\u20dd", u8"a\u0301\u20dd", "1"},
                                  {"軸한ｱＡ", "軸한ｱＡ", "7"},
                                  {"😀𝛼𠀀", "😀𝛼𠀀", "5"}};
    for (const QStringList& row : rows) {
      QCOMPARE(NDisplayText::shown(row.at(0)), row.at(1));
      QCOMPARE(QString::number(NDisplayText::width(row.at(0))), row.at(2));
    }
  }

  void shortensDifferentTextsDifferently() {
    const QString half(500, 'a');
    QStringList texts{half + half, half + 'b' + half, half + 'c' + half, half + half + half};
    // Nothing passes for the short form of something else, and no pair of surrogates is cut.
    texts += NShortText::of(texts.at(1));
    texts += QString(99, 'a') + QString("😀").repeated(500) + QString(99, 'a');
    QSet<QString> results;
    for (const QString& text : qAsConst(texts)) {
      const QString result = NShortText::of(text);
      QCOMPARE(result == text, text.size() <= NShortText::kLongest && !text.contains("…#"));
      QVERIFY(result == text || (result.size() >= 233 && result.size() <= 235));
      QCOMPARE(QString::fromUtf8(result.toUtf8()), result);
      results.insert(result);
    }
    QCOMPARE(results.size(), texts.size());
  }

  void namesFiles() {
    QCOMPARE(CStr::createLogFileName(""), QString());
    QCOMPARE(CStr::createLogFileName(u8"../a\\b:c *?\"<>|\n-2_x.y\u00C4" + QString(QChar(0))),
             QString(u8".._a_b_c________-2_x.y\u00C4_.log"));
    for (const char* text : {"/p|a|/p/a", "/p/|a|/p/a", "/p|/a|/p/a", "|a|a", "/p||"}) {
      const QStringList parts = QString(text).split('|');
      QCOMPARE(CFileElement(parts.at(0), parts.at(1)).projectFilePath(), parts.at(2));
    }
    QString path;
    for (int i = 0; i < 10; ++i) path = NShortText::below(path, QString(300, 'a'));
    QCOMPARE(path.size(), 235);
    QCOMPARE(NShortText::below(NShortText::below({}, ""), "a"), QString("/a"));
  }
};

// The reader's templates deduce the parameter type from these constants.
static_assert(std::is_same_v<decltype(NTypes::U16_MAX), const unsigned short>);
static_assert(std::is_same_v<decltype(NTypes::I8_MIN), const signed char>);

QTEST_APPLESS_MAIN(tst_Texts)
#include "tst_Texts.moc"
