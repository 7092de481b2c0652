#include "CParamDefItem.h"
#include "TestRows.h"

#include <QRandomGenerator>

#include <functional>
#include <limits>

using namespace NParamDef;
using Edit = std::function<void(CParamDefItem&)>;

Q_DECLARE_METATYPE(Edit)
Q_DECLARE_METATYPE(QList<qint64>)

class tst_CParamDefItem : public QObject {
  Q_OBJECT
 private slots:
  void namesTypes() {
    const char* const texts[] = {"undef", "u8",  "u16", "u32", "u64", "i8",
                                 "i16",   "i32", "i64", "f64", "str"};
    const int baseTypes[] = {0, 1, 3, 5, 8, 2, 4, 6, 9, 10, 0};
    for (int i = 0; i < 11; ++i) {
      const auto type = static_cast<EParamType>(i);
      QCOMPARE(CParamDefItem::typeToString(type), QString(texts[i]));
      QCOMPARE(CParamDefItem::typeFromString(texts[i]), type);
      QCOMPARE(CParamDefItem::baseType(type), baseTypes[i]);
    }
  }

  void unknownTypesAreUndefined() {
    for (const char* text : {"U8", " u8", "float", ""})
      QCOMPARE(CParamDefItem::typeFromString(text), PARAM_TYPE_UNDEF);
    for (const int outside : {-1, 11, 1000}) {
      const auto type = static_cast<EParamType>(outside);
      QCOMPARE(CParamDefItem::typeToString(type), QString("undef"));
      QCOMPARE(CParamDefItem::baseType(type), 0);
    }
    QVERIFY(!CParamDefItem().valid() && CParamDefItem("p", PARAM_TYPE_U8, 0).valid());
  }

  void typesOfArguments() {
    const EParamType types[] = {CParamDefItem::type(quint8()),  CParamDefItem::type(quint16()),
                                CParamDefItem::type(quint32()), CParamDefItem::type(quint64()),
                                CParamDefItem::type(qint8()),   CParamDefItem::type(qint16()),
                                CParamDefItem::type(qint32()),  CParamDefItem::type(qint64()),
                                CParamDefItem::type(0.0)};
    for (int i = 0; i < 9; ++i) QCOMPARE(int(types[i]), i + 1);
  }

  void signalsEffectiveEditsOnly_data() {
    QTest::addColumn<Edit>("edit");
    const auto row = [](const char* name, const Edit& edit) { QTest::newRow(name) << edit; };
    row("id", [](CParamDefItem& i) { i.setId(7); });
    row("name", [](CParamDefItem& i) { i.setName("n"); });
    row("type", [](CParamDefItem& i) { i.setType(PARAM_TYPE_STR); });
    row("type text", [](CParamDefItem& i) { i.setType("f64"); });
    row("unit", [](CParamDefItem& i) { i.setUnitId(3); });
    row("hint", [](CParamDefItem& i) { i.setHint("h"); });
    row("default", [](CParamDefItem& i) { i.setDefVal(1); });
    row("minimum", [](CParamDefItem& i) { i.setMinVal(1); });
    row("maximum", [](CParamDefItem& i) { i.setMaxVal(1); });
    row("minimum ids", [](CParamDefItem& i) { i.setMinIds({1, 2}); });
    row("maximum ids", [](CParamDefItem& i) { i.setMaxIds({1, 2}); });
    row("editable", [](CParamDefItem& i) { i.setEnumEditable(true); });
    row("check values", [](CParamDefItem& i) { i.setCheckVals({1, 0, false, 0}); });
    row("visible id", [](CParamDefItem& i) { i.setVisibleId(5); });
    row("add minimum id", [](CParamDefItem& i) { i.addMinId(5); });
    row("add maximum id", [](CParamDefItem& i) { i.addMaxId(5); });
    row("add enum", [](CParamDefItem& i) { i.addEnum(1, "a"); });
    row("add enums", [](CParamDefItem& i) { i.addEnums({{1, "a"}, {}}); });
    row("add radio", [](CParamDefItem& i) { i.addRadio(1, "a"); });
    row("add radios", [](CParamDefItem& i) { i.addRadios({{1, "a"}, {}}); });
    row("add bit", [](CParamDefItem& i) { i.addBit(0, "a", true); });
    row("add bits", [](CParamDefItem& i) { i.addBits({{63, "a", true}}); });
    row("add visible values", [](CParamDefItem& i) { i.addVisibleValues({-1, 3}); });
  }
  void signalsEffectiveEditsOnly() {
    QFETCH(Edit, edit);
    bool changed = false;
    CParamDefItem item;
    item.setChangedFlag(&changed);
    edit(item);
    QVERIFY(changed);
    changed = false;
    edit(item);
    QVERIFY(!changed);
    changed = true;
    edit(item);
    QVERIFY(changed);  // an edit never clears the mark
  }

  void copyHasNoFlag() {
    bool changed = false;
    bool assignedOver = false;
    CParamDefItem original("a", PARAM_TYPE_U8, 1);
    original.setChangedFlag(&changed);
    CParamDefItem copy(original);
    copy.setName("b");
    copy.setChangedFlag(&assignedOver);
    copy = original;
    copy.addEnum(1, "x");
    QVERIFY(!changed && !assignedOver && original.name() == "a" && !original.hasEnums());
    original.setUnitId(8);
    QVERIFY(changed);
  }

  // Random choices out of few values and names, among them empty ones, against a plain list.
  void choicesMatchPlainSearch() {
    for (const int count : {1, 15, 16, 17, 18, 300}) choicesMatchPlainSearch(count);
  }

  void ignoresInvalidBits() {
    CParamDefItem item;
    for (const int pos : {-1, 64, 63, 63}) item.addBit(pos, "b", false);
    item.addBit(SBitValue());
    item.addBit(63, "c", false);
    item.addBit(63, "c", true);
    const QList<SBitValue> expected = {{63, "b", false}, {63, "c", false}, {63, "c", true}};
    QCOMPARE(item.bitset(), expected);
  }

  void readsVisibility_data() {
    using CValues = QList<qint64>;
    addColumns<QString, bool, quint32, CValues>("text", "ok", "id", "values");
    addTextRow("7#0#2", true, 7U, CValues{0, 2});
    addTextRow("12##3#", true, 12U, CValues{3});
    addTextRow("0x10#3", true, 16U, CValues{3});
    addTextRow("5#-3#-3", true, 5U, CValues{-3});
    for (const char* text : {"5", "5#", "", "x#1", "-1#1"})
      addTextRow(text, false, NO_ID, CValues());
    addTextRow("5#1#x#2", false, 5U, CValues{1});
    addTextRow("5#0x3", false, 5U, CValues());
  }
  void readsVisibility() {
    QFETCH(QString, text);
    CParamDefItem item;
    QTEST(item.setVisible(text), "ok");
    QTEST(item.visibleId(), "id");
    QTEST(item.visibleVals(), "values");
  }

  void visibilityNeedsItsId() {
    CParamDefItem item;
    item.addVisibleValue(4);
    QVERIFY(!item.hasVisibleValues() && item.setVisible("1#5#4") && item.hasVisibleValues());
    QCOMPARE(item.visibleVals(), (QList<qint64>{4, 5}));
  }

  void checkValuesCountUndefinedOnlyWhenUsed() {
    const auto isValid = [](const SCheckValues& values) { return values.isValid(); };
    QVERIFY(isValid({1, 0, false, 0}) && isValid({1, 0, true, -1}));
    QVERIFY(!isValid({}) && !isValid({1, 0, true, 1}) && !isValid({1, 0, true, 0}));
    QVERIFY((SCheckValues{1, 0, false, 5} == SCheckValues{1, 0, false, 6}));
    QVERIFY((SCheckValues{1, 0, true, 5} != SCheckValues{1, 0, true, 6}));
    QVERIFY((SCheckValues{1, 0, true, 5} != SCheckValues{1, 0, false, 5}));
  }

  void makesChoicesOfMaps() {
    CNamedI64ValueList choices(QMap<qint64, QString>{{9, "nine"}});
    choices = QMap<qint64, QString>{{3, "three"}, {-1, "minus one"}};
    const QList<SNamedI64Value> expected = {{-1, "minus one"}, {3, "three"}};
    QCOMPARE(static_cast<const QList<SNamedI64Value>&>(choices), expected);
    const auto found = std::lower_bound(choices.cbegin(), choices.cend(), qint64(3));
    QCOMPARE(found->name, QString("three"));
  }

 private:
  static void choicesMatchPlainSearch(int count) {
    QRandomGenerator random(static_cast<quint32>(count));
    const auto nameOf = [](int i) { return i == 0 ? QString() : QString(QChar('A' + i)); };
    CParamDefItem item;
    QList<SNamedI64Value> plain;
    while (plain.size() < count) {
      const SNamedI64Value choice(random.bounded(40) - 5, nameOf(random.bounded(40)));
      item.addRadio(choice);
      item.addEnum(choice);
      if (!plain.contains(choice)) plain.append(choice);
    }
    QCOMPARE(item.radios(), plain);
    QCOMPARE(item.enums(), plain);
    for (int i = -6; i <= 40; ++i) {
      const auto byValue = std::find_if(plain.cbegin(), plain.cend(), [i](const SNamedI64Value& c) {
        return c.value == i && !c.name.isEmpty();
      });
      const QString found = item.radioNameOfValue(i);
      QCOMPARE(found, byValue == plain.cend() ? QString() : byValue->name);
      QCOMPARE(found.isNull(), byValue == plain.cend());
      QCOMPARE(item.enumNameOfValue(i), found);
      const QString name = nameOf(i);
      const auto byName = std::find_if(plain.cbegin(), plain.cend(),
                                       [&name](const SNamedI64Value& c) { return c.name == name; });
      bool ok = false;
      const qint64 value = item.radioValueOfName(name, ok);
      QCOMPARE(ok, byName != plain.cend());
      QCOMPARE(value, ok ? byName->value : std::numeric_limits<qint64>::min());
      QCOMPARE(item.enumValueOfName(name, ok), value);
      QCOMPARE(ok, byName != plain.cend());
    }
  }
};

QTEST_APPLESS_MAIN(tst_CParamDefItem)
#include "tst_CParamDefItem.moc"
