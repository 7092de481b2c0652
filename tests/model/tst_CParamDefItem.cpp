#include "CParamDefItem.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QtTest>

#include <functional>
#include <limits>

using namespace NParamDef;
using Edit = std::function<void(CParamDefItem&)>;

Q_DECLARE_METATYPE(Edit)
Q_DECLARE_METATYPE(QList<qint64>)

class tst_CParamDefItem : public QObject {
  Q_OBJECT
 private slots:
  void namesTypes_data();
  void namesTypes();
  void unknownTypesAreUndefined();
  void typesOfArguments();
  void startsInvalid();
  void signalsEffectiveEditsOnly_data();
  void signalsEffectiveEditsOnly();
  void copyHasNoFlag();
  void idsKeepWhatIsSet();
  void choicesMatchPlainSearch_data();
  void choicesMatchPlainSearch();
  void choicesAreFoundInOrder();
  void manyChoicesAreLinear();
  void ignoresInvalidBits();
  void readsVisibility_data();
  void readsVisibility();
  void visibilityNeedsItsId();
  void checkValuesCountUndefinedOnlyWhenUsed();
  void makesChoicesOfMaps();
};

void tst_CParamDefItem::namesTypes_data() {
  QTest::addColumn<int>("type");
  QTest::addColumn<QString>("text");
  QTest::addColumn<int>("baseType");
  const auto row = [](int type, const char* text, int base) {
    QTest::addRow("%s", text) << type << QString::fromLatin1(text) << base;
  };
  row(0, "undef", 0);
  row(1, "u8", 1);
  row(2, "u16", 3);
  row(3, "u32", 5);
  row(4, "u64", 8);
  row(5, "i8", 2);
  row(6, "i16", 4);
  row(7, "i32", 6);
  row(8, "i64", 9);
  row(9, "f64", 10);
  row(10, "str", 0);
}

void tst_CParamDefItem::namesTypes() {
  QFETCH(int, type);
  QFETCH(QString, text);
  QCOMPARE(CParamDefItem::typeToString(static_cast<EParamType>(type)), text);
  QCOMPARE(static_cast<int>(CParamDefItem::typeFromString(text)), type);
  QTEST(CParamDefItem::baseType(static_cast<EParamType>(type)), "baseType");
}

void tst_CParamDefItem::unknownTypesAreUndefined() {
  for (const char* text : {"U8", " u8", "float", ""}) {
    CParamDefItem item(QStringLiteral("p"), PARAM_TYPE_I8, 1);
    item.setType(QString::fromLatin1(text));
    QCOMPARE(item.type(), PARAM_TYPE_UNDEF);
  }
  for (const int outside : {-1, 11, 1000}) {
    const auto type = static_cast<EParamType>(outside);
    QCOMPARE(CParamDefItem::typeToString(type), QStringLiteral("undef"));
    QCOMPARE(CParamDefItem::baseType(type), 0);
  }
}

void tst_CParamDefItem::typesOfArguments() {
  QCOMPARE(CParamDefItem::type(static_cast<unsigned char>(0)), PARAM_TYPE_U8);
  QCOMPARE(CParamDefItem::type(static_cast<unsigned short>(0)), PARAM_TYPE_U16);
  QCOMPARE(CParamDefItem::type(0U), PARAM_TYPE_U32);
  QCOMPARE(CParamDefItem::type(0ULL), PARAM_TYPE_U64);
  QCOMPARE(CParamDefItem::type(static_cast<signed char>(0)), PARAM_TYPE_I8);
  QCOMPARE(CParamDefItem::type(static_cast<short>(0)), PARAM_TYPE_I16);
  QCOMPARE(CParamDefItem::type(0), PARAM_TYPE_I32);
  QCOMPARE(CParamDefItem::type(0LL), PARAM_TYPE_I64);
  QCOMPARE(CParamDefItem::type(0.0), PARAM_TYPE_F64);
}

void tst_CParamDefItem::startsInvalid() {
  const CParamDefItem item;
  QVERIFY(!item.valid());
  QCOMPARE(item.id(), NO_ID);
  QCOMPARE(item.typeStr(), QStringLiteral("undef"));
  QVERIFY(item.defVal().isNull());
  QVERIFY(!item.hasVisibleValues());
  QCOMPARE(item.visibleId(), NO_ID);
  QVERIFY(CParamDefItem(QStringLiteral("p"), PARAM_TYPE_U8, 0).valid());
}

void tst_CParamDefItem::signalsEffectiveEditsOnly_data() {
  QTest::addColumn<Edit>("edit");
  const auto row = [](const char* name, const Edit& edit) { QTest::newRow(name) << edit; };
  row("id", [](CParamDefItem& i) { i.setId(7); });
  row("name", [](CParamDefItem& i) { i.setName(QStringLiteral("n")); });
  row("type", [](CParamDefItem& i) { i.setType(PARAM_TYPE_STR); });
  row("type text", [](CParamDefItem& i) { i.setType(QStringLiteral("f64")); });
  row("unit", [](CParamDefItem& i) { i.setUnitId(3); });
  row("hint", [](CParamDefItem& i) { i.setHint(QStringLiteral("h")); });
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
  row("add enum", [](CParamDefItem& i) { i.addEnum(1, QStringLiteral("a")); });
  row("add enums", [](CParamDefItem& i) { i.addEnums({{1, QStringLiteral("a")}, {}}); });
  row("add radio", [](CParamDefItem& i) { i.addRadio(1, QStringLiteral("a")); });
  row("add radios", [](CParamDefItem& i) { i.addRadios({{1, QStringLiteral("a")}, {}}); });
  row("add bit", [](CParamDefItem& i) { i.addBit(0, QStringLiteral("a"), true); });
  row("add bits", [](CParamDefItem& i) { i.addBits({{63, QStringLiteral("a"), true}}); });
  row("add visible values", [](CParamDefItem& i) { i.addVisibleValues({-1, 3}); });
}

void tst_CParamDefItem::signalsEffectiveEditsOnly() {
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

void tst_CParamDefItem::copyHasNoFlag() {
  bool changed = false;
  CParamDefItem original(QStringLiteral("a"), PARAM_TYPE_U8, 1);
  original.setChangedFlag(&changed);
  CParamDefItem copy(original);
  copy.setName(QStringLiteral("b"));
  copy = original;
  copy.addEnum(1, QStringLiteral("x"));
  QVERIFY(!changed);
  QCOMPARE(original.name(), QStringLiteral("a"));
  QVERIFY(!original.hasEnums());

  bool assignedOver = false;
  copy.setChangedFlag(&assignedOver);
  copy = original;
  copy.setUnitId(9);
  QVERIFY(!changed);
  QVERIFY(!assignedOver);
  original.setUnitId(8);
  QVERIFY(changed);
}

void tst_CParamDefItem::idsKeepWhatIsSet() {
  const QList<unsigned int> doubled = {2, 1, 2};
  CParamDefItem item;
  item.setMinIds(doubled);
  item.addMinId(2);
  item.addMinId(3);
  QCOMPARE(item.minIds(), (QList<unsigned int>{2, 1, 2, 3}));
  QVERIFY(item.maxIds().isEmpty());
}

void tst_CParamDefItem::choicesMatchPlainSearch_data() {
  QTest::addColumn<int>("count");
  for (const int count : {1, 15, 16, 17, 18, 300}) QTest::addRow("%d", count) << count;
}

// Random choices out of few values and names, among them empty ones, against a plain list.
void tst_CParamDefItem::choicesMatchPlainSearch() {
  QFETCH(int, count);
  QRandomGenerator random(static_cast<quint32>(count));
  CParamDefItem item;
  QList<SNamedI64Value> plain;
  while (plain.size() < count) {
    const int name = random.bounded(40);
    const SNamedI64Value choice(random.bounded(40) - 5,
                                name == 0 ? QString() : QString::number(name));
    item.addRadio(choice);
    if (!plain.contains(choice)) plain.append(choice);
  }
  QCOMPARE(item.radios(), plain);
  for (int i = -6; i <= 40; ++i) {
    const auto byValue = std::find_if(plain.cbegin(), plain.cend(), [i](const SNamedI64Value& c) {
      return c.value == i && !c.name.isEmpty();
    });
    QCOMPARE(item.radioNameOfValue(i), byValue == plain.cend() ? QString() : byValue->name);
    const QString name = i == 0 ? QString() : QString::number(i);
    const auto byName = std::find_if(plain.cbegin(), plain.cend(),
                                     [&name](const SNamedI64Value& c) { return c.name == name; });
    bool ok = false;
    const qint64 value = item.radioValueOfName(name, ok);
    QCOMPARE(ok, byName != plain.cend());
    QCOMPARE(value, ok ? byName->value : std::numeric_limits<qint64>::min());
  }
}

void tst_CParamDefItem::choicesAreFoundInOrder() {
  CParamDefItem item;
  item.addEnum(1, QString());
  item.addEnum(1, QStringLiteral("x"));
  item.addEnum(1, QStringLiteral("x"));
  item.addEnum(1, QStringLiteral("y"));
  item.addEnum(2, QStringLiteral("x"));
  QCOMPARE(item.enums().size(), 4);
  QCOMPARE(item.enumNameOfValue(1), QStringLiteral("x"));
  QVERIFY(item.enumNameOfValue(3).isNull());
  bool ok = false;
  QCOMPARE(item.enumValueOfName(QStringLiteral("x"), ok), qint64(1));
  QVERIFY(ok);
  QCOMPARE(item.enumValueOfName(QStringLiteral("X"), ok), std::numeric_limits<qint64>::min());
  QVERIFY(!ok);
  QVERIFY(!item.hasRadios());
}

void tst_CParamDefItem::manyChoicesAreLinear() {
  constexpr int kCount = 100000;
  QElapsedTimer timer;
  timer.start();
  CParamDefItem item;
  for (int i = 0; i < kCount; ++i) item.addEnum(i, QString::number(i, 36));
  for (int i = 0; i < kCount; ++i) {
    QCOMPARE(item.enumValueOfName(item.enumNameOfValue(i)), qint64(i));
  }
  QCOMPARE(item.enums().size(), kCount);
  QVERIFY(timer.elapsed() < 10000);  // a search through the list would take minutes
}

void tst_CParamDefItem::ignoresInvalidBits() {
  CParamDefItem item;
  for (const int pos : {-1, 64, 63, 63}) item.addBit(pos, QStringLiteral("b"), false);
  item.addBit(SBitValue());
  item.addBit(63, QStringLiteral("c"), false);
  item.addBit(63, QStringLiteral("c"), true);
  const QList<SBitValue> expected = {{63, QStringLiteral("b"), false},
                                     {63, QStringLiteral("c"), false},
                                     {63, QStringLiteral("c"), true}};
  QCOMPARE(item.bitset(), expected);
}

void tst_CParamDefItem::readsVisibility_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<bool>("ok");
  QTest::addColumn<quint32>("id");
  QTest::addColumn<QList<qint64>>("values");
  const auto row = [](const char* text, bool ok, quint32 id, const QList<qint64>& values) {
    QTest::addRow("%s", text) << QString::fromLatin1(text) << ok << id << values;
  };
  row("7#0#2", true, 7, {0, 2});
  row("12##3#", true, 12, {3});
  row("0x10#3", true, 16, {3});
  row("5#-3#-3", true, 5, {-3});
  row("5", false, NO_ID, {});
  row("5#", false, NO_ID, {});
  row("", false, NO_ID, {});
  row("x#1", false, NO_ID, {});
  row("-1#1", false, NO_ID, {});
  row("5#1#x#2", false, 5, {1});
  row("5#0x3", false, 5, {});
}

void tst_CParamDefItem::readsVisibility() {
  QFETCH(QString, text);
  CParamDefItem item;
  QTEST(item.setVisible(text), "ok");
  QTEST(item.visibleId(), "id");
  QTEST(item.visibleVals(), "values");
}

void tst_CParamDefItem::visibilityNeedsItsId() {
  CParamDefItem item;
  item.addVisibleValue(4);
  QVERIFY(!item.hasVisibleValues());
  QVERIFY(item.setVisible(QStringLiteral("1#5#4")));
  QCOMPARE(item.visibleVals(), (QList<qint64>{4, 5}));
  QVERIFY(item.hasVisibleValues());
}

void tst_CParamDefItem::checkValuesCountUndefinedOnlyWhenUsed() {
  QVERIFY(!SCheckValues().isValid());
  QVERIFY((SCheckValues{1, 0, false, 0}.isValid()));
  QVERIFY((!SCheckValues{1, 0, true, 1}.isValid()));
  QVERIFY((!SCheckValues{1, 0, true, 0}.isValid()));
  QVERIFY((SCheckValues{1, 0, true, -1}.isValid()));
  QVERIFY((SCheckValues{1, 0, false, 5} == SCheckValues{1, 0, false, 6}));
  QVERIFY((SCheckValues{1, 0, true, 5} != SCheckValues{1, 0, true, 6}));
  QVERIFY((SCheckValues{1, 0, true, 5} != SCheckValues{1, 0, false, 5}));
}

void tst_CParamDefItem::makesChoicesOfMaps() {
  CNamedI64ValueList choices(QMap<qint64, QString>{{9, QStringLiteral("nine")}});
  choices = QMap<qint64, QString>{{3, QStringLiteral("three")}, {-1, QStringLiteral("minus one")}};
  const QList<SNamedI64Value> expected = {{-1, QStringLiteral("minus one")},
                                          {3, QStringLiteral("three")}};
  QCOMPARE(static_cast<const QList<SNamedI64Value>&>(choices), expected);
  const auto found = std::lower_bound(choices.cbegin(), choices.cend(), qint64(3));
  QCOMPARE(found->name, QStringLiteral("three"));
}

QTEST_APPLESS_MAIN(tst_CParamDefItem)
#include "tst_CParamDefItem.moc"
