#include "CParamValueRules.h"

#include "CParamValueText.h"
#include "CParameterFileHelper.h"
#include "GoldenFiles.h"
#include "TestRows.h"

using namespace NParamDef;

namespace {

/// A definition from a text as in judged.txt, with its limit parameters.
struct SDefinition {
  CParamDefItem item;
  QVector<CParamDefItem> limits;  // by id; the value is the default

  explicit SDefinition(const QString& text) {
    const QStringList words = text.split(' ');
    item.setType(words.first());
    for (const QString& word : words.mid(1)) read(word.section('=', 0, 0), word.section('=', 1));
  }

  CParamValueRules rules() const {
    return {item, [this](quint32 id) { return limits.value(int(id)); }};
  }

 private:
  void read(const QString& key, const QString& value) {
    const QStringList parts = value.split(',');
    if (key == "min") item.setMinVal(value);
    if (key == "max") item.setMaxVal(value);
    if (key == "minOf") item.addMinId(addLimit(value));
    if (key == "maxOf") item.addMaxId(addLimit(value));
    item.setEnumEditable(item.isEnumEditable() || key == "edit");
    for (const QString& part : parts) {
      const SNamedI64Value choice(part.section(':', 0, 0).toLongLong(), part.section(':', 1));
      if (key == "enum" || key == "edit") item.addEnum(choice);
      if (key == "radio") item.addRadio(choice);
      if (key == "bits") item.addBit(part.toInt(), "bit", false);
    }
    if (key != "check") return;
    const bool hasThird = parts.size() > 2;
    item.setCheckVals({parts.at(0).toLongLong(), parts.at(1).toLongLong(), hasThird,
                       parts.value(2).toLongLong()});
  }

  quint32 addLimit(const QString& value) {
    const auto type = CParamDefItem::typeFromString(value.section(':', 0, 0));
    limits.append(CParamDefItem("P", type, quint32(limits.size())));
    limits.last().setDefVal(value.section(':', 1));
    return limits.last().id();
  }
};

QString unquoted(const QString& cell) {
  return cell.startsWith('"') ? cell.mid(1, cell.size() - 2) : cell;
}

QStringList said(const SDefinition& definition, const CParamVal& value) {
  QStringList texts;
  const auto limit = [&](const QString&) { return definition.limits.first().defVal(); };
  for (const auto& each : definition.rules().violations(value, limit)) {
    texts += each.isWarning() ? "warning: " + each.text : each.text;
  }
  return texts;
}

}  // namespace

class tst_CParamValueRules : public QObject {
  Q_OBJECT

 private slots:
  void judges_data() {
    NGoldenFiles::addTable("model/judged.txt", {"name", "definition", "typed", "stored", "said"});
  }
  void judges() {
    QFETCH(QString, definition);
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    QFETCH(QString, said);
    const SDefinition given(definition);
    CParamVal value("untouched");
    QString problem;
    if (!given.rules().read(unquoted(typed), value, problem)) {
      QCOMPARE(problem, said);
      QCOMPARE(stored + value.asStr(), "-untouched");
      return;
    }
    QCOMPARE(value.asStr(), unquoted(stored));
    QCOMPARE(::said(given, value).join(" / "), said);
    // What an editor is given, it may give back.
    const QString shown = CParamValueText::editable(given.item, value);
    QVERIFY(given.rules().read(shown, value, problem));
    QVERIFY(CParamValueRules::areEqual(value, unquoted(stored), given.item));
  }

  void comparesExactly_data() {
    // The order: -1 below, 0 equal, 1 above.
    addColumns<QString, QString, QString, QString, int>("typeA", "a", "typeB", "b", "order");
    const char* maxU64 = "0xffffffffffffffff";
    const char* maxI64 = "9223372036854775807";
    const char* minI64 = "-9223372036854775808";
    addRow("neighbours that a double rounds together", "u64", "0xfffffffffffffffe", "u64", maxU64,
           -1);
    addRow("signed neighbours", "i64", "-9007199254740993", "i64", "-9007199254740992", -1);
    addRow("unsigned above signed", "u64", "9223372036854775808", "i64", maxI64, 1);
    addRow("negative below unsigned", "i64", "-1", "u64", "0", -1);
    addRow("same bits", "i64", "-1", "u64", maxU64, -1);
    addRow("smallest", "i64", minI64, "i64", "-9223372036854775807", -1);
    addRow("smallest equals its double", "i64", minI64, "f64", minI64, 0);
    addRow("largest below its rounded double", "i64", maxI64, "f64", maxI64, -1);
    addRow("largest unsigned below 2^64", "u64", maxU64, "f64", "18446744073709551616", -1);
    addRow("integer beyond 2^53", "u64", "9007199254740993", "f64", "9007199254740992", 1);
    addRow("fraction above", "f64", "2.5", "i64", "2", 1);
    addRow("fraction below", "f64", "2.5", "i64", "3", -1);
    addRow("negative fraction above", "f64", "-2.5", "i64", "-3", 1);
    addRow("negative fraction below", "f64", "-2.5", "i64", "-2", -1);
    addRow("fractions", "f64", "0.1", "f64", "0.2", -1);
    addRow("integral double", "f64", "7.0", "u64", "7", 0);
    addRow("negative zero", "f64", "-0.0", "u64", "0", 0);
    addRow("infinity", "f64", "inf", "u64", maxU64, 1);
    addRow("minus infinity", "f64", "-inf", "i64", minI64, -1);
  }
  void comparesExactly() {
    QFETCH(QString, typeA);
    QFETCH(QString, a);
    QFETCH(QString, typeB);
    QFETCH(QString, b);
    QFETCH(int, order);
    const auto isRefused = [](const QString& type, const QString& value, const QString& limit) {
      return !said(SDefinition(type + ' ' + limit), value).isEmpty();
    };
    QCOMPARE(isRefused(typeA, a, "minOf=" + typeB + ':' + b), order == -1);
    QCOMPARE(isRefused(typeA, a, "maxOf=" + typeB + ':' + b), order == 1);
    QCOMPARE(isRefused(typeB, b, "minOf=" + typeA + ':' + a), order == 1);
    QCOMPARE(isRefused(typeB, b, "maxOf=" + typeA + ':' + a), order == -1);
  }

  void comparesValues_data() {
    // Whether they are equal, and whether CParameterFileHelper::compareValues() says so.
    addColumns<QString, QString, QString, bool, bool>("type", "a", "b", "equal", "said");
    for (const char* type : {"u8", "u16", "u32", "u64"}) addTextRow(type, "0xA", "10", true, true);
    for (const char* type : {"i8", "i64", "f64"}) addTextRow(type, "5", "05", true, false);
    for (const char* type : {"str", "undef"}) addTextRow(type, "5", "05", false, false);
    addRow("reals", "f64", "1.50", "15e-1", true, false);
    addRow("zeros", "f64", "-0", "0", true, false);
    addRow("not a number", "f64", "nan", "NaN", false, false);
    addRow("the same not a number", "f64", "nan", "nan", true, true);
    addRow("large", "u8", "0xffffffffffffffff", "1", false, false);
    addRow("both too large", "u8", "0x100", "256", false, true);
    addRow("not converted", "u32", "x", "0", false, true);
    addRow("both not converted", "u32", "x", "y", false, true);
    addRow("the same text", "u32", "x", "x", true, true);
    addRow("null and empty", "i8", QString(), "", true, true);
    addRow("same", "i32", "5", "5", true, true);
  }
  void comparesValues() {
    QFETCH(QString, type);
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(bool, equal);
    QFETCH(bool, said);
    const CParamDefItem definition = SDefinition(type).item;
    QCOMPARE(CParamValueRules::areEqual(a, b, definition), equal);
    QCOMPARE(CParameterFileHelper::compareValues(a, b, definition), said);
    QCOMPARE(CParamValueRules::mayStay(a, b, definition), equal && said);
  }
};

QTEST_APPLESS_MAIN(tst_CParamValueRules)
#include "tst_CParamValueRules.moc"
