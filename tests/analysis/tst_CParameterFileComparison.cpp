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
        QStringLiteral("%1 %2 %3 %4 [%5>%6] %7>%8")
            .arg(SParamDifference::kindText(d.kind), d.hardwareId, QString::number(d.subDevId),
                 d.name, d.oldGroupPath, d.newGroupPath, d.oldValue, d.newValue);
  }
  return result;
}

/// Sub-device 1: X in the root group, A to D in G, E in G/H; sub-device 2: A.
CFilePtr makeOld() {
  auto file = makeFile();
  set(*file, "", "X", "0");
  for (const char* name : {"A", "B", "C", "D"}) set(*file, "G", name, "1");
  set(*file, "G/H", "E", "1");
  set(*file, "", "A", "2", 2);
  return file;
}

void remove(ICParameterFile& file, const QString& name) {
  file.deleteNode(file.findParameter(file.rootGroup(1), name));
}

using CEdit = void (*)(ICParameterFile&);

}  // namespace

Q_DECLARE_METATYPE(CEdit)

class tst_CParameterFileComparison : public QObject {
  Q_OBJECT

 private slots:
  void listsDifferences_data();
  void listsDifferences();
  void comparesAsDefined();
  void comparesTwoVariants();
  void leavesTheFilesAsTheyWere();
  void handlesManyOfAll();
};

void tst_CParameterFileComparison::listsDifferences_data() {
  QTest::addColumn<CEdit>("edit");
  QTest::addColumn<QStringList>("expected");
  const auto row = [](const char* name, CEdit edit, const QStringList& expected) {
    QTest::newRow(name) << edit << expected;
  };
  row("none", [](ICParameterFile&) {}, {});
  row("changed", [](ICParameterFile& f) { set(f, "", "B", "5"); },
      {"value-changed A 1 B [G>G] 1>5"});
  row("added", [](ICParameterFile& f) { set(f, "G/New", "N", "5"); },
      {"parameter-added A 1 N [>G/New] >5"});
  row("removed, in its place",
      [](ICParameterFile& f) {
        for (const char* name : {"X", "B", "C"}) remove(f, name);
        set(f, "", "A", "7");
        set(f, "", "D", "8");
      },
      {"parameter-removed A 1 X [>] 0>", "value-changed A 1 A [G>G] 1>7",
       "parameter-removed A 1 B [G>] 1>", "parameter-removed A 1 C [G>] 1>",
       "value-changed A 1 D [G>G] 1>8"});
  row("moved and changed",
      [](ICParameterFile& f) {
        remove(f, "B");
        set(f, "G/H", "B", "2");
      },
      {"parameter-moved A 1 B [G>G/H] 1>2", "value-changed A 1 B [G>G/H] 1>2"});
  row("moved to where the path looks alike",
      [](ICParameterFile& f) {
        remove(f, "E");
        f.addParameter(f.addGroup(f.rootGroup(1), "G/H"), "E", CParamVal(1));
      },
      {"parameter-moved A 1 E [G/H>G/H] 1>1"});
  row("order and empty groups",
      [](ICParameterFile& f) {
        remove(f, "A");
        set(f, "G", "A", "1");
        f.subGroup("Empty", 1);
      },
      {});
  row("sub-devices",
      [](ICParameterFile& f) {
        f.copySubDevice(1, 0);
        f.setSubDevType(1, NParamDef::SUB_DEV_TYPE_DRIVE);
        f.setSubDevName(2, "Axis");
        f.setSubDevName(7, "nobody");
      },
      {"sub-device-type-changed  1  [>] Undefined>Drive", "sub-device-name-changed  2  [>] >Axis",
       "sub-device-added A 0  [>] >"});
  row("hardware ids",
      [](ICParameterFile& f) {
        f.cloneHardwareId("A", "0");
        f.cloneHardwareId("A", "B");
        set(f, "", "B", "5");
      },
      {"hardware-id-added 0 -1  [>] >", "hardware-id-added B -1  [>] >"});
  row("renamed hardware id", [](ICParameterFile& f) { f.renameHardwareId("A", "B"); },
      {"hardware-id-removed A -1  [>] >", "hardware-id-added B -1  [>] >"});
}

void tst_CParameterFileComparison::listsDifferences() {
  QFETCH(CEdit, edit);
  QFETCH(QStringList, expected);
  const auto oldFile = makeOld();
  const auto newFile = makeOld();
  edit(*newFile);
  QCOMPARE(texts(CParameterFileComparison::compare(*oldFile, *newFile)), expected);
  // Backwards: as many, and what was added is removed.
  const auto back = CParameterFileComparison::compare(*newFile, *oldFile);
  QCOMPARE(back.size(), expected.size());
  QCOMPARE(texts(back).filter("removed").size(), expected.filter("added").size());
}

void tst_CParameterFileComparison::comparesAsDefined() {
  const auto oldFile = makeFile();
  oldFile->addDef("U", NParamDef::PARAM_TYPE_U8, 5);
  set(*oldFile, "", "U", "0x10");
  set(*oldFile, "", "S", "0x10");
  const auto newFile = makeFile();
  newFile->addDef("U", NParamDef::PARAM_TYPE_U8, 6);
  set(*newFile, "", "U", "16");
  set(*newFile, "", "S", "16");
  const QStringList expected{"id-changed A 1 U [>] 5>6", "value-changed A 1 U [>] 0x10>16",
                             "value-changed A 1 S [>] 0x10>16"};
  QCOMPARE(texts(CParameterFileComparison::compare(*oldFile, *newFile)), expected);
  QCOMPARE(texts(CParameterFileComparison::compare(*oldFile, *newFile, newFile.get())),
           QStringList({expected.first(), expected.last()}));
}

void tst_CParameterFileComparison::comparesTwoVariants() {
  const auto file = makeOld();
  file->cloneHardwareId("A", "B");
  set(*file, "", "C", "4");
  QCOMPARE(texts(CParameterFileComparison::compareHardwareIds(*file, "A", *file, "B")),
           QStringList("value-changed B 1 C [G>G] 1>4"));
  QCOMPARE(file->hardwareId(), QString("B"));
  QCOMPARE(texts(CParameterFileComparison::compareHardwareIds(*file, "A", *file, "none")),
           QStringList({"sub-device-removed none 1  [>] >", "sub-device-removed none 2  [>] >"}));
}

void tst_CParameterFileComparison::leavesTheFilesAsTheyWere() {
  const auto oldFile = makeOld();
  oldFile->cloneHardwareId("A", "B");
  oldFile->addHardwareId("empty");
  const auto newFile = makeOld();
  newFile->cloneHardwareId("A", "B");
  set(*newFile, "", "C", "4");
  newFile->selectHardwareId("A");
  const QString before = NParamFileText::all(*oldFile) + NParamFileText::all(*newFile);
  QCOMPARE(CParameterFileComparison::compare(*oldFile, *newFile).size(), 1);
  QCOMPARE(NParamFileText::all(*oldFile) + NParamFileText::all(*newFile), before);
}

/// 100,000 parameters in reverse order, each changed, and 1,000 hardware ids.
void tst_CParameterFileComparison::handlesManyOfAll() {
  const int count = 100000;
  const auto oldFile = makeFile();
  const auto newFile = makeFile();
  for (int i = 0; i < count; ++i) {
    set(*oldFile, "G", QStringLiteral("P%1").arg(i), "1");
    set(*newFile, "G", QStringLiteral("P%1").arg(count - 1 - i), "2");
  }
  for (int i = 0; i < 1000; ++i) {
    oldFile->addHardwareId(QStringLiteral("H%1").arg(i));
    set(*oldFile, "G", "P1", "1");
  }
  const auto differences = CParameterFileComparison::compare(*oldFile, *newFile);
  QCOMPARE(differences.size(), count + 1000);
  QCOMPARE(differences.first().name, QStringLiteral("P%1").arg(count - 1));
}

QTEST_GUILESS_MAIN(tst_CParameterFileComparison)
#include "tst_CParameterFileComparison.moc"
