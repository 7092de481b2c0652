#include "CParamDefItem.h"

#include <QRandomGenerator>
#include <QtTest>

#include <limits>

using namespace NParamDef;

class tst_CParamDefItem : public QObject {
  Q_OBJECT
 private slots:
  void namesTypes() {
    const QStringList texts{"undef", "u8",  "u16", "u32", "u64", "i8",  "i16",
                            "i32",   "i64", "f64", "str", "U8",  " u8", ""};
    const int baseTypes[] = {0, 1, 3, 5, 8, 2, 4, 6, 9, 10, 0, 0, 0, 0};
    for (int i = -1; i < texts.size(); ++i) {
      const int known = i < 0 || i > 10 ? 0 : i;
      const auto type = static_cast<EParamType>(i);
      QCOMPARE(CParamDefItem::typeToString(type), texts.at(known));
      QCOMPARE(int(CParamDefItem::typeFromString(texts.value(i))), known);
      QCOMPARE(CParamDefItem::baseType(type), baseTypes[known]);
    }
    using CItem = CParamDefItem;
    const QList<int> ofArguments{
        CItem::type(quint8()),  CItem::type(quint16()), CItem::type(quint32()),
        CItem::type(quint64()), CItem::type(qint8()),   CItem::type(qint16()),
        CItem::type(qint32()),  CItem::type(qint64()),  CItem::type(0.0)};
    QCOMPARE(ofArguments, QList<int>({1, 2, 3, 4, 5, 6, 7, 8, 9}));
    QVERIFY(!CParamDefItem().valid() && CParamDefItem("p", PARAM_TYPE_U8, 0).valid());
  }

  void signalsEffectiveEditsOnly() {
    using Edit = void (*)(CParamDefItem&);
    static const QList<unsigned int> ids{1, 2};
    static const SCheckValues states{1, 0, false, 0};
    static const QList<SBitValue> bits{{63, "a", true}, {-1, "b", false}, {64, "b", false}, {}};
    const Edit edits[] = {[](CParamDefItem& i) { i.setId(7); },
                          [](CParamDefItem& i) { i.setName("n"); },
                          [](CParamDefItem& i) { i.setType("f64"); },
                          [](CParamDefItem& i) { i.setMinIds(ids); },
                          [](CParamDefItem& i) { i.setCheckVals(states); },
                          [](CParamDefItem& i) { i.addMinId(5); },
                          [](CParamDefItem& i) { i.addEnum(1, "a"); },
                          [](CParamDefItem& i) {
                            i.addRadios({{2, "a"}});
                          },
                          [](CParamDefItem& i) { i.addBits(bits); },
                          [](CParamDefItem& i) { i.setVisible("1#5#4"); }};
    bool changed = false;
    CParamDefItem item;
    item.setChangedFlag(&changed);
    for (const Edit& edit : edits) {
      const QByteArray number = QByteArray::number(int(&edit - edits));
      for (const bool isChange : {true, false}) {
        changed = false;
        edit(item);
        QVERIFY2(changed == isChange, number.constData());
      }
      changed = true;
      edit(item);
      QVERIFY2(changed, number.constData());  // an edit never clears the mark
    }
    QCOMPARE(item.bitset(), bits.mid(0, 1));
    item.addBit(63, "a", false);
    item.addBit(63, "c", true);
    QCOMPARE(item.bitset().size(), 3);
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
        SNamedI64Value first(i, QString());
        SNamedI64Value named(std::numeric_limits<qint64>::min(), "unknown");
        for (const SNamedI64Value& each : qAsConst(plain)) {
          if (first.name.isEmpty() && each.value == i) first = each;
          if (named.name != each.name && each.name == nameOf(i)) named = each;
        }
        bool isRadio = false;
        bool isEnum = false;
        QVERIFY(item.radioNameOfValue(i) == first.name && item.enumNameOfValue(i) == first.name);
        QCOMPARE(item.radioValueOfName(nameOf(i), isRadio), named.value);
        QCOMPARE(item.enumValueOfName(nameOf(i), isEnum), named.value);
        QVERIFY(isEnum == (named.name != "unknown") && isRadio == isEnum);
      }
    }
  }

  /// Text, whether it is taken, and the id and the values there are then.
  void readsVisibility() {
    for (const char* row :
         {"7#0#2 yes 7 0 2", "12##3# yes 12 3", "0x10#3 yes 16 3", "5#-3#-3 yes 5 -3",
          "5 no 4294967295", "5# no 4294967295", " no 4294967295", "x#1 no 4294967295",
          "-1#1 no 4294967295", "5#1#x#2 no 5 1", "5#0x3 no 5"}) {
      const QString text = QString(row).section(' ', 0, 0);
      CParamDefItem item;
      QStringList found{text, item.setVisible(text) ? "yes" : "no"};
      found += QString::number(item.visibleId());
      for (const qint64 value : item.visibleVals()) found += QString::number(value);
      QCOMPARE(found.join(' '), QString(row));
    }
    // Values without an id count for nothing, and stay when the id comes.
    CParamDefItem late;
    late.addVisibleValue(4);
    QVERIFY(!late.hasVisibleValues() && late.setVisible("1#5#4") && late.hasVisibleValues());
    QCOMPARE(late.visibleVals(), (QList<qint64>{4, 5}));
  }

  void checkValuesCountUndefinedOnlyWhenUsed() {
    using CStates = SCheckValues;
    QVERIFY((CStates{1, 0, false, 0}.isValid()) && (CStates{1, 0, true, -1}.isValid()));
    QVERIFY(!CStates().isValid() && !(CStates{1, 0, true, 1}.isValid()));
    QVERIFY(!(CStates{1, 0, true, 0}.isValid()));
    QVERIFY((CStates{1, 0, false, 5} == CStates{1, 0, false, 6}));
    QVERIFY((CStates{1, 0, true, 5} != CStates{1, 0, true, 6}));
    QVERIFY((CStates{1, 0, true, 5} != CStates{1, 0, false, 5}));
  }

  void makesChoicesOfMaps() {
    CNamedI64ValueList choices(QMap<qint64, QString>{{9, "nine"}});
    choices = QMap<qint64, QString>{{3, "three"}, {-1, "minus one"}};
    QCOMPARE(choices, (QList<SNamedI64Value>{{-1, "minus one"}, {3, "three"}}));
    QCOMPARE(std::lower_bound(choices.cbegin(), choices.cend(), qint64(3)), choices.cbegin() + 1);
  }
};

QTEST_APPLESS_MAIN(tst_CParamDefItem)
#include "tst_CParamDefItem.moc"
