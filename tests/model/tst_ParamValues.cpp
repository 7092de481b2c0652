#include "CParamValueRules.h"

#include "CParamValueText.h"
#include "CParameterFileHelper.h"
#include "GoldenFiles.h"

#include <limits>

using namespace NParamDef;

namespace {

/// A definition from a text as in judged.txt, with its limit parameter.
struct SDefinition {
  CParamDefItem item;
  CParamDefItem limit;

  explicit SDefinition(const QString& text) {
    item.setType(text.section(' ', 0, 0));
    for (const QString& word : text.split(' ').mid(1))
      add(word.section('=', 0, 0), word.section('=', 1));
  }

  CParamValueRules rules() const {
    return {item, [this](quint32) { return limit; }};
  }
  QStringList said(const CParamVal& value) const {
    QStringList texts;
    for (const auto& each : rules().violations(value, [this](auto) { return limit.defVal(); }))
      texts += each.isWarning() ? "warning: " + each.text : each.text;
    return texts;
  }

 private:
  void add(const QString& key, const QString& value) {
    if (key == "min") item.setMinVal(value);
    if (key == "max") item.setMaxVal(value);
    if (key == "minOf" || key == "of") item.addMinId(1);
    if (key == "maxOf" || key == "of") item.addMaxId(1);
    if (key.endsWith("f")) {
      limit = CParamDefItem("P", CParamDefItem::typeFromString(value.section(':', 0, 0)), 1);
      limit.setDefVal(value.section(':', 1));
    }
    for (const QString& part : value.split(',')) {
      const SNamedI64Value choice(part.section(':', 0, 0).toLongLong(), part.section(':', 1));
      if (key == "enum" || key == "edit") item.addEnum(choice);
      if (key == "radio") item.addRadio(choice);
      if (key == "bits") item.addBit(part.toInt(), "bit", false);
    }
    item.setEnumEditable(item.isEnumEditable() || key == "edit");
    if (key != "check") return;
    const auto state = [&value](int i) { return value.section(',', i, i).toLongLong(); };
    item.setCheckVals({state(0), state(1), value.count(',') > 1, state(2)});
  }
};

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

QString unquoted(const QString& cell) {
  return cell.startsWith('"') ? cell.mid(1, cell.size() - 2) : cell;
}

}  // namespace

class tst_ParamValues : public QObject {
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
    QCOMPARE(given.said(value).join(" / "), said);
    // What an editor is given, it may give back.
    QVERIFY(given.rules().read(CParamValueText::editable(given.item, value), value, problem));
    QVERIFY(CParamValueRules::areEqual(value, unquoted(stored), given.item));
  }

  void comparesValues_data() {
    NGoldenFiles::addTable("model/equal.txt", {"type", "a", "b", "equal", "said"});
  }
  void comparesValues() {
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(QString, equal);
    QFETCH(QString, said);
    QFETCH(QString, type);
    const CParamDefItem definition = SDefinition(type).item;
    const auto text = [](bool isTrue) { return isTrue ? "yes" : "no"; };
    QCOMPARE(text(CParamValueRules::areEqual(a, b, definition)), equal);
    QCOMPARE(text(CParameterFileHelper::compareValues(a, b, definition)), said);
    QCOMPARE(text(CParamValueRules::mayStay(a, b, definition)), qMin(equal, said));
  }
};

QTEST_APPLESS_MAIN(tst_ParamValues)
#include "tst_ParamValues.moc"
