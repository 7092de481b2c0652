#include "ExampleDrive.h"
#include "ParamFileText.h"

#include <QTemporaryDir>
#include <QtTest>

#include <random>

using namespace NTestFiles;
using F = ICParameterFile;

namespace {

void editMuch(F& drive) {
  for (const QString& name : drive.paramNames(2))
    drive.setAndMarkParamValue(name, CParamVal("edited"), 2);
  drive.deleteNode(drive.rootGroup(3)->childPtr(0));
}

/// The values of Speed and Mode in a small device.
QString values(const F& file) {
  return file.paramValue("Speed", 1).asStr() + ' ' + file.paramValue("Mode", 1).asStr();
}

}  // namespace

class tst_ParameterFile : public QObject {
  Q_OBJECT

 private slots:
  void namesOfSubDeviceTypes() {
    for (const int i : {-1, 0, 1, 2, 3, 4}) {
      const QString name = F::subDeviceTypeToStr(static_cast<NParamDef::ESubDeviceTypes>(i));
      QCOMPARE(int(F::subDeviceTypeFromStr(name)), i < 0 || i > 3 ? 0 : i);
    }
    QCOMPARE(int(F::subDeviceTypeFromStr("drive")), 0);
  }

  void aSecondValueFileIsMergedIntoTheFirst() {
    QTemporaryDir folder;
    const auto first = makeSmall();
    first->setSubDevName(1, "One");
    const auto second = makeSmall();
    second->deleteNode(second->rootGroup(1)->childPtr("Mode"));
    second->addParameter(second->subGroup("G/Inner/New", 1), "Name", CParamVal("n"));
    second->addParameter(second->subGroup("Other", 2), "Loose");
    second->setParamValue("Speed", CParamVal(99U), 1);
    second->setSubDevType(1, NParamDef::SUB_DEV_TYPE_DRIVE);
    second->setMetaData("author", "comment");
    QVERIFY(second->saveParamFile(folder.filePath("2"), QString(), 0x10000));
    first->clearChanged();
    ICParamTreeNode* node = first->findParameter(first->rootGroup(1), "Speed");

    QVERIFY(first->loadParamFile(folder.filePath("2"), "A", 0x10002));
    QCOMPARE(first->paramNames(1) + first->paramNames(2),
             QStringList({"Speed", "Name", "Mode", "Loose"}));
    QCOMPARE(values(*first), QString("0x63 -1"));
    QCOMPARE(first->findParameter(first->rootGroup(1), "Speed"), node);
    QCOMPARE(first->subDevName(1) + first->comment(), QString("Onecomment"));
    QCOMPARE(first->subDeviceIds(NParamDef::SUB_DEV_TYPE_DRIVE), QList<quint8>{1});
    QVERIFY(!first->isChanged());
  }

  void definitionsOfALaterFileReplaceAndPointersStay() {
    QTemporaryDir folder;
    const auto source = makeFile();
    source->addDef("Speed", NParamDef::PARAM_TYPE_I64, 5);
    QVERIFY(source->saveParamDefFile(folder.filePath("d"), 0x10000));
    const auto file = makeSmall();
    CParamDefItem* speed = file->paramDefPtr("Speed");
    QVERIFY(file->loadParamDefFile(folder.filePath("d"), 0x10000));
    for (quint32 id = 100; id < 1100; ++id)
      file->addDef("P" + QString::number(id), NParamDef::PARAM_TYPE_U8, id);
    file->clearChanged();
    CParameterFileBaseImpl copy(dynamic_cast<CParameterFileBaseImpl&>(*file), nullptr);
    QVERIFY(file->paramDefPtr("Speed") == speed && speed->type() == NParamDef::PARAM_TYPE_I64);
    QCOMPARE(file->nameById(5) + file->nameById(1), QString("Speed"));
    speed->setHint("changed");
    QVERIFY(file->defChanged() && !copy.defChanged() && copy.paramDef("Speed").hint().isEmpty());
    copy.paramDefPtr("Speed")->setHint("too");
    QVERIFY(copy.defChanged() && file->paramDef("Speed").hint() == "changed");

    // A definition clashes with others by what it is now.
    speed->setName("Velocity");
    speed->setId(7);
    QVERIFY(!file->addDef("New", NParamDef::PARAM_TYPE_U8, 7));
    QVERIFY(file->errorMsg().endsWith("belongs to parameter \"Velocity\"."));
    QVERIFY(!file->addDef("Velocity", NParamDef::PARAM_TYPE_U8, 8));
    QVERIFY(file->addDef("Speed", NParamDef::PARAM_TYPE_U8, 1));
    speed->setChangedFlag(nullptr);
    file->clearChanged();
    file->paramDefPtr("Velocity")->setHint("again");
    QVERIFY(file->defChanged());
  }

  void editedDefinitionsAreFoundByWhatTheyAreNow() {
    const auto file = makeSmall();
    QVector<CParamDefItem*> definitions;
    for (const QString& name : file->defNames()) definitions += file->paramDefPtr(name);
    std::mt19937 random(4711);
    for (int edit = 0; edit < 2000; ++edit) {
      CParamDefItem& definition = *definitions.at(int(random() % 4));
      const auto id = quint32(random() % 8);
      const QString name = QString("D%1").arg(random() % 8);
      file->clearChanged();
      const bool isEdit = id != definition.id() || name != definition.name();
      if (edit % 2 == 0) definition = CParamDefItem(name, NParamDef::PARAM_TYPE_U8, id);
      if (edit % 2 == 1) definition.setId(id), definition.setName(name);
      QVERIFY(file->defChanged() || !isEdit);
      for (quint32 i = 0; i < 8; ++i) {
        const QString someName = QString("D%1").arg(i);
        const QString found = file->nameById(i);
        bool isName = false;
        bool isId = false;
        for (const CParamDefItem* each : qAsConst(definitions)) {
          isName |= each->name() == someName;
          isId |= each->id() == i && each->name() == found;
        }
        QCOMPARE(file->paramDef(someName).name(), isName ? someName : QString());
        QVERIFY2(isId != found.isEmpty(), qPrintable(found));
      }
    }
  }

  void whatHasNoIdIsNotFoundByOne() {
    for (const auto create : {&F::create, &F::createSingle}) {
      const CParameterFilePtr file(create(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
      file->loadParamDefFile(example("TwoAxisDrive.xpdef"), 0x10000);
      file->addDef("None", NParamDef::PARAM_TYPE_U8, NParamDef::NO_ID);
      file->addDef("Zero", NParamDef::PARAM_TYPE_U8, 0);
      for (const char* name : {"None", "Zero"})
        QVERIFY(file->addParameter(file->rootGroup(1), name));
      auto& impl = dynamic_cast<CParameterFileBaseImpl&>(*file);
      CSubDeviceTree& tree = impl.allTrees().begin()->second.at(1);
      QVERIFY(tree.addParameter(tree.root(), "", 3, CParamVal("nameless")));
      const QString before = NParamFileText::all(*file);
      QVERIFY(file->idByName("None") == NParamDef::NO_ID && file->idByName("Zero") == 0);
      QCOMPARE(file->errorMsg(), QString());
      QVERIFY(file->isReferenced(0u) && !file->isReferenced("Zero"));
      QVERIFY(file->referencedBy("Zero").isEmpty());
      for (const quint32 id : {0u, NParamDef::NO_ID, 77777u}) {
        QVERIFY(!file->setParamValue(id, CParamVal(1U), 1));
        QCOMPARE(file->errorMsg(), QString("There is no parameter defined with id %1.").arg(id));
        QVERIFY(!file->setAndMarkParamValue(id, CParamVal(1U), 1));
        QVERIFY(file->paramValue(id, 1).isNull() && file->paramDef(id).name().isEmpty());
      }
      QCOMPARE(NParamFileText::all(*file), before);
    }
  }

  void referencesComeFromVisibleDefinitions() {
    const auto file = loadDrive();
    int references = 0;
    for (const QString& name : file->defNames()) {
      const CParamDefItem definition = file->paramDef(name);
      const bool counts = definition.id() != 0 && definition.hasVisibleValues();
      QCOMPARE(file->referencedBy(definition.visibleId()).contains(definition.id()), counts);
      QCOMPARE(file->referencedBy(definition.unitId()).contains(definition.id()), counts);
      references += counts ? 1 : 0;
      QCOMPARE(file->isReferenced(name), !file->referencedBy(name).isEmpty());
    }
    QVERIFY(references > 10 && !file->isReferenced("no such name"));
  }

  void aCopyHasItsOwnOfEverything() {
    const auto file = loadDrive();
    file->setParamValue(file->paramNames(2).first(), CParamVal("x"), 2);
    CParameterFileBaseImpl copy(*dynamic_cast<CParameterFileBaseImpl*>(file.get()), nullptr);
    QVERIFY(!copy.isChanged());
    file->clearChanged();
    const QString before = NParamFileText::all(copy);
    QCOMPARE(before, NParamFileText::all(*file));
    editMuch(*file);
    file->removeHardwareId("KTO-2A-32");
    QCOMPARE(NParamFileText::all(copy), before);
    file->paramDefPtr(file->defNames().first())->setHint("x");
    file->clear();
    QCOMPARE(NParamFileText::all(*file), NParamFileText::all(*makeFile()));
    QVERIFY(file->isDefEmpty() && !file->isReferenced(0U));
  }

  void valuesAndMarks() {
    const auto file = makeSmall();
    for (const char* same : {"0x0a", "10"})  // was 0xa
      QVERIFY(file->setAndMarkParamValue("Speed", CParamVal(same), 1));
    ICParamTreeNode* speed = file->findParameter(file->rootGroup(1), "Speed");
    QVERIFY(!file->isChanged() && !speed->property(NParamDef::PROPERTY_CHANGED).isValid());
    QCOMPARE(file->paramValue(1U, 1), CParamVal("0xa"));
    QVERIFY(file->setAndMarkParamValue(1U, CParamVal("11"), 1));
    QCOMPARE(speed->property(NParamDef::PROPERTY_CHANGED), QVariant(true));
    QCOMPARE(file->changedList(), QStringList("A"));
    QVERIFY(file->paramChanged("A") && !file->paramChanged("a"));
    QVERIFY(file->setAndMarkParamValue("Mode", CParamVal("-01"), 1));  // signed: by their texts
    QCOMPARE(values(*file), QString("11 -01"));
    file->removeAllProperties();
    QVERIFY(!speed->property(NParamDef::PROPERTY_CHANGED).isValid());
    file->clearChanged();
    QVERIFY(!file->isChanged() && file->setParamValue(2U, CParamVal("-01"), 1));
    file->setHwIdChanged("B");
    file->setHwIdChanged("A");
    QCOMPARE(file->changedList(), QStringList({"A", "B"}));
  }

  void defaultsStopAtAnEmptyGroup() {
    const auto file = makeSmall();
    for (const bool hasEmpty : {false, true}) {
      file->setParamValue("Speed", CParamVal("1"), 1);
      file->setParamValue("Mode", CParamVal("1"), 1);
      if (hasEmpty) file->addGroup(file->subGroup("G", 1), "Empty");
      QCOMPARE(file->loadDefaultValues(), !hasEmpty);
      QCOMPARE(values(*file), QString(hasEmpty ? "0xa 1" : "0xa -1"));
    }
    QVERIFY(!file->loadDefaultValues(nullptr) && makeFile()->loadDefaultValues());
  }

  void hardwareIdsComeAndGo() {
    const auto file = makeSmall();
    QVERIFY(file->addHardwareId("B") && file->addHardwareId("B"));
    QCOMPARE(file->hardwareId(), QString("B"));
    QCOMPARE(file->hardwareIds(), QStringList("A"));
    QVERIFY(!file->removeHardwareId("B"));
    file->rootGroup(7);
    QCOMPARE(file->hardwareIds(), QStringList({"A", "B"}));
    QVERIFY(!file->isChanged() && file->renameHardwareId("A", "C"));
    QCOMPARE(file->hardwareId(), QString("B"));
    QVERIFY(file->renameHardwareId("B", "D"));
    QCOMPARE(file->hardwareId(), QString("D"));
    QVERIFY(file->removeHardwareId("C"));
    QCOMPARE(file->changedList(), QStringList({"C", "D"}));
    QCOMPARE(file->hardwareIds(), QStringList("D"));
  }

  void aClonedHardwareIdSharesNothing() {
    const auto file = loadDrive();
    const auto other = loadDrive();
    other->cloneHardwareId("KTO-2A-16", "Copy");
    QVERIFY(file->cloneHardwareIdFromInstance("Copy", other.get()));
    QVERIFY(file->cloneHardwareId("Copy", "Copy 2"));
    QCOMPARE(file->hardwareId(), QString("Copy 2"));
    QCOMPARE(file->changedList(), QStringList({"Copy", "Copy 2"}));
    const auto section = [&](const QString& id) {
      const QString rest = NParamFileText::content(*file).section("hardware id " + id + '\n', 1);
      return rest.section("hardware id ", 0, 0).trimmed();
    };
    const QString whole = NParamFileText::content(*other);
    const QString source = section("KTO-2A-16");
    QCOMPARE(section("Copy 2"), source);
    editMuch(*file);
    QCOMPARE(section("Copy"), source);
    QCOMPARE(section("KTO-2A-16"), source);
    QCOMPARE(NParamFileText::content(*other), whole);
  }

  void subDevicesAreCopied() {
    const auto file = loadDrive();
    const QString name = file->subDevName(3);
    for (const quint8 copy : {quint8(3), quint8(9)}) {
      QVERIFY(file->copySubDevice(2, copy));
      QCOMPARE(file->paramNames(copy), file->paramNames(2));
      for (const QString& parameter : file->paramNames(2)) {
        QCOMPARE(file->paramValue(parameter, copy), file->paramValue(parameter, 2));
        QCOMPARE(file->findParameter(file->rootGroup(copy), parameter)->subDevId(), copy);
      }
    }
    QCOMPARE(file->subDevName(3), name);
    QCOMPARE(file->subDevName(9), file->subDevName(2));
    QCOMPARE(file->subDevType(9), NParamDef::SUB_DEV_TYPE_DRIVE);
    file->setParamValue(file->paramNames(2).first(), CParamVal("edited"), 3);
    QVERIFY(file->paramValue(file->paramNames(2).first(), 2) != CParamVal("edited"));
  }

  void groupPaths() {
    const auto file = makeSmall();
    ICParamTreeNode* inner = file->existingSubGroup("/G\\Inner//", 1);
    QVERIFY(inner && file->subGroup("G/Inner", 1) == inner);
    QCOMPARE(file->existingSubGroup("", 1), file->rootGroup(1));
    QCOMPARE(file->addGroup(inner->parentPtr(), "Inner"), inner);
    QVERIFY(!file->isChanged() && file->subGroup("G/Inner/a/b", 1));
    QCOMPARE(file->changedList(), QStringList("A"));
    QCOMPARE(inner->childPtr("a")->childPtr("b")->rootPtr(), file->rootGroup(1));
    QVERIFY(file->findParameter(inner, "Speed") && !file->findParameter(inner, "Mode"));
    QVERIFY(!file->findParameter(inner->childPtr("a"), "Speed"));
    QVERIFY(file->addGroup(inner, "Mode"));  // the parameter of this name lies elsewhere
    QString path = "a\\b/c";
    QCOMPARE(CParameterFileBaseImpl::getNextSubPath(path) + '|' + path, QString("a|b/c"));
  }

  void groupsNestAsDeepAsAFileCan() {
    QTemporaryDir folder;
    const auto file = makeSmall();
    ICParamTreeNode* group = file->subGroup(QString("g/").repeated(1019), 2);
    QVERIFY(file->addParameter(group, "Speed") && !file->addGroup(group, "g"));
    QVERIFY(file->copySubDevice(2, 3));
    QVERIFY(file->saveParamFile(folder.filePath("a"), QString(), 0x10000));
    const auto again = makeFile();
    QVERIFY2(again->loadParamFile(folder.filePath("a"), QString(), 0x10000),
             qPrintable(again->errorMsg()));
    QCOMPARE(again->paramNames(3), QStringList("Speed"));
  }
};

QTEST_APPLESS_MAIN(tst_ParameterFile)
#include "tst_ParameterFile.moc"
