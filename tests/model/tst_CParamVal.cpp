#include "CParamVal.h"
#include "TestRows.h"

#include <QStringList>

#include <limits>

namespace {

template <typename T>
void noteWhenRead(const CParamVal& value, const char* type, QStringList& types) {
  T number = 0;
  if (value.value(number)) types += type;
}

// The types that accept the text, so that a row shows the limits of all of them.
QString acceptingTypes(const CParamVal& value) {
  QStringList types;
  noteWhenRead<unsigned char>(value, "u8", types);
  noteWhenRead<unsigned short>(value, "u16", types);
  noteWhenRead<unsigned int>(value, "u32", types);
  noteWhenRead<unsigned long long>(value, "u64", types);
  noteWhenRead<signed char>(value, "i8", types);
  noteWhenRead<short>(value, "i16", types);
  noteWhenRead<int>(value, "i32", types);
  noteWhenRead<long long>(value, "i64", types);
  noteWhenRead<double>(value, "f64", types);
  return types.join(' ');
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
    row("0xffffffffffffffff", std::numeric_limits<unsigned long long>::max());
    row("-128", static_cast<signed char>(-128));
    row("-9223372036854775808", std::numeric_limits<long long>::min());
    row("2.5", 2.5);
    row("1", 1.0);
    row("0.333333333333333", 1.0 / 3.0);
    row("1e+20", 1e20);
    row("inf", std::numeric_limits<double>::infinity());
  }
  void writesNumbers() {
    QFETCH(QString, written);
    QTEST(written, "expected");
  }

  void readsExactlyItsType_data() {
    addColumns<QString, QString>("text", "types");
    addTextRow("127", "u8 u16 u32 u64 i8 i16 i32 i64 f64");
    addTextRow("255", "u8 u16 u32 u64 i16 i32 i64 f64");
    addTextRow("18446744073709551615", "u64 f64");
    addTextRow("18446744073709551616", "f64");
    addTextRow("-128", "i8 i16 i32 i64 f64");
    addTextRow("0xff", "u8 u16 u32 u64 i16 i32 i64");
    addTextRow("0xffffffffffffffff", "u64");
    addTextRow("0.5", "f64");
    addTextRow("1e400", "");
    addTextRow("abc", "");
    addTextRow("", "");
  }
  void readsExactlyItsType() {
    QFETCH(QString, text);
    QTEST(acceptingTypes(CParamVal(text)), "types");
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
