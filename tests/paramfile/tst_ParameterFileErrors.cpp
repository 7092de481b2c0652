// Every operation that fails says why, and leaves the object as it was.

#include "CKeptLines.h"
#include "CParameterFileBaseImpl.h"
#include "ExampleDrive.h"
#include "ParamFileText.h"

#include <QtTest>

#include <functional>

using COperation = std::function<bool(ICParameterFile&)>;
Q_DECLARE_METATYPE(COperation)

namespace {

/// Some other implementation of the interface cannot be made here without 80 operations; a null
/// pointer is no CParameterFileBaseImpl either.
ICParameterFile* const kOtherClass = nullptr;

}  // namespace

class tst_ParameterFileErrors : public QObject {
  Q_OBJECT

 private slots:
  void failsWithoutAChange_data() {
    QTest::addColumn<COperation>("operation");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const COperation& operation, const QString& message) {
      QTest::newRow(name) << operation << message;
    };
    using F = ICParameterFile;
    const auto speed = [](F& f) { return f.findParameter(f.rootGroup(1), "Speed"); };

    row(
        "select", [](F& f) { return f.selectHardwareId("X"); },
        "Hardware id \"X\" does not exist. Select failed.");
    row(
        "select is exact", [](F& f) { return f.selectHardwareId("a"); },
        "Hardware id \"a\" does not exist. Select failed.");
    row(
        "add", [](F& f) { return f.addHardwareId("A"); },
        "Hardware id \"A\" already exists. Add failed.");
    row(
        "remove active", [](F& f) { return f.removeHardwareId("A"); },
        "Cannot remove the active hardware id \"A\".");
    row(
        "remove", [](F& f) { return f.removeHardwareId("X"); },
        "Hardware id \"X\" does not exist. Remove failed.");
    row(
        "rename unknown", [](F& f) { return f.renameHardwareId("X", "A"); },
        "Hardware id \"X\" does not exist. Rename failed.");
    row(
        "rename to known", [](F& f) { return f.renameHardwareId("A", "A"); },
        "Hardware id \"A\" already exists. Rename failed.");
    row(
        "clone unknown", [](F& f) { return f.cloneHardwareId("X", "A"); },
        "Source hardware id \"X\" does not exist. Clone failed.");
    row(
        "clone to known", [](F& f) { return f.cloneHardwareId("A", "A"); },
        "Hardware id \"A\" already exists. Clone failed.");
    row(
        "clone from other class",
        [](F& f) { return f.cloneHardwareIdFromInstance("A", kOtherClass); },
        "Other instance is not from type CParameterFileBaseImpl. Clone failed.");
    row(
        "clone what the other lacks",
        [](F& f) { return f.cloneHardwareIdFromInstance("X", makeSmall().get()); },
        "Other instance does not contain hardware id \"X\". Clone failed.");
    row(
        "clone from other to known",
        [](F& f) { return f.cloneHardwareIdFromInstance("A", makeSmall().get()); },
        "Hardware id \"A\" already exists. Clone failed.");

    row(
        "set without sub-device", [](F& f) { return f.setParamValue("Speed", CParamVal(1), 9); },
        "setParamValue() failed because there is no parameter list for hardware id \"A\" and sub "
        "device 9");
    row(
        "set without value", [](F& f) { return f.setParamValue("Name", CParamVal("x"), 1); },
        "setParamValue() failed because there is no parameter value for sub device 1 and name "
        "\"Name\"");
    row(
        "set with an argument mark in the name",
        [](F& f) { return f.setParamValue("%1", CParamVal("x"), 1); },
        "setParamValue() failed because there is no parameter value for sub device 1 and name "
        "\"%1\"");
    row(
        "set by unknown id", [](F& f) { return f.setParamValue(99, CParamVal("x"), 1); },
        "setParamValue() failed because there is no parameter value for sub device 1 and name "
        "\"\"");

    row(
        "definition without name",
        [](F& f) { return f.addDef("", NParamDef::PARAM_TYPE_U8, 9) != nullptr; },
        "A parameter definition needs a name.");
    row(
        "definition of reserved name",
        [](F& f) {
          return f.addDef("[standard constructed]", NParamDef::PARAM_TYPE_U8, 9) != nullptr;
        },
        "The name \"[standard constructed]\" is reserved.");
    row(
        "definition of known name",
        [](F& f) { return f.addDef("Speed", NParamDef::PARAM_TYPE_U8, 9) != nullptr; },
        "There is already a parameter defined with name \"Speed\".");
    row(
        "definition of known id",
        [](F& f) { return f.addDef("Other", NParamDef::PARAM_TYPE_U8, 1) != nullptr; },
        "Parameter \"Other\" cannot have the id 1, which belongs to parameter \"Speed\".");

    row(
        "group without parent", [](F& f) { return f.addGroup(nullptr, "x") != nullptr; },
        "addGroup(\"x\") failed because the given parent is NULL!");
    row(
        "group in a parameter", [=](F& f) { return f.addGroup(speed(f), "x") != nullptr; },
        "Adding \"x\" failed because the given parent is no group of the active hardware id!");
    row(
        "group in another object",
        [](F& f) {
          const auto other = makeSmall();
          return f.addGroup(other->rootGroup(1), "x") != nullptr;
        },
        "Adding \"x\" failed because the given parent is no group of the active hardware id!");
    row(
        "group named like a parameter beside it",
        [](F& f) { return f.addGroup(f.rootGroup(1), "Mode") != nullptr; },
        "SubDevice 1 : Adding group \"Mode\" to parent \"rootGroup\" failed because there is "
        "alrady "
        "a "
        "parameter with the same name!");
    row(
        "path through a parameter",
        [](F& f) { return f.subGroup("G/Inner/Speed/x", 1) != nullptr; },
        "SubDevice 1 : Adding group \"Speed\" to parent \"Inner\" failed because there is alrady a "
        "parameter with the same name!");
    row(
        "group without name", [](F& f) { return f.addGroup(f.rootGroup(1), "") != nullptr; },
        "A group needs a name.");
    row(
        "group of reserved name",
        [](F& f) { return f.addGroup(f.rootGroup(1), "[standard constructed]") != nullptr; },
        "The name \"[standard constructed]\" is reserved.");

    row(
        "parameter without parent", [](F& f) { return f.addParameter(nullptr, "Name") != nullptr; },
        "addParameter(\"Name\") failed because the given parent is NULL!");
    row(
        "parameter in a parameter",
        [=](F& f) { return f.addParameter(speed(f), "Name", CParamVal()) != nullptr; },
        "Adding \"Name\" failed because the given parent is no group of the active hardware id!");
    row(
        "parameter without definition",
        [](F& f) { return f.addParameter(f.rootGroup(1), "x") != nullptr; },
        "SubDevice 1 : Adding parameter \"x\" failed because the parameter definition is missing!");
    row(
        "parameter twice in a sub-device",
        [](F& f) { return f.addParameter(f.rootGroup(1), "Speed") != nullptr; },
        "SubDevice 1 : Adding parameter \"Speed\" failed because there is alrady a parameter with "
        "the "
        "same name!");

    row(
        "delete null", [](F& f) { return f.deleteNode(nullptr); },
        "Deleting a node failed because it does not belong to the active hardware id!");
    row(
        "delete in another object",
        [](F& f) {
          const auto other = makeSmall();
          return f.deleteNode(other->rootGroup(1)->childPtr(0));
        },
        "Deleting a node failed because it does not belong to the active hardware id!");
    row(
        "delete root", [](F& f) { return f.deleteNode(f.rootGroup(1)); },
        "SubDevice 1 : Node \"rootGroup\" is the root node and cannot be deleted!");
    row(
        "copy sub-device that is missing", [](F& f) { return f.copySubDevice(9, 1); },
        "Sub device 9 does not exist. Copying it to sub device 1 failed.");
    row(
        "copy sub-device to itself", [](F& f) { return f.copySubDevice(1, 1); },
        "Sub device 1 cannot be copied to itself.");

    row(
        "import to unknown", [](F& f) { return f.importParamFile(makeSmall().get(), "A", "X"); },
        "Destination hardware id \"X\" does not exist. Import failed.");
    row(
        "import file to unknown", [](F& f) { return f.importParamFile("none", "A", "X"); },
        "Destination hardware id \"X\" does not exist. Import failed.");
    row(
        "import from other class", [](F& f) { return f.importParamFile(kOtherClass, "A", "A"); },
        "Other instance is not from type CParameterFileBaseImpl. Import failed.");
    row(
        "import what the other lacks",
        [](F& f) { return f.importParamFile(makeSmall().get(), "X", "A"); },
        "Other instance does not contain source hardware id \"X\". Import failed.");
    row(
        "import from an empty object",
        [](F& f) { return f.importParamFile(makeFile().get(), "", "A"); },
        "The parameter file does not contain any hardware ID.");
    row(
        "import without definition",
        [](F& f) {
          const auto other = makeSmall();
          other->setParamValue("Speed", CParamVal(77U), 1);
          other->deleteNode(other->rootGroup(1)->childPtr("Mode"));
          const auto undefined = makeFile();
          undefined->cloneHardwareIdFromInstance("A", &f);
          undefined->clearChanged();
          const QString before = NParamFileText::all(*undefined);
          const bool done = undefined->importParamFile(other.get(), "A", "A");
          // The object under test only lends its trees here; its message is the other's.
          return done || NParamFileText::all(*undefined) != before ||
                 f.setParamValue(undefined->errorMsg(), CParamVal(), 1);
        },
        "setParamValue() failed because there is no parameter value for sub device 1 and name "
        "\"Definition of parameter \"Mode\" not found. Import failed.\"");
    row(
        "import a missing file", [](F& f) { return f.importParamFile("/no/such", "A", "A"); },
        "File \"/no/such\": the file cannot be opened: No such file or directory.");
    row(
        "save what is not there", [](F& f) { return f.saveParamFile("/no/such", "X", 0x10000); },
        "Saving parameters for hardware ID \"X\" failed because there are no parameters.");
    row(
        "save where there is no folder",
        [](F& f) { return f.saveParamFile("/no/such", "", 0x10000); },
        "File \"/no/such\": the file cannot be written: No such file or directory.");
  }
  void failsWithoutAChange() {
    QFETCH(COperation, operation);
    QFETCH(QString, message);
    const auto file = makeSmall();
    const QString before = NParamFileText::all(*file);
    QVERIFY(!operation(*file));
    QCOMPARE(file->errorMsg(), message);
    QCOMPARE(NParamFileText::all(*file), before);
  }

  void lookupsThatFindNothing_data() {
    QTest::addColumn<COperation>("lookup");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("context");
    using F = ICParameterFile;
    const auto row = [](const char* name, const COperation& lookup, const QString& message,
                        const QString& context) {
      QTest::newRow(name) << lookup << message << context;
    };
    row(
        "id", [](F& f) { return f.idByName("x") == NParamDef::NO_ID; },
        "There is no parameter defined with name \"x\".", "Parameter file idByName() failed : ");
    row(
        "name", [](F& f) { return f.nameById(99).isEmpty(); },
        "There is no parameter defined with id 99.", "Parameter file nameById() failed : ");
    row(
        "definition", [](F& f) { return !f.paramDef(99).valid(); },
        "There is no parameter defined with id 99.", "Parameter file nameById() failed : ");
    row(
        "pointer", [](F& f) { return f.paramDefPtr("x") == nullptr; },
        "There is no parameter defined with name x.", "Parameter file paramDefPtr() failed : ");
    row(
        "value without message",
        [](F& f) {
          return f.paramValue("Speed", 9).isNull() && f.paramValue("x", 1).isNull() &&
                 !f.setAndMarkParamValue("x", CParamVal(), 1) &&
                 !f.setAndMarkParamValue("Speed", CParamVal(), 9) && !f.paramDef("x").valid() &&
                 f.referencedBy("x").isEmpty() && f.existingSubGroup("Mode", 1) == nullptr &&
                 f.existingSubGroup("", 9) == nullptr;
        },
        "", "");
  }
  void lookupsThatFindNothing() {
    QFETCH(COperation, lookup);
    QFETCH(QString, message);
    QFETCH(QString, context);
    CKeptLines log;
    const auto small = makeSmall();
    CParameterFileBaseImpl file(*dynamic_cast<CParameterFileBaseImpl*>(small.get()), &log);
    QVERIFY(lookup(file));
    QCOMPARE(file.errorMsg(), message);
    QCOMPARE(log.lines, message.isEmpty() ? QStringList() : QStringList(context + message));
  }
};
QTEST_APPLESS_MAIN(tst_ParameterFileErrors)
#include "tst_ParameterFileErrors.moc"
