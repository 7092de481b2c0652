// What a check and a comparison of files find.

#include "AnalysisFiles.h"
#include "CParamLineIndex.h"
#include "CParameterFileChecker.h"
#include "CParameterFileComparison.h"
#include "GoldenFiles.h"
#include "NShortText.h"
#include "ParamFileText.h"

using namespace NAnalysisFiles;
using namespace NParamDef;

namespace {

/// "line severity code hardware id:sub-device group/name 'value': text" of each.
QStringList texts(const CParamFindings& findings) {
  QStringList result;
  for (const SParamFinding& f : findings) {
    result += QStringLiteral("%1 %2 %3 %4:%5 %6/%7 '%8': %9")
                  .arg(QString::number(f.line), SParamFinding::severityText(f.severity),
                       SParamFinding::codeText(f.code), f.hardwareId, QString::number(f.subDevId),
                       f.groupPath, f.name, f.value, f.text);
  }
  return result;
}

QString testFile(const QString& name) {
  return NTestFiles::data("analysis/check/" + name);
}

/// With the values of the same name where there are any.
CParameterFilePtr loadCases(const QString& name) {
  CParameterFilePtr file = makeFile();
  const QString values = testFile(name + ".xparam");
  const bool isLoaded = file->loadParamDefFile(testFile(name + ".xpdef"), 0x10000) &&
                        (!QFile::exists(values) || file->loadParamFile(values, QString(), 0x10000));
  return isLoaded ? std::move(file) : nullptr;
}

/// The findings, with their lines in the test file, are those of the text file beside it.
void compareWithGolden(CParamFindings findings, const QString& name, const QString& suffix) {
  CParamLineIndex index;
  QVERIFY2(index.read(testFile(name + suffix)), qPrintable(index.errorMsg()));
  index.addLines(findings);
  QStringList expected = NGoldenFiles::lines(testFile(name + ".txt"));
  expected.removeAll(QString());
  QCOMPARE(texts(findings), expected);
}

QStringList texts(const CParamDifferences& differences) {
  QStringList result;
  for (const SParamDifference& d : differences) {
    result +=
        QStringLiteral("%1 %2:%3 %4 [%5>%6] %7>%8")
            .arg(SParamDifference::kindText(d.kind), d.hardwareId, QString::number(d.subDevId),
                 d.name, d.oldGroupPath, d.newGroupPath, d.oldValue, d.newValue);
  }
  return result;
}

}  // namespace

class tst_Findings : public QObject {
  Q_OBJECT

 private slots:
  void checksValues() {
    const auto file = loadCases("values");
    QVERIFY(file);
    compareWithGolden(CParameterFileChecker::checkValues(*file, "A"), "values", ".xparam");
  }

  void checksDefinitions() {
    const auto file = loadCases("definitions");
    QVERIFY(file);
    compareWithGolden(CParameterFileChecker::checkDefinitions(*file), "definitions", ".xpdef");
  }

  void checksDefinitionsThatNoFileHolds() {
    const auto file = makeFile();
    CParamDefItem* wide = file->addDef("Wide", PARAM_TYPE_U64, 1);
    wide->setMinVal(CParamVal("18446744073709551615"));
    wide->setMaxVal(CParamVal("18446744073709551614"));
    file->addDef("Doubled", PARAM_TYPE_U8, 2)->setId(1);
    QCOMPARE(
        texts(CParameterFileChecker::checkDefinitions(*file)),
        QStringList({"0 error definition-id-doubled :-1 /Wide '1': The id 1 is already used by "
                     "\"Doubled\".",
                     "0 error minimum-above-maximum :-1 /Wide '18446744073709551615': The "
                     "minimum 18446744073709551615 is above the maximum 18446744073709551614."}));
  }

  void checksOneHardwareIdAndRestores() {
    const auto file = loadCases("values");
    QVERIFY(file);
    file->addHardwareId("empty");
    const QString before = NParamFileText::all(*file);
    const auto skip = CParameterFileChecker::SkipMissing;
    // After what the load found.
    QCOMPARE(texts(CParameterFileChecker::checkValues(*file, "B", skip).mid(2)),
             QStringList("0 error value-above-maximum B:1 /Above '201': 201 is above the maximum "
                         "0xc8 (200)."));
    QVERIFY(CParameterFileChecker::checkValues(*file, "nowhere").isEmpty());
    QCOMPARE(NParamFileText::all(*file), before);
  }

  void refusesToIndexOtherFiles() {
    CParamLineIndex index;
    QVERIFY(index.read(testFile("definitions.xpdef")));
    QVERIFY(index.definitionLine("Limit") > 0);
    QVERIFY(!index.read(NTestFiles::example("MachineSettings.xset")));
    QCOMPARE(index.errorMsg(), QString("The file is neither a definition file nor a value file."));
    QCOMPARE(index.definitionLine("Limit"), 0);
    QVERIFY(!index.read(testFile("none")));
    QVERIFY(!index.errorMsg().isEmpty());
  }

  void keepsLongPathsOnceAndShort() {
    const QString name(1001, 'g');
    const CParameterFilePtr before = fromText("[A:1] X=1 Y=1");
    const CParameterFilePtr after = fromText("[A:1] " + name + "( X=1 Y=1 )");
    const CParamDifferences moved = CParameterFileComparison::compare(*before, *after);
    QCOMPARE(moved.size(), 2);
    QCOMPARE(moved.at(0).newGroupPath, NShortText::of(name));
    QVERIFY(moved.at(0).newGroupPath.constData() == moved.at(1).newGroupPath.constData());
  }

  void listsDifferences_data() { NGoldenFiles::addCases("analysis/differences.cases"); }
  void listsDifferences() {
    QFETCH(NGoldenFiles::CCase, parts);
    const auto oldFile = fromText(NGoldenFiles::one(parts, "old"));
    const auto newFile = fromText(NGoldenFiles::one(parts, "new"));
    const QStringList expected = parts["difference"];
    QCOMPARE(texts(CParameterFileComparison::compare(*oldFile, *newFile, newFile.get())), expected);
    const auto back = texts(CParameterFileComparison::compare(*newFile, *oldFile, newFile.get()));
    QCOMPARE(back.size(), expected.size());
    QCOMPARE(back.filter("removed").size(), expected.filter("added").size());
  }

  void comparesTwoVariantsAndRestores() {
    const auto file = fromText("[A:1] X=1 Y=1 [B:1] X=1 Y=2");
    file->addHardwareId("empty");
    const QString before = NParamFileText::all(*file);
    QCOMPARE(texts(CParameterFileComparison::compareHardwareIds(*file, "A", *file, "B")),
             QStringList("value-changed B:1 Y [>] 1>2"));
    QCOMPARE(texts(CParameterFileComparison::compareHardwareIds(*file, "A", *file, "none")),
             QStringList("sub-device-removed none:1  [>] >"));
    QVERIFY(CParameterFileComparison::compare(*file, *file).isEmpty());
    QCOMPARE(NParamFileText::all(*file), before);
  }
};

QTEST_GUILESS_MAIN(tst_Findings)
#include "tst_Findings.moc"
