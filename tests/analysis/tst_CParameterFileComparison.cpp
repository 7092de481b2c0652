#include "AnalysisFiles.h"
#include "CParameterFileComparison.h"
#include "ParamFileText.h"

#include <QtTest>

using namespace NAnalysisFiles;

namespace {

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

class tst_CParameterFileComparison : public QObject {
  Q_OBJECT

 private slots:
  void listsDifferences_data();
  void listsDifferences();
  void listsTypesAndNamesOnce();
  void comparesAsDefined();
  void comparesTwoVariantsAndRestores();
  void handlesManyOfAll();
};

void tst_CParameterFileComparison::listsDifferences_data() {
  QTest::addColumn<QString>("oldText");
  QTest::addColumn<QString>("newText");
  QTest::addColumn<QStringList>("expected");
  const auto row = [](const char* name, const char* oldText, const char* newText,
                      const QStringList& expected) {
    QTest::newRow(name) << oldText << newText << expected;
  };
  row("same but for order and empty groups", "[A:1] X=1 G( Y=1 Z=1 )",
      "[A:1] G( Z=1 Y=1 ) H( ) X=1", {});
  row("changed", "[A:1] G( Y#5=1 ) Z=16", "[A:1] G( Y#6=2 ) Z=0x10",
      {"id-changed A:1 Y [G>G] 5>6", "value-changed A:1 Y [G>G] 1>2",
       "value-changed A:1 Z [>] 16>0x10"});
  row("added", "[A:1] X=1", "[A:1] X=1 G( H( Y=2 ) )", {"parameter-added A:1 Y [>G/H] >2"});
  row("removed, in its place", "[A:1] R=1 X=1 G( A=1 S=2 T=3 B=1 )", "[A:1] X=1 G( A=7 B=8 N=9 )",
      {"parameter-removed A:1 R [>] 1>", "value-changed A:1 A [G>G] 1>7",
       "parameter-removed A:1 S [G>] 2>", "parameter-removed A:1 T [G>] 3>",
       "value-changed A:1 B [G>G] 1>8", "parameter-added A:1 N [>G] >9"});
  row("moved and changed", "[A:1] G( A=1 B=1 )", "[A:1] A=2 G( ) B=1",
      {"parameter-moved A:1 A [G>] 1>2", "value-changed A:1 A [G>] 1>2",
       "parameter-moved A:1 B [G>] 1>1"});
  row("moved to where the path looks alike", "[A:1] G( H( A=1 ) )", "[A:1] G/H( A=1 )",
      {"parameter-moved A:1 A [G/H>G/H] 1>1"});
  row("sub-devices", "[A:1] X=1 [A:3] X=1", "[A:0] X=1 [A:3] X=2",
      {"sub-device-added A:0  [>] >", "sub-device-removed A:1  [>] >",
       "value-changed A:3 X [>] 1>2"});
  row("hardware ids", "[A:1] X=1 [B:1] X=1", "[0:1] X=1 [A:1] X=2 [C:1] X=1",
      {"hardware-id-added 0:-1  [>] >", "value-changed A:1 X [>] 1>2",
       "hardware-id-removed B:-1  [>] >", "hardware-id-added C:-1  [>] >"});
}

void tst_CParameterFileComparison::listsDifferences() {
  QFETCH(QString, oldText);
  QFETCH(QString, newText);
  QFETCH(QStringList, expected);
  const auto oldFile = fromText(oldText);
  const auto newFile = fromText(newText);
  QCOMPARE(texts(CParameterFileComparison::compare(*oldFile, *newFile)), expected);
  const auto back = texts(CParameterFileComparison::compare(*newFile, *oldFile));
  QCOMPARE(back.size(), expected.size());
  QCOMPARE(back.filter("removed").size(), expected.filter("added").size());
}

void tst_CParameterFileComparison::listsTypesAndNamesOnce() {
  const auto oldFile = fromText("[A:1] [B:1] [B:2] [C:3]");
  const auto newFile = fromText("[B:1] [B:2] [A:1] [D:3]");
  newFile->setSubDevType(1, NParamDef::SUB_DEV_TYPE_DRIVE);
  newFile->setSubDevName(2, "Axis");
  newFile->setSubDevName(3, "nowhere in both");
  QCOMPARE(
      texts(CParameterFileComparison::compare(*oldFile, *newFile)).mid(0, 3),
      QStringList({"sub-device-type-changed :1  [>] Undefined>Drive",
                   "sub-device-name-changed :2  [>] >Axis", "hardware-id-removed C:-1  [>] >"}));
}

void tst_CParameterFileComparison::comparesAsDefined() {
  const auto oldFile = fromText("[A:1] U=0x10 S=0x10");
  const auto newFile = fromText("[A:1] U=16 S=16");
  newFile->addDef("U", NParamDef::PARAM_TYPE_U8, 1);
  newFile->addDef("S", NParamDef::PARAM_TYPE_STR, 2);
  QCOMPARE(texts(CParameterFileComparison::compare(*oldFile, *newFile, newFile.get())),
           QStringList("value-changed A:1 S [>] 0x10>16"));
}

void tst_CParameterFileComparison::comparesTwoVariantsAndRestores() {
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

/// 100,000 parameters in reverse order, each changed, and 1,000 hardware ids.
void tst_CParameterFileComparison::handlesManyOfAll() {
  const int count = 100000;
  QStringList oldTokens{"[A:1]"};
  QStringList newTokens{"[A:1]"};
  for (int i = 0; i < count; ++i) {
    oldTokens += QStringLiteral("P%1=1").arg(i);
    newTokens += QStringLiteral("P%1=2").arg(count - 1 - i);
  }
  for (int i = 0; i < 1000; ++i) oldTokens += QStringLiteral("[H%1:1]").arg(i);
  const auto oldFile = fromTokens(oldTokens);
  const auto newFile = fromTokens(newTokens);
  const auto differences = CParameterFileComparison::compare(*oldFile, *newFile);
  QCOMPARE(differences.size(), count + 1000);
  QCOMPARE(differences.first().name, QStringLiteral("P%1").arg(count - 1));
}

QTEST_GUILESS_MAIN(tst_CParameterFileComparison)
#include "tst_CParameterFileComparison.moc"
