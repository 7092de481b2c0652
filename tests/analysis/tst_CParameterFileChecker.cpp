#include "AnalysisFiles.h"
#include "CParamLineIndex.h"
#include "CParameterFileChecker.h"
#include "ParamFileText.h"
#include "TestFiles.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

using namespace NAnalysisFiles;
using namespace NParamDef;

namespace {

const QString kName = QStringLiteral("P");
const quint32 kLimitId = 2;

/// "code: text" of each.
QStringList texts(const CParamFindings& findings) {
  QStringList result;
  for (const SParamFinding& f : findings) {
    result += SParamFinding::codeText(f.code) + ": " + f.text;
  }
  return result;
}

/// A definition P (id 1) of one type to check values of, and Limit (id 2) and Text (id 3).
struct SChecked {
  CFilePtr file = makeFile();
  CParamDefItem* def;

  explicit SChecked(EParamType type) : def(file->addDef(kName, type, 1)) {
    file->addDef("Limit", PARAM_TYPE_I64, kLimitId);
    file->addDef("Text", PARAM_TYPE_STR, 3);
  }

  QStringList ofValue(const QString& value) {
    file->addParameter(file->subGroup("G/H", 1), kName, CParamVal(value));
    return texts(
        CParameterFileChecker::checkValues(*file, QString(), CParameterFileChecker::SkipMissing));
  }
  QStringList ofDefault(const QString& value) {
    def->setDefVal(CParamVal(value));
    return texts(CParameterFileChecker::checkDefinitions(*file));
  }
};

using CSetup = void (*)(SChecked&);

void limits(SChecked& c, const char* minimum, const char* maximum) {
  c.def->setMinVal(CParamVal(minimum));
  c.def->setMaxVal(CParamVal(maximum));
}
void limitParameters(SChecked& c, const char* value) {
  c.def->setMinIds({kLimitId});
  c.def->setMaxIds({kLimitId});
  c.file->paramDefPtr("Limit")->setDefVal(CParamVal(value));
  c.file->addParameter(c.file->rootGroup(1), "Limit");
}
void choices(SChecked& c, bool isEditable) {
  c.def->addEnum(-1, "all");
  c.def->addEnum(5, "");
  c.def->setEnumEditable(isEditable);
}
void bits(SChecked& c) {
  c.def->addBit(0, "a", false);
  c.def->addBit(6, "b", true);
}

}  // namespace

Q_DECLARE_METATYPE(CSetup)

class tst_CParameterFileChecker : public QObject {
  Q_OBJECT

 private slots:
  void judgesAValue_data();
  void judgesAValue();
  void listsDefinitionFaults_data();
  void listsDefinitionFaults();
  void comparesNamesAndIds();
  void tellsWhereAndRestores();
  void findsLines();
  void refusesToIndexOtherFiles();
  void listsEveryFaultOfALargeFile();
};

void tst_CParameterFileChecker::judgesAValue_data() {
  QTest::addColumn<int>("type");
  QTest::addColumn<CSetup>("setup");
  QTest::addColumn<QString>("value");
  QTest::addColumn<QStringList>("expected");  // without "value-"
  const auto row = [](const char* name, EParamType type, const char* value, CSetup setup,
                      const QStringList& expected) {
    QTest::newRow(name) << int(type) << setup << value << expected;
  };
  const CSetup none = [](SChecked&) {};
  const CSetup to200 = [](SChecked& c) { limits(c, "10", "0xc8"); };
  row("in range", PARAM_TYPE_U8, "0xc8", to200, {});
  row("blanks", PARAM_TYPE_U8, " 10 ", to200, {});
  row("no number", PARAM_TYPE_U8, "1x", to200,
      {"not-of-type: \"1x\" is no number of the type u8."});
  row("empty", PARAM_TYPE_F64, "", none, {"not-of-type: \"\" is no number of the type f64."});
  row("too wide", PARAM_TYPE_I8, "128", none,
      {"not-of-type: \"128\" is no number of the type i8."});
  row("below", PARAM_TYPE_U8, "0x9", to200, {"below-minimum: 0x9 (9) is below the minimum 10."});
  row("above", PARAM_TYPE_U8, "201", to200,
      {"above-maximum: 201 is above the maximum 0xc8 (200)."});
  row("exact below", PARAM_TYPE_I64, "-9007199254740993",
      [](SChecked& c) { limits(c, "-9007199254740992", ""); },
      {"below-minimum: -9007199254740993 is below the minimum -9007199254740992."});
  row("exact above", PARAM_TYPE_U64, "18446744073709551615",
      [](SChecked& c) { limits(c, "", "18446744073709551614"); },
      {"above-maximum: 18446744073709551615 is above the maximum 18446744073709551614."});
  row("nan without limits", PARAM_TYPE_F64, "nan", none, {});
  row("nan", PARAM_TYPE_F64, "nan", [](SChecked& c) { limits(c, "0", ""); },
      {"not-comparable: nan cannot be compared with the limits."});
  row("limit that is none", PARAM_TYPE_U8, "5", [](SChecked& c) { limits(c, "-1", "x"); }, {});
  row("limit parameter above", PARAM_TYPE_U64, "0xffffffffffffffff",
      [](SChecked& c) { limitParameters(c, "-1"); },
      {"above-limit-parameter: 0xffffffffffffffff (18446744073709551615) is above -1, the value "
       "of \"Limit\"."});
  row("limit parameter below", PARAM_TYPE_F64, "-1.5",
      [](SChecked& c) { limitParameters(c, "-1"); },
      {"below-limit-parameter: -1.5 is below -1, the value of \"Limit\"."});
  row("limit parameter equal", PARAM_TYPE_F64, "-1", [](SChecked& c) { limitParameters(c, "-1"); },
      {});
  row("limit parameter missing", PARAM_TYPE_I8, "5",
      [](SChecked& c) {
        c.def->setMaxIds({kLimitId, 3, 77});
      },
      {});
  const CSetup fixed = [](SChecked& c) { choices(c, false); };
  row("choice", PARAM_TYPE_I8, "-1", fixed, {});
  row("nameless choice", PARAM_TYPE_I8, "0x5", fixed, {});
  row("no choice", PARAM_TYPE_I8, "0x4", fixed,
      {"not-a-choice: 0x4 (4) is not one of the choices."});
  row("same bits as a choice", PARAM_TYPE_U64, "0xffffffffffffffff", fixed,
      {"not-a-choice: 0xffffffffffffffff (18446744073709551615) is not one of the choices."});
  row("editable", PARAM_TYPE_I8, "4", [](SChecked& c) { choices(c, true); }, {});
  row("radio", PARAM_TYPE_F64, "1.5", [](SChecked& c) { c.def->addRadio(1, "one"); },
      {"not-a-choice: 1.5 is not one of the radio buttons."});
  const CSetup check = [](SChecked& c) { c.def->setCheckVals({1, 0, true, 2}); };
  row("third state", PARAM_TYPE_I8, "2", check, {});
  row("no state", PARAM_TYPE_I8, "3", check,
      {"not-a-choice: 3 is not one of the check box's states."});
  row("named bits", PARAM_TYPE_U8, "0x41", bits, {});
  row("unnamed bits", PARAM_TYPE_U8, "0xc3", bits,
      {"unnamed-bits: Bits are set that have no name: 1, 7."});
  row("bits of the type", PARAM_TYPE_I8, "-1", bits,
      {"unnamed-bits: Bits are set that have no name: 1, 2, 3, 4, 5, 7."});
  const CSetup all = [](SChecked& c) {
    limits(c, "10", "20");
    choices(c, false);
    bits(c);
  };
  row("several", PARAM_TYPE_U8, "2", all,
      {"below-minimum: 2 is below the minimum 10.", "not-a-choice: 2 is not one of the choices.",
       "unnamed-bits: Bits are set that have no name: 1."});
  row("text", PARAM_TYPE_STR, "anything", all, {});
  row("undefined type", PARAM_TYPE_UNDEF, "anything", all, {});
}

/// A default is judged as a value is.
void tst_CParameterFileChecker::judgesAValue() {
  QFETCH(int, type);
  QFETCH(CSetup, setup);
  QFETCH(QString, value);
  QFETCH(QStringList, expected);
  SChecked checked(static_cast<EParamType>(type));
  setup(checked);
  QCOMPARE(checked.ofValue(value), expected.replaceInStrings(QRegExp("^"), "value-"));
  const QStringList ofDefault = checked.ofDefault(value).filter(QRegExp("^default-"));
  expected.replaceInStrings(QRegExp("^value-([^:]*): "), "default-\\1: Default: ");
  QCOMPARE(ofDefault, value.isEmpty() ? QStringList() : expected);
}

void tst_CParameterFileChecker::listsDefinitionFaults_data() {
  QTest::addColumn<int>("type");
  QTest::addColumn<CSetup>("setup");
  QTest::addColumn<QStringList>("expected");
  const auto row = [](const char* name, EParamType type, CSetup setup,
                      const QStringList& expected) {
    QTest::newRow(name) << int(type) << setup << expected;
  };
  row("good", PARAM_TYPE_I8,
      [](SChecked& c) {
        limits(c, "-1", "5");
        c.def->setMinIds({kLimitId});
        choices(c, false);
        bits(c);
        c.def->setCheckVals({5, -1, false, 0});
        c.def->setVisibleId(kLimitId);
        c.def->setUnitId(kLimitId);
      },
      {});
  row("limits", PARAM_TYPE_U8, [](SChecked& c) { limits(c, "-1", "256"); },
      {"limit-not-of-type: The limit \"-1\" is no number of the type u8 that others can be "
       "compared with.",
       "limit-not-of-type: The limit \"256\" is no number of the type u8 that others can be "
       "compared with."});
  row("nan limit", PARAM_TYPE_F64, [](SChecked& c) { limits(c, "nan", ""); },
      {"limit-not-of-type: The limit \"nan\" is no number of the type f64 that others can be "
       "compared with."});
  row("exact order", PARAM_TYPE_U64,
      [](SChecked& c) { limits(c, "18446744073709551615", "18446744073709551614"); },
      {"minimum-above-maximum: The minimum 18446744073709551615 is above the maximum "
       "18446744073709551614."});
  row("text with limits", PARAM_TYPE_STR, [](SChecked& c) { limits(c, "z", "a"); }, {});
  row("dangling", PARAM_TYPE_I8,
      [](SChecked& c) {
        c.def->setMinIds({70, 0});
        c.def->setMaxIds({3});
        c.def->setVisibleId(71);
        c.def->setUnitId(72);
      },
      {"limit-dangling: The limit parameter 70 is not defined.",
       "limit-dangling: The limit parameter 0 is not defined.",
       "limit-parameter-no-number: The limit parameter \"Text\" is no number.",
       "visibility-dangling: The parameter 71, on which the visibility depends, is not defined.",
       "unit-dangling: The unit 72 is not defined."});
  row("unit of the common list", PARAM_TYPE_I8,
      [](SChecked& c) {
        c.file->addDef("AllUnits", PARAM_TYPE_U32, 0)->addEnum(72, "mm");
        c.def->setUnitId(72);
      },
      {});
  row("choices", PARAM_TYPE_U8,
      [](SChecked& c) {
        c.def->addEnum(1, "a");
        c.def->addEnum(1, "b");
        c.def->addEnum(2, "a");
        c.def->addRadio(1, "a");
        c.def->addRadio(-1, "b");
      },
      {"choice-value-doubled: Another choice has the value 1 of \"b\", too.",
       "choice-name-doubled: Another choice than 2 has the name \"a\", too.",
       "choice-not-of-type: The choice -1 is no number of the type u8."});
  row("bits", PARAM_TYPE_I8,
      [](SChecked& c) {
        c.def->addBit(7, "a", false);
        c.def->addBit(7, "b", false);
        c.def->addBit(8, "c", false);
      },
      {"bit-doubled: The bit 7 has another name than \"b\", too.",
       "bit-not-of-type: The type i8 has no bit 8."});
  row("check values", PARAM_TYPE_I8,
      [](SChecked& c) {
        c.def->setCheckVals({1, 0, true, 1});
      },
      {"check-values-not-valid: Two states of the check box have the same value."});
  row("id", PARAM_TYPE_I8, [](SChecked& c) { c.file->paramDefPtr("Text")->setId(1); },
      {"definition-id-doubled: The id 1 is that of \"P\" already."});
}

void tst_CParameterFileChecker::listsDefinitionFaults() {
  QFETCH(int, type);
  QFETCH(CSetup, setup);
  QFETCH(QStringList, expected);
  SChecked checked(static_cast<EParamType>(type));
  setup(checked);
  QCOMPARE(texts(CParameterFileChecker::checkDefinitions(*checked.file)), expected);
}

void tst_CParameterFileChecker::comparesNamesAndIds() {
  // Values of another file's definitions: Same (id 1), Other (5), Gone (6), Free (0).
  const auto source = makeFile();
  source->addDef("Same", PARAM_TYPE_I8, 1);
  source->addDef("Other", PARAM_TYPE_I8, 5);
  source->addDef("Gone", PARAM_TYPE_I8, 6);
  source->addDef("Free", PARAM_TYPE_I8, 0);
  for (const char* name : {"Same", "Other", "Gone", "Free"}) set(*source, "", name, "1");
  const auto file = makeFile("B");
  file->addDef("Same", PARAM_TYPE_I8, NO_ID);
  file->addDef("Other", PARAM_TYPE_I8, 4);
  file->addDef("Absent", PARAM_TYPE_I8, 6);
  file->cloneHardwareIdFromInstance("A", source.get());
  const auto findings = CParameterFileChecker::checkValues(*file);
  QCOMPARE(texts(findings),
           QStringList({"id-mismatch: The parameter has the id 5, its definition has 4.",
                        "name-mismatch: The parameter is not defined; the definition of its id 6 "
                        "has the name \"Absent\".",
                        "parameter-not-defined: The parameter is not defined.",
                        "parameter-missing: The parameter is defined, but no sub-device has it."}));
  QCOMPARE(findings.last().severity, SParamFinding::Info);
  QCOMPARE(findings.last().name, QString("Absent"));
}

void tst_CParameterFileChecker::tellsWhereAndRestores() {
  SChecked checked(PARAM_TYPE_U8);
  ICParameterFile& file = *checked.file;
  checked.ofValue("300");
  file.cloneHardwareId("A", "C");
  file.setParamValue(kName, CParamVal("ok?"), 1);
  file.copySubDevice(1, 4);
  file.setParamValue(kName, CParamVal("7"), 1);
  file.addHardwareId("empty");
  file.clearChanged();
  const QString before = NParamFileText::all(file);
  const auto findings =
      CParameterFileChecker::checkValues(file, QString(), CParameterFileChecker::SkipMissing);
  QCOMPARE(NParamFileText::all(file), before);
  QCOMPARE(findings.size(), 2);
  const SParamFinding& first = findings.first();
  QCOMPARE(first.severity, SParamFinding::Error);
  QCOMPARE(first.hardwareId + '|' + first.groupPath + '|' + first.name + '|' + first.value,
           QString("A|G/H|P|300"));
  QCOMPARE(findings.last().hardwareId, QString("C"));
  QCOMPARE(findings.last().subDevId, 4);
  QCOMPARE(texts(CParameterFileChecker::checkValues(file, "C")),
           QStringList({"value-not-of-type: \"ok?\" is no number of the type u8.",
                        "parameter-missing: The parameter is defined, but no sub-device has it.",
                        "parameter-missing: The parameter is defined, but no sub-device has it."}));
  QVERIFY(CParameterFileChecker::checkValues(file, "nowhere").isEmpty());
}

void tst_CParameterFileChecker::findsLines() {
  CParamLineIndex index;
  QVERIFY2(index.read(NTestFiles::example("TwoAxisDrive.xparam")), qPrintable(index.errorMsg()));
  const QByteArray content = NTestFiles::read(NTestFiles::example("TwoAxisDrive.xparam"));
  const QStringList lines = QTextStream(content).readAll().split('\n');
  QCOMPARE(index.parameterLine("KTO-2A-32", 2, "NoSuch"), 0);
  const auto file = makeFile();
  QVERIFY(file->loadParamFile(NTestFiles::example("TwoAxisDrive.xparam"), QString(), 0x10000));
  auto findings = CParameterFileChecker::checkValues(*file);  // nothing is defined
  index.addLines(findings);
  QVERIFY(findings.size() > 100);
  QSet<int> different;
  for (const SParamFinding& finding : findings) {
    different.insert(finding.line);
    QVERIFY(lines.value(finding.line - 1).contains("<Param"));
    QVERIFY(lines.value(finding.line).contains("<Name>" + finding.name + "</Name>"));
  }
  QCOMPARE(different.size(), findings.size());
  QVERIFY(index.read(NTestFiles::example("TwoAxisDrive.xpdef")));
  QCOMPARE(index.hardwareIdLine("KTO-2A-32"), 0);
  SParamFinding finding;
  finding.code = SParamFinding::BitDoubled;
  finding.name = "UnitPosition";
  CParamFindings one{finding};
  index.addLines(one);
  QCOMPARE(one.first().line, index.definitionLine("UnitPosition"));
  QVERIFY(one.first().line > 0);
}

void tst_CParameterFileChecker::refusesToIndexOtherFiles() {
  CParamLineIndex index;
  QVERIFY(index.read(NTestFiles::example("TwoAxisDrive.xpdef")));
  QVERIFY(!index.read(NTestFiles::example("MachineSettings.xset")));
  QCOMPARE(index.errorMsg(), QString("The file is neither a definition file nor a value file."));
  QCOMPARE(index.definitionLine("UnitPosition"), 0);
  QVERIFY(!index.read(NTestFiles::example("NoSuchFile")));
  QVERIFY(!index.errorMsg().isEmpty());
}

/// 100,000 parameters, 1,000 faults and an enumeration of 100,000 choices, with their lines.
void tst_CParameterFileChecker::listsEveryFaultOfALargeFile() {
  const int count = 100000;
  const auto file = makeFile();
  ICParamTreeNode* group = nullptr;
  for (int i = 0; i < count; ++i) {
    const QString name = QStringLiteral("P%1").arg(i);
    CParamDefItem* def = file->addDef(name, PARAM_TYPE_I32, static_cast<quint32>(i) + 1);
    def->setMaxVal(CParamVal(1000));
    def->setMaxIds({1});
    if (i % 1000 == 0) group = file->subGroup(QStringLiteral("G%1").arg(i), 1);
    file->addParameter(group, name, CParamVal(i % 100 == 50 ? 2000 : i == 0 ? 1500 : 7));
  }
  CNamedI64ValueList list;
  for (int i = 0; i < count; ++i) list.append({i, QStringLiteral("c%1").arg(i)});
  file->paramDefPtr("P0")->addEnums(list);
  file->paramDefPtr("P0")->setMaxVal(CParamVal());
  file->paramDefPtr("P0")->setMaxIds({});
  QTemporaryDir folder;
  QVERIFY(file->saveParamFile(folder.filePath("v"), QString(), 0x10000));
  QElapsedTimer timer;
  timer.start();
  auto findings = CParameterFileChecker::checkValues(*file);
  const qint64 checked = timer.restart();
  const auto definitions = CParameterFileChecker::checkDefinitions(*file);
  const qint64 defined = timer.restart();
  CParamLineIndex index;
  QVERIFY(index.read(folder.filePath("v")));
  index.addLines(findings);
  qInfo("values %lld ms, definitions %lld ms, lines %lld ms", checked, defined, timer.elapsed());
  QCOMPARE(findings.size(), 2000);  // of 1,000 values, each above both limits
  QVERIFY(definitions.isEmpty());
  for (int i = 0; i < findings.size(); ++i) {
    QCOMPARE(findings.at(i).name, QStringLiteral("P%1").arg(50 + 100 * (i / 2)));
    QVERIFY(findings.at(i).line > 0);
  }
}

QTEST_GUILESS_MAIN(tst_CParameterFileChecker)
#include "tst_CParameterFileChecker.moc"
