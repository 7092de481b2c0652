#include "ExampleDrive.h"
#include "GoldenFiles.h"
#include "ParamFileText.h"

#include <QTemporaryDir>

#include <functional>
#include <random>

using namespace NTestFiles;
using F = ICParameterFile;
using COperation = std::function<bool(F&)>;
using NParamDef::PARAM_TYPE_U8;

/// An operation, called like its expression of the small file f.
#define FAILS(operation) \
  std::pair(QString(#operation), COperation([](F& f) { return bool(operation); }))

namespace {

/// Some other implementation of the interface cannot be made here without 80 operations; a null
/// pointer is no CParameterFileBaseImpl either.
ICParameterFile* const kOtherClass = nullptr;

const QMap<QString, COperation> kOperations = {
    FAILS(f.selectHardwareId("X")),
    FAILS(f.addHardwareId("A")),
    FAILS(f.removeHardwareId("A")),
    FAILS(f.removeHardwareId("X")),
    FAILS(f.renameHardwareId("X", "A")),
    FAILS(f.renameHardwareId("A", "A")),
    FAILS(f.cloneHardwareId("X", "A")),
    FAILS(f.cloneHardwareId("A", "A")),
    FAILS(f.cloneHardwareIdFromInstance("A", kOtherClass)),
    FAILS(f.cloneHardwareIdFromInstance("X", makeSmall().get())),
    FAILS(f.cloneHardwareIdFromInstance("A", makeSmall().get())),
    FAILS(f.setParamValue("Speed", CParamVal(1), 9)),
    FAILS(f.setParamValue("%1", CParamVal("x"), 1)),
    FAILS(f.addDef("", PARAM_TYPE_U8, 9)),
    FAILS(f.addDef("[standard constructed]", PARAM_TYPE_U8, 9)),
    FAILS(f.addDef("Speed", PARAM_TYPE_U8, 9)),
    FAILS(f.addDef("Other", PARAM_TYPE_U8, 1)),
    FAILS(f.addGroup(nullptr, "x")),
    FAILS(f.addGroup(f.rootGroup(1)->childPtr("Mode"), "x")),
    FAILS(f.addGroup(makeSmall()->rootGroup(1), "x")),
    FAILS(f.addGroup(f.rootGroup(1), "Mode")),
    FAILS(f.addGroup(f.rootGroup(1), "")),
    FAILS(f.subGroup("G/Inner/Speed/x", 1)),
    FAILS(f.subGroup("G/New/[standard constructed]", 1)),
    FAILS(f.subGroup(QString("g/").repeated(1020), 9)),
    FAILS(f.addParameter(nullptr, "Name")),
    FAILS(f.addParameter(f.rootGroup(1), "x")),
    FAILS(f.addParameter(f.rootGroup(1), "Speed")),
    FAILS(f.deleteNode(nullptr)),
    FAILS(f.deleteNode(makeSmall()->rootGroup(1)->childPtr(0))),
    FAILS(f.deleteNode(f.rootGroup(1))),
    FAILS(f.copySubDevice(9, 1)),
    FAILS(f.copySubDevice(1, 1)),
    FAILS(f.importParamFile(makeSmall().get(), "A", "X")),
    FAILS(f.importParamFile(kOtherClass, "A", "A")),
    FAILS(f.importParamFile(makeFile().get(), "", "A")),
    FAILS(f.importParamFile("/no/such", "A", "A")),
    FAILS(f.saveParamFile("/no/such", "X", 0x10000)),
    FAILS(f.saveParamFile("/no/such", "", 0x10000)),
    FAILS(f.idByName("x") != NParamDef::NO_ID),
    FAILS(!f.nameById(99).isEmpty()),
    FAILS(f.paramDefPtr("x"))};

/// The values of Speed and Mode in a small device.
QString values(const F& file) {
  return file.paramValue("Speed", 1).asStr() + ' ' + file.paramValue("Mode", 1).asStr();
}

}  // namespace

class tst_ParameterFile : public QObject {
  Q_OBJECT

 private slots:
  /// Every operation that fails says why, and leaves the object as it was.
  void failuresChangeNothing_data() {
    NGoldenFiles::addTable("paramfile/failures.txt", {"operation", "logged"});
  }
  void failuresChangeNothing() {
    const auto [operation, logged] = textCells("operation", "logged");
    const auto run = kOperations.value(operation);
    SLoggedSmall small;
    const QString before = NParamFileText::all(small.file);
    QVERIFY(run && !run(small.file));
    QCOMPARE(small.log.lines, QStringList(logged));
    QCOMPARE(small.file.errorMsg(), logged.section(" failed : ", -1));
    QCOMPARE(NParamFileText::all(small.file), before);
  }

  void laterFilesJoinWhatThereIs() {
    QTemporaryDir folder;
    const auto second = makeSmall();
    second->deleteNode(second->rootGroup(1)->childPtr("Mode"));
    second->addParameter(second->subGroup("G/Inner/New", 1), "Name", CParamVal("n"));
    second->addParameter(second->subGroup("Other", 2), "Loose");
    second->setParamValue("Speed", CParamVal(99U), 1);
    second->setSubDevType(1, NParamDef::SUB_DEV_TYPE_DRIVE);
    second->setMetaData("author", "comment");
    second->paramDefPtr("Speed")->setId(5);
    QVERIFY(second->saveParamFile(folder.filePath("2"), QString(), 0x10000));
    QVERIFY(second->saveParamDefFile(folder.filePath("d"), 0x10000));
    const auto first = makeSmall();
    first->setSubDevName(1, "One");
    first->clearChanged();
    ICParamTreeNode* node = first->findParameter(first->rootGroup(1), "Speed");
    CParamDefItem* speed = first->paramDefPtr("Speed");

    QVERIFY(first->loadParamFile(folder.filePath("2"), "A", 0x10002));
    QCOMPARE(first->paramNames(1) + first->paramNames(2),
             QStringList({"Speed", "Name", "Mode", "Loose"}));
    QCOMPARE(values(*first), QString("0x63 -1"));
    QCOMPARE(first->findParameter(first->rootGroup(1), "Speed"), node);
    QCOMPARE(first->subDevName(1) + first->comment(), QString("Onecomment"));
    QCOMPARE(first->subDeviceIds(NParamDef::SUB_DEV_TYPE_DRIVE), QList<quint8>{1});
    QVERIFY(!first->isChanged());

    QVERIFY(first->loadParamDefFile(folder.filePath("d"), 0x10000));
    for (quint32 id = 100; id < 1100; ++id)
      first->addDef("P" + QString::number(id), PARAM_TYPE_U8, id);
    QVERIFY(first->paramDefPtr("Speed") == speed && speed->id() == 5);
    QCOMPARE(first->nameById(5) + first->nameById(1), QString("Speed"));
    speed->setChangedFlag(nullptr);
    first->clearChanged();
    first->paramDefPtr("Speed")->setHint("again");
    QVERIFY(first->defChanged());
  }

  void editedDefinitionsAreFoundByWhatTheyAreNow() {
    const auto file = makeSmall();
    QVector<CParamDefItem*> definitions;
    for (const QString& name : file->defNames()) definitions += file->paramDefPtr(name);
    std::mt19937 random(4711);
    for (int edit = 0; edit < 2000; ++edit) {
      CParamDefItem& definition = *definitions.at(int(random() % 4));
      const auto id = quint32(random() % 8);
      const QString name = QString::number(random() % 8);
      file->clearChanged();
      const bool isEdit = id != definition.id() || name != definition.name();
      if (edit % 2 == 0) definition = CParamDefItem(name, PARAM_TYPE_U8, id);
      if (edit % 2 == 1) definition.setId(id), definition.setName(name);
      QVERIFY(file->defChanged() || !isEdit);
      QSet<QString> names;
      QSet<quint32> ids;
      for (const CParamDefItem* each : qAsConst(definitions)) {
        names += each->name();
        if (each->name() == file->nameById(each->id())) ids += each->id();
      }
      for (quint32 i = 0; i < 8; ++i) {
        QCOMPARE(file->paramDef(QString::number(i)).valid(), names.contains(QString::number(i)));
        QCOMPARE(file->nameById(i).isEmpty(), !ids.contains(i));
      }
      // A definition clashes with others by what it is now.
      QVERIFY(!file->addDef(definition.name(), PARAM_TYPE_U8, 9));
      if (id == 0) continue;
      const QString owner = '"' + file->nameById(id) + "\".";
      QVERIFY(!file->addDef("new", PARAM_TYPE_U8, id));
      QVERIFY(file->errorMsg().endsWith(owner));
    }
  }

  void whatHasNoIdIsNotFoundByOne() {
    for (const auto create : {&F::create, &F::createSingle}) {
      const CParameterFilePtr file(create(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
      file->loadParamDefFile(example("TwoAxisDrive.xpdef"), 0x10000);
      file->addDef("None", PARAM_TYPE_U8, NParamDef::NO_ID);
      file->addDef("Zero", PARAM_TYPE_U8, 0);
      for (const char* name : {"None", "Zero"})
        QVERIFY(file->addParameter(file->rootGroup(1), name));
      auto& impl = dynamic_cast<CParameterFileBaseImpl&>(*file);
      CSubDeviceTree& tree = impl.allTrees().begin()->second.at(1);
      QVERIFY(tree.addParameter(tree.root(), "", 3, CParamVal("nameless")));
      const QString before = NParamFileText::all(*file);
      QVERIFY(file->idByName("None") == NParamDef::NO_ID && file->idByName("Zero") == 0);
      QVERIFY(file->errorMsg().isEmpty() && file->isReferenced(0u));
      QVERIFY(!file->isReferenced("Zero") && file->referencedBy("Zero").isEmpty());
      for (const quint32 id : {0u, NParamDef::NO_ID, 77777u}) {
        QVERIFY(!file->setParamValue(id, CParamVal(1U), 1));
        QCOMPARE(file->errorMsg(), QString("There is no parameter defined with id %1.").arg(id));
        QVERIFY(!file->setAndMarkParamValue(id, CParamVal(1U), 1));
        QVERIFY(file->paramValue(id, 1).isNull() && file->paramDef(id).name().isEmpty());
      }
      QCOMPARE(NParamFileText::all(*file), before);
    }
  }

  void copiesShareNothing() {
    const auto file = loadDrive();
    const auto other = loadDrive();
    other->cloneHardwareId("KTO-2A-16", "Copy");
    const QString whole = NParamFileText::all(*other);
    QVERIFY(file->cloneHardwareIdFromInstance("Copy", other.get()));
    QVERIFY(file->cloneHardwareId("Copy", "Copy 2") && file->hardwareId() == "Copy 2");
    QCOMPARE(file->changedList(), QStringList({"Copy", "Copy 2"}));
    CParameterFileBaseImpl copy(*dynamic_cast<CParameterFileBaseImpl*>(file.get()), nullptr);
    QVERIFY(!copy.isChanged());
    file->clearChanged();
    const QString before = NParamFileText::all(copy);
    QCOMPARE(before, NParamFileText::all(*file));
    const auto section = [&](const QString& id) {
      const QString rest = NParamFileText::content(*file).section("hardware id " + id + '\n', 1);
      return rest.section("hardware id ", 0, 0).trimmed();
    };
    const QString source = section("KTO-2A-16");
    QCOMPARE(section("Copy 2"), source);

    for (const QString& name : file->paramNames(2))
      file->setAndMarkParamValue(name, CParamVal("edited"), 2);
    file->deleteNode(file->rootGroup(3)->childPtr(0));
    file->removeHardwareId("KTO-2A-32");
    file->paramDefPtr(file->defNames().first())->setHint("x");
    QCOMPARE(section("Copy") + section("KTO-2A-16"), source + source);
    QCOMPARE(NParamFileText::all(*other), whole);
    QCOMPARE(NParamFileText::all(copy), before);
    copy.paramDefPtr(copy.defNames().first())->setHint("too");
    QVERIFY(copy.defChanged() && file->paramDef(copy.defNames().first()).hint() == "x");
    file->clear();
    QCOMPARE(NParamFileText::all(*file), NParamFileText::all(*makeFile()));
    QVERIFY(file->isDefEmpty() && !file->isReferenced(0U));
  }

  void valuesMarksAndDefaults() {
    const auto file = makeSmall();
    for (const char* same : {"0x0a", "10"})  // was 0xa
      QVERIFY(file->setAndMarkParamValue("Speed", CParamVal(same), 1));
    ICParamTreeNode* speed = file->findParameter(file->rootGroup(1), "Speed");
    QVERIFY(!file->isChanged() && !speed->property(NParamDef::PROPERTY_CHANGED).isValid());
    QCOMPARE(file->paramValue(1U, 1), CParamVal("0xa"));
    QVERIFY(file->setAndMarkParamValue(1U, CParamVal("11"), 1));
    QCOMPARE(speed->property(NParamDef::PROPERTY_CHANGED), QVariant(true));
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

    QVERIFY(file->loadDefaultValues());
    QCOMPARE(values(*file), QString("0xa -1"));
    QVERIFY(file->setParamValue(1U, "1", 1) && file->setParamValue(2U, "1", 1));
    file->addGroup(file->subGroup("G", 1), "Empty");
    QVERIFY(!file->loadDefaultValues());  // which stops there
    QCOMPARE(values(*file), QString("0xa 1"));
    QVERIFY(!file->loadDefaultValues(nullptr) && makeFile()->loadDefaultValues());
  }

  void hardwareIdsComeAndGo() {
    const auto file = makeSmall();
    QVERIFY(file->addHardwareId("B") && file->addHardwareId("B"));
    QCOMPARE(file->hardwareId() + file->hardwareIds().join(""), QString("BA"));
    file->rootGroup(7);
    QVERIFY(!file->isChanged() && file->renameHardwareId("A", "C") && file->hardwareId() == "B");
    QVERIFY(file->renameHardwareId("B", "D") && file->removeHardwareId("C"));
    QCOMPARE(file->changedList(), QStringList({"C", "D"}));
    QCOMPARE(file->hardwareId() + file->hardwareIds().join(""), QString("DD"));
  }

  /// What is done to a hardware id by its name is what is done to the active one.
  void everyHardwareIdCanBeUsed() {
    const auto edit = [](F& f, const auto&... id) {
      return f.setParamValue(id..., "Mode", CParamVal(7), 1) &&
             f.setAndMarkParamValue(id..., "Speed", CParamVal(8), 1) &&
             f.copySubDevice(id..., 1, 2) &&
             f.deleteNode(id..., f.existingSubGroup(id..., "G", 2)) &&
             f.addParameter(id..., f.addGroup(id..., f.subGroup(id..., "a/b", 2), "c"), "Name") &&
             f.addParameter(id..., f.rootGroup(id..., 3), "Loose", CParamVal("1")) &&
             f.subDeviceIds(id...) == QList<quint8>({1, 2, 3}) && f.doesSubDeviceExist(id..., 3) &&
             f.paramNames(id..., 2) == QStringList({"Mode", "Name"}) &&
             f.paramValue(id..., "Speed", 1) == CParamVal("8");
    };
    const auto byName = makeSmall();
    const auto active = makeSmall();
    for (F* file : {byName.get(), active.get()}) file->cloneHardwareId("A", "B");
    QVERIFY(byName->selectHardwareId("A"));
    QVERIFY(edit(*active) && edit(*byName, QString("B")));
    QCOMPARE(byName->hardwareId() + byName->changedList().join(""), QString("AB"));
    QVERIFY(!byName->deleteNode("A", byName->rootGroup("B", 1)->childPtr("Mode")));
    QVERIFY(!byName->rootGroup("X", 1) && !byName->subGroup("X", "a", 1));
    QVERIFY(byName->selectHardwareId("B"));
    QCOMPARE(NParamFileText::all(*byName), NParamFileText::all(*active));
  }

  void subDevicesAreCopied() {
    const auto file = loadDrive();
    const QString name = file->subDevName(3);
    QVERIFY(file->copySubDevice(2, 3) && file->copySubDevice(2, 9));
    QCOMPARE(file->subDevName(3) + file->subDevName(9), name + file->subDevName(2));
    QCOMPARE(file->subDevType(9), F::subDeviceTypeFromStr("Drive"));
    QCOMPARE(int(F::subDeviceTypeFromStr("drive")), 0);
    QCOMPARE(file->paramNames(3), file->paramNames(2));
    for (const QString& parameter : file->paramNames(2))
      QCOMPARE(file->paramValue(parameter, 9), file->paramValue(parameter, 2));
    QCOMPARE(file->findParameter(file->rootGroup(9), "MotorName")->subDevId(), uchar(9));
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
    QVERIFY(file->subGroup(QString("g/").repeated(1019), 2) && file->copySubDevice(2, 3));
    QString path = "a\\b/c";
    QCOMPARE(CParameterFileBaseImpl::getNextSubPath(path) + '|' + path, QString("a|b/c"));
  }
};

QTEST_APPLESS_MAIN(tst_ParameterFile)
#include "tst_ParameterFile.moc"
