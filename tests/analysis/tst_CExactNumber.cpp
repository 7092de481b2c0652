#include "CExactNumber.h"
#include "NTypes.h"
#include "TestRows.h"

#include <optional>

using namespace NParamDef;
using CChoice = std::optional<long long>;

Q_DECLARE_METATYPE(EParamType)
Q_DECLARE_METATYPE(CChoice)

class tst_CExactNumber : public QObject {
  Q_OBJECT

 private slots:
  void comparesExactly_data() {
    // The order: -1 below, 0 equal, 1 above, 2 neither.
    addColumns<EParamType, QString, EParamType, QString, int>("typeA", "a", "typeB", "b", "order");
    const auto u64 = PARAM_TYPE_U64;
    const auto i64 = PARAM_TYPE_I64;
    const auto f64 = PARAM_TYPE_F64;
    const char* maxU64 = "0xffffffffffffffff";
    const char* maxI64 = "9223372036854775807";
    const char* minI64 = "-9223372036854775808";
    addRow("neighbours that a double rounds together", u64, "0xfffffffffffffffe", u64, maxU64, -1);
    addRow("signed neighbours", i64, "-9007199254740993", i64, "-9007199254740992", -1);
    addRow("unsigned above signed", u64, "9223372036854775808", i64, maxI64, 1);
    addRow("negative below unsigned", i64, "-1", u64, "0", -1);
    addRow("same bits", i64, "-1", u64, maxU64, -1);
    addRow("smallest", i64, minI64, i64, "-9223372036854775807", -1);
    addRow("smallest equals its double", i64, minI64, f64, minI64, 0);
    addRow("largest below its rounded double", i64, maxI64, f64, maxI64, -1);
    addRow("largest unsigned below 2^64", u64, maxU64, f64, "18446744073709551616", -1);
    addRow("integer beyond 2^53", u64, "9007199254740993", f64, "9007199254740992", 1);
    addRow("fraction above", f64, "2.5", i64, "2", 1);
    addRow("fraction below", f64, "2.5", i64, "3", -1);
    addRow("negative fraction above", f64, "-2.5", i64, "-3", 1);
    addRow("negative fraction below", f64, "-2.5", i64, "-2", -1);
    addRow("fractions", f64, "0.1", f64, "0.2", -1);
    addRow("integral double", f64, "7.0", u64, "7", 0);
    addRow("negative zero", f64, "-0.0", u64, "0", 0);
    addRow("infinity", f64, "inf", u64, maxU64, 1);
    addRow("minus infinity", f64, "-inf", i64, minI64, -1);
    addRow("nan and integer", f64, "nan", i64, "0", 2);
    addRow("nan and nan", f64, "nan", f64, "nan", 2);
  }
  void comparesExactly() {
    QFETCH(EParamType, typeA);
    QFETCH(QString, a);
    QFETCH(EParamType, typeB);
    QFETCH(QString, b);
    QFETCH(int, order);
    const auto x = CExactNumber::of(CParamVal(a), typeA);
    const auto y = CExactNumber::of(CParamVal(b), typeB);
    QVERIFY(x && y);
    QCOMPARE(*x < *y, order == -1);
    QCOMPARE(*y < *x, order == 1);
    QCOMPARE(x->isNan() || y->isNan(), order == 2);
  }

  void isAChoiceWhenItIsExactlyThat_data() {
    addColumns<EParamType, QString, CChoice>("type", "text", "choice");
    addRow("smallest", PARAM_TYPE_I64, "-9223372036854775808", CChoice(NTypes::I64_MIN));
    addRow("too large", PARAM_TYPE_U64, "0x8000000000000000", CChoice());
    addRow("integral", PARAM_TYPE_F64, "-3", CChoice(-3));
    addRow("fraction", PARAM_TYPE_F64, "-3.5", CChoice());
    addRow("too small", PARAM_TYPE_F64, "-9223372036854777856", CChoice());
  }
  void isAChoiceWhenItIsExactlyThat() {
    QFETCH(EParamType, type);
    QFETCH(QString, text);
    const auto number = CExactNumber::of(CParamVal(text), type);
    QVERIFY(number);
    QTEST(CChoice(number->asI64()), "choice");
  }
};

QTEST_APPLESS_MAIN(tst_CExactNumber)
#include "tst_CExactNumber.moc"
