#include "CParamValueRules.h"

#include "CParamValueText.h"
#include "CParameterFileHelper.h"
#include "GoldenFiles.h"

#include <QRandomGenerator>

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
      if (key == "bits" || key == "inverted")
        item.addBit(int(choice.value), choice.name, key == "inverted");
    }
    item.setEnumEditable(item.isEnumEditable() || key == "edit");
    if (key != "check") return;
    const auto state = [&value](int i) { return value.section(',', i, i).toLongLong(); };
    item.setCheckVals({state(0), state(1), value.count(',') > 1, state(2)});
  }
};

QString unquoted(const QString& cell) {
  return cell.startsWith('"') ? cell.mid(1, cell.size() - 2) : cell;
}

}  // namespace

class tst_Definitions : public QObject {
  Q_OBJECT

 private slots:
  void namesTypes() {
    const QStringList texts = QString("undef u8 u16 u32 u64 i8 i16 i32 i64 f64 str U8").split(' ');
    const int baseTypes[] = {0, 1, 3, 5, 8, 2, 4, 6, 9, 10, 0};
    for (int i = -1; i <= texts.size(); ++i) {
      const int known = i < 0 || i > 10 ? 0 : i;
      const auto type = static_cast<EParamType>(i);
      QCOMPARE(CParamDefItem::typeToString(type), texts.at(known));
      QCOMPARE(int(CParamDefItem::typeFromString(texts.value(i))), known);
      QCOMPARE(CParamDefItem::baseType(type), baseTypes[known]);
    }
    QVERIFY(!CParamDefItem().valid() && CParamDefItem("p", PARAM_TYPE_U8, 0).valid());
  }

  void signalsEffectiveEditsOnly() {
    using Edit = void (*)(CParamDefItem&);
    static const QList<SBitValue> bits{{63, "a", true}, {-1, "b", false}, {64, "b", false}, {}};
    static const QList<quint32> ids{1, 2};
    static const SCheckValues states{1, 0, false, 0};
    const Edit edits[] = {[](CParamDefItem& i) { i.setId(7); },
                          [](CParamDefItem& i) { i.setName("n"); },
                          [](CParamDefItem& i) { i.setType("f64"); },
                          [](CParamDefItem& i) { i.setUnitId(3); },
                          [](CParamDefItem& i) { i.setHint("h"); },
                          [](CParamDefItem& i) { i.setMinIds(ids); },
                          [](CParamDefItem& i) { i.setMaxIds(ids); },
                          [](CParamDefItem& i) { i.setCheckVals(states); },
                          [](CParamDefItem& i) { i.addMinId(5); },
                          [](CParamDefItem& i) { i.addEnum(1, "a"); },
                          [](CParamDefItem& i) { i.addRadio(2, "a"); },
                          [](CParamDefItem& i) { i.addBits(bits); },
                          [](CParamDefItem& i) { i.setVisible("1#5#4"); }};
    bool changed = false;
    CParamDefItem item;
    item.setChangedFlag(&changed);
    for (const Edit& edit : edits) {
      for (const bool isChange : {true, false}) {
        changed = false;
        edit(item);
        QVERIFY2(changed == isChange, QByteArray::number(int(&edit - edits)).constData());
      }
    }
    QCOMPARE(item.bitset(), bits.mid(0, 1));
    item.addBit(63, "a", false);
    QCOMPARE(item.bitset().size(), 2);
    // A copy has no flag, and what is assigned to keeps none.
    bool assignedOver = false;
    CParamDefItem copy(item);
    copy.setChangedFlag(&assignedOver);
    changed = false;
    copy = item;
    copy.setName("copy");
    QVERIFY(!changed && !assignedOver && item.name() == "n" && !CParamDefItem().hasEnums());
  }

  /// The first value of a name and the first name of a value count, in few choices and in many.
  void findsChoices() {
    for (const int count : {6, 16, 17, 300}) {
      CParamDefItem item;
      QList<SNamedI64Value> expected{{-1, ""}, {-1, "late"}};
      for (int i = 0; i < count; ++i) expected.append({i, QString::number(i / 2)});
      for (int i = 0; i < count; ++i) expected.append({i, QString::number(i + 1)});
      for (int i = 0; i < 2; ++i)
        for (const SNamedI64Value& choice : qAsConst(expected)) item.addEnum(choice);
      bool isKnown = true;
      QVERIFY(item.enumNameOfValue(-1) == "late" && item.enumNameOfValue(count).isEmpty());
      item.enumValueOfName("unknown", isKnown);
      QVERIFY(!isKnown && item.enums() == expected);
      for (int i = 0; i < count; ++i) {
        QCOMPARE(item.enumNameOfValue(i), QString::number(i / 2));
        QCOMPARE(item.enumValueOfName(QString::number(i / 2), isKnown), qint64(i / 2 * 2));
        QVERIFY(isKnown);
      }
      item.setType("f64");
      QCOMPARE(CParamValueText::choiceName(item, CParamVal("2.0")), QString("1"));
    }
  }

  /// Text, whether it is taken, the id and the values there are then.
  void readsVisibility() {
    for (const QString row :
         {"7#0#2 1 7 0 2", "12##3# 1 12 3", "0x10#3 1 16 3", "5#-3#-3 1 5 -3", "5# 0 4294967295",
          "x#1 0 4294967295", "5#1#x#2 0 5 1", "5#0x3 0 5"}) {
      CParamDefItem item;
      QStringList found{row.section(' ', 0, 0)};
      found += QString::number(item.setVisible(found.first()));
      found += QString::number(item.visibleId());
      for (const qint64 value : item.visibleVals()) found += QString::number(value);
      QCOMPARE(found.join(' '), row);
    }
    CParamDefItem late;
    late.addVisibleValue(4);  // counts for nothing until the id comes
    QVERIFY(!late.hasVisibleValues() && late.setVisible("1#5#4") && late.hasVisibleValues());
  }

  /// The value of a state that does not exist makes no difference.
  void comparesStatesAndTexts() {
    QVERIFY((SCheckValues{1, 0, false, 5} == SCheckValues{1, 0, false, 6}));
    QVERIFY((SCheckValues{1, 0, true, 5} != SCheckValues{1, 0, true, 6}));
    QCOMPARE(CParamVal(1.0 / 3.0), CParamVal("0.333333333333333"));
    QVERIFY(CParamVal(static_cast<const char*>(nullptr)).isNull() && !CParamVal("").isNull());
    // To this type by way of eight bits.
    QCOMPARE(static_cast<long long>(CParamVal("127")), 127LL);
    QCOMPARE(static_cast<long long>(CParamVal("128")), 0LL);
  }

  void judges_data() {
    NGoldenFiles::addTable("model/judged.txt", {"name", "definition", "typed", "stored", "said"});
  }
  void judges() {
    const auto [definition, typed, stored, said] =
        textCells("definition", "typed", "stored", "said");
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

  /// Whatever names hold, what is shown is read as the value again.
  void readsShownBits() {
    const QStringList names{"", "a", " a", "b", "a|b", "b | a", "|", "bit 7", "checked"};
    QRandomGenerator random(1);
    for (int i = 0; i < 5000; ++i) {
      CParamDefItem item("p", EParamType(random.bounded(1, 10)), 1);
      for (int bits = random.bounded(6); bits >= 0; --bits)
        item.addBit(random.bounded(9), names.at(random.bounded(9)), random.bounded(3) == 0);
      if (random.bounded(4) == 0) item.addEnum(random.bounded(9), names.at(random.bounded(9)));
      const CParamValueRules rules(item, [](quint32) { return CParamDefItem(); });
      const qint64 number = qint64(random.generate64()) >> random.bounded(64);
      CParamVal value;
      CParamVal again;
      QString problem;
      if (!rules.read(QString::number(number), value, problem)) continue;
      const QString shown = CParamValueText::shown(item, value);
      QVERIFY2(rules.read(shown, again, problem), qPrintable(shown + problem));
      QVERIFY2(CParamValueRules::areEqual(value, again, item), qPrintable(shown));
    }
  }

  void comparesValues_data() {
    NGoldenFiles::addTable("model/equal.txt", {"type", "a", "b", "equal", "said"});
  }
  void comparesValues() {
    const auto [a, b, equal, said, type] = textCells("a", "b", "equal", "said", "type");
    const CParamDefItem definition = SDefinition(type).item;
    const auto text = [](bool isTrue) { return isTrue ? "yes" : "no"; };
    QCOMPARE(text(CParamValueRules::areEqual(a, b, definition)), equal);
    QCOMPARE(text(CParameterFileHelper::compareValues(a, b, definition)), said);
    QCOMPARE(text(CParamValueRules::mayStay(a, b, definition)), qMin(equal, said));
  }
};

QTEST_APPLESS_MAIN(tst_Definitions)
#include "tst_Definitions.moc"
