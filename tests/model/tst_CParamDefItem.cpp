#include "CParamDefItem.h"
#include "TestRows.h"

#include <QRandomGenerator>

#include <functional>
#include <limits>
#include <string>

using namespace NParamDef;
using Edit = std::function<void(CParamDefItem&)>;

Q_DECLARE_METATYPE(QList<qint64>)

class tst_CParamDefItem : public QObject {
  Q_OBJECT
 private slots:
  void namesTypes() {
    const char* const texts[] = {"undef", "u8",  "u16", "u32", "u64", "i8",
                                 "i16",   "i32", "i64", "f64", "str"};
    const int baseTypes[] = {0, 1, 3, 5, 8, 2, 4, 6, 9, 10, 0};
    for (const int i : {-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 1000}) {
      const int known = i < 0 || i > 10 ? 0 : i;
      const auto type = static_cast<EParamType>(i);
      QCOMPARE(CParamDefItem::typeToString(type), QString(texts[known]));
      QCOMPARE(int(CParamDefItem::typeFromString(texts[known])), known);
      QCOMPARE(CParamDefItem::baseType(type), baseTypes[known]);
    }
    for (const char* text : {"U8", " u8", "float", ""})
      QCOMPARE(CParamDefItem::typeFromString(text), PARAM_TYPE_UNDEF);
    const EParamType ofArguments[] = {
        CParamDefItem::type(quint8()),  CParamDefItem::type(quint16()),
        CParamDefItem::type(quint32()), CParamDefItem::type(quint64()),
        CParamDefItem::type(qint8()),   CParamDefItem::type(qint16()),
        CParamDefItem::type(qint32()),  CParamDefItem::type(qint64()),
        CParamDefItem::type(0.0)};
    for (int i = 0; i < 9; ++i) QCOMPARE(int(ofArguments[i]), i + 1);
    QVERIFY(!CParamDefItem().valid() && CParamDefItem("p", PARAM_TYPE_U8, 0).valid());
  }

  void signalsEffectiveEditsOnly() {
    const Edit edits[] = {[](CParamDefItem& i) { i.setId(7); },
                          [](CParamDefItem& i) { i.setName("n"); },
                          [](CParamDefItem& i) { i.setType(PARAM_TYPE_STR); },
                          [](CParamDefItem& i) { i.setType("f64"); },
                          [](CParamDefItem& i) { i.setUnitId(3); },
                          [](CParamDefItem& i) { i.setHint("h"); },
                          [](CParamDefItem& i) { i.setDefVal(1); },
                          [](CParamDefItem& i) { i.setMinVal(1); },
                          [](CParamDefItem& i) { i.setMaxVal(1); },
                          [](CParamDefItem& i) {
                            i.setMinIds({1, 2});
                          },
                          [](CParamDefItem& i) {
                            i.setMaxIds({1, 2});
                          },
                          [](CParamDefItem& i) { i.setEnumEditable(true); },
                          [](CParamDefItem& i) {
                            i.setCheckVals({1, 0, false, 0});
                          },
                          [](CParamDefItem& i) { i.setVisibleId(5); },
                          [](CParamDefItem& i) { i.addMinId(5); },
                          [](CParamDefItem& i) { i.addMaxId(5); },
                          [](CParamDefItem& i) { i.addEnum(1, "a"); },
                          [](CParamDefItem& i) {
                            i.addEnums({{2, "a"}, {}});
                          },
                          [](CParamDefItem& i) { i.addRadio(1, "a"); },
                          [](CParamDefItem& i) {
                            i.addRadios({{2, "a"}, {}});
                          },
                          [](CParamDefItem& i) { i.addBit(0, "a", true); },
                          [](CParamDefItem& i) {
                            i.addBits({{63, "a", true}});
                          },
                          [](CParamDefItem& i) {
                            i.addVisibleValues({-1, 3});
                          }};
    bool changed = false;
    CParamDefItem item;
    item.setChangedFlag(&changed);
    for (const Edit& edit : edits) {
      const std::string number = std::to_string(&edit - edits);
      for (const bool isChange : {true, false}) {
        changed = false;
        edit(item);
        QVERIFY2(changed == isChange, number.c_str());
      }
      changed = true;
      edit(item);
      QVERIFY2(changed, number.c_str());  // an edit never clears the mark
    }
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

  /// Random choices out of few values and names, among them empty ones, against a plain list.
  void choicesMatchPlainSearch() {
    for (const int count : {1, 15, 16, 17, 18, 300}) {
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
      QVERIFY(item.radios() == plain && item.enums() == plain);
      for (int i = -6; i <= 40; ++i) {
        QString name;
        qint64 value = std::numeric_limits<qint64>::min();
        bool isKnown = false;
        for (const SNamedI64Value& each : qAsConst(plain)) {
          if (name.isEmpty() && each.value == i) name = each.name;
          if (!isKnown && each.name == nameOf(i)) value = each.value;
          isKnown |= each.name == nameOf(i);
        }
        bool isRadio = false;
        bool isEnum = false;
        QCOMPARE(item.radioNameOfValue(i), name);
        QCOMPARE(item.enumNameOfValue(i), name);
        QCOMPARE(item.radioValueOfName(nameOf(i), isRadio), value);
        QCOMPARE(item.enumValueOfName(nameOf(i), isEnum), value);
        QVERIFY(isRadio == isKnown && isEnum == isKnown);
      }
    }
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
    // Values without an id count for nothing, and stay when the id comes.
    CParamDefItem late;
    late.addVisibleValue(4);
    QVERIFY(!late.hasVisibleValues() && late.setVisible("1#5#4") && late.hasVisibleValues());
    QCOMPARE(late.visibleVals(), (QList<qint64>{4, 5}));
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
};

QTEST_APPLESS_MAIN(tst_CParamDefItem)
#include "tst_CParamDefItem.moc"
