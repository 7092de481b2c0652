#include "CParamValueRules.h"

#include "CParamValueText.h"
#include "CParameterFileHelper.h"
#include "GoldenFiles.h"

using namespace NParamDef;

namespace {

/// A definition from a text as in judged.txt, with its limit parameter.
struct SDefinition {
  CParamDefItem item;
  CParamDefItem limit;

  explicit SDefinition(const QString& text) {
    item.setType(text.section(' ', 0, 0));
    for (const QString& word : text.split(' ').mid(1)) {
      const QString key = word.section('=', 0, 0);
      const QString value = word.section('=', 1);
      key == "check" ? addStates(value.split(',')) : add(key, value);
    }
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
    if (key == "edit") item.setEnumEditable(true);
  }

  void addStates(const QStringList& values) {
    const auto state = [&values](int i) { return values.value(i).toLongLong(); };
    item.setCheckVals({state(0), state(1), values.size() > 2, state(2)});
  }
};

QString unquoted(const QString& cell) {
  return cell.startsWith('"') ? cell.mid(1, cell.size() - 2) : cell;
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

QTEST_APPLESS_MAIN(tst_CParamValueRules)
#include "tst_CParamValueRules.moc"
