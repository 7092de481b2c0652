// Every operation that fails says why, and leaves the object as it was.

#include "ExampleDrive.h"
#include "ParamFileText.h"
#include "TestRows.h"

#include <functional>

using F = ICParameterFile;
using COperation = std::function<bool(F&)>;
Q_DECLARE_METATYPE(COperation)

/// A row, called like its operation, which is an expression of the file f.
#define FAILS(operation, message) \
  addRow(#operation, COperation([=](F& f) { return bool(operation); }), message)

namespace {

/// Some other implementation of the interface cannot be made here without 80 operations; a null
/// pointer is no CParameterFileBaseImpl either.
ICParameterFile* const kOtherClass = nullptr;

}  // namespace

class tst_ParameterFileErrors : public QObject {
  Q_OBJECT

 private slots:
  void failsWithoutAChange_data() {
    addColumns<COperation, QString>("operation", "message");
    const auto speed = [](F& f) { return f.findParameter(f.rootGroup(1), "Speed"); };

    FAILS(f.selectHardwareId("X"), "Hardware id \"X\" does not exist. Select failed.");
    FAILS(f.selectHardwareId("a"), "Hardware id \"a\" does not exist. Select failed.");
    FAILS(f.addHardwareId("A"), "Hardware id \"A\" already exists. Add failed.");
    FAILS(f.removeHardwareId("A"), "Cannot remove the active hardware id \"A\".");
    FAILS(f.removeHardwareId("X"), "Hardware id \"X\" does not exist. Remove failed.");
    FAILS(f.renameHardwareId("X", "A"), "Hardware id \"X\" does not exist. Rename failed.");
    FAILS(f.renameHardwareId("A", "A"), "Hardware id \"A\" already exists. Rename failed.");
    FAILS(f.cloneHardwareId("X", "A"), "Source hardware id \"X\" does not exist. Clone failed.");
    FAILS(f.cloneHardwareId("A", "A"), "Hardware id \"A\" already exists. Clone failed.");
    FAILS(f.cloneHardwareIdFromInstance("A", kOtherClass),
          "Other instance is not from type CParameterFileBaseImpl. Clone failed.");
    FAILS(f.cloneHardwareIdFromInstance("X", makeSmall().get()),
          "Other instance does not contain hardware id \"X\". Clone failed.");
    FAILS(f.cloneHardwareIdFromInstance("A", makeSmall().get()),
          "Hardware id \"A\" already exists. Clone failed.");

    FAILS(f.setParamValue("Speed", CParamVal(1), 9),
          "setParamValue() failed because there is no parameter list for hardware id \"A\" and sub "
          "device 9");
    FAILS(f.setParamValue("Name", CParamVal("x"), 1),
          "setParamValue() failed because there is no parameter value for sub device 1 and name "
          "\"Name\"");
    FAILS(f.setParamValue("%1", CParamVal("x"), 1),
          "setParamValue() failed because there is no parameter value for sub device 1 and name "
          "\"%1\"");

    FAILS(f.addDef("", NParamDef::PARAM_TYPE_U8, 9), "A parameter definition needs a name.");
    FAILS(f.addDef("[standard constructed]", NParamDef::PARAM_TYPE_U8, 9),
          "The name \"[standard constructed]\" is reserved.");
    FAILS(f.addDef("Speed", NParamDef::PARAM_TYPE_U8, 9),
          "There is already a parameter defined with name \"Speed\".");
    FAILS(f.addDef("Other", NParamDef::PARAM_TYPE_U8, 1),
          "Parameter \"Other\" cannot have the id 1, which belongs to parameter \"Speed\".");

    FAILS(f.addGroup(nullptr, "x"), "addGroup(\"x\") failed because the given parent is NULL!");
    FAILS(f.addGroup(speed(f), "x"),
          "Adding \"x\" failed because the given parent is not a group of the active hardware id!");
    FAILS(f.addGroup(makeSmall()->rootGroup(1), "x"),
          "Adding \"x\" failed because the given parent is not a group of the active hardware id!");
    FAILS(f.addGroup(f.rootGroup(1), "Mode"),
          "SubDevice 1 : Adding group \"Mode\" to parent \"rootGroup\" failed because there is "
          "alrady a parameter with the same name!");
    FAILS(f.subGroup("G/Inner/Speed/x", 1),
          "SubDevice 1 : Adding group \"Speed\" to parent \"Inner\" failed because there is alrady "
          "a parameter with the same name!");
    FAILS(f.subGroup("G/New/[standard constructed]", 1),
          "The name \"[standard constructed]\" is reserved.");
    FAILS(
        f.subGroup(QString("g/").repeated(1020), 9),
        "SubDevice 9 : Adding group \"g\" failed because groups can be nested 1019 deep at most!");
    FAILS(f.addGroup(f.rootGroup(1), ""), "A group needs a name.");
    FAILS(f.addGroup(f.rootGroup(1), "[standard constructed]"),
          "The name \"[standard constructed]\" is reserved.");

    FAILS(f.addParameter(nullptr, "Name"),
          "addParameter(\"Name\") failed because the given parent is NULL!");
    FAILS(f.addParameter(speed(f), "Name", CParamVal()),
          "Adding \"Name\" failed because the given parent is not a group of the active hardware "
          "id!");
    FAILS(
        f.addParameter(f.rootGroup(1), "x"),
        "SubDevice 1 : Adding parameter \"x\" failed because the parameter definition is missing!");
    FAILS(f.addParameter(f.rootGroup(1), "Speed"),
          "SubDevice 1 : Adding parameter \"Speed\" failed because there is alrady a parameter "
          "with the same name!");

    FAILS(f.deleteNode(nullptr),
          "Deleting a node failed because it does not belong to the active hardware id!");
    FAILS(f.deleteNode(makeSmall()->rootGroup(1)->childPtr(0)),
          "Deleting a node failed because it does not belong to the active hardware id!");
    FAILS(f.deleteNode(f.rootGroup(1)),
          "SubDevice 1 : Node \"rootGroup\" is the root node and cannot be deleted!");
    FAILS(f.copySubDevice(9, 1), "Sub device 9 does not exist. Copying it to sub device 1 failed.");
    FAILS(f.copySubDevice(1, 1), "Sub device 1 cannot be copied to itself.");

    FAILS(f.importParamFile(makeSmall().get(), "A", "X"),
          "Destination hardware id \"X\" does not exist. Import failed.");
    FAILS(f.importParamFile("none", "A", "X"),
          "Destination hardware id \"X\" does not exist. Import failed.");
    FAILS(f.importParamFile(kOtherClass, "A", "A"),
          "Other instance is not from type CParameterFileBaseImpl. Import failed.");
    FAILS(f.importParamFile(makeSmall().get(), "X", "A"),
          "Other instance does not contain source hardware id \"X\". Import failed.");
    FAILS(f.importParamFile(makeFile().get(), "", "A"),
          "The parameter file does not contain any hardware ID.");
    FAILS(f.importParamFile("/no/such", "A", "A"),
          "File \"/no/such\": the file cannot be opened: No such file or directory.");

    FAILS(f.saveParamFile("/no/such", "X", 0x10000),
          "Saving parameters for hardware ID \"X\" failed because there are no parameters.");
    FAILS(f.saveParamFile("/no/such", "", 0x10000),
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

  void tellsWhatIsNotThere_data() {
    addColumns<COperation, QString>("operation", "message");
    FAILS(f.idByName("x") != NParamDef::NO_ID,
          "idByName() failed : There is no parameter defined with name \"x\".");
    FAILS(!f.nameById(99).isEmpty(),
          "nameById() failed : There is no parameter defined with id 99.");
    FAILS(f.paramDef(99).valid(), "nameById() failed : There is no parameter defined with id 99.");
    FAILS(f.paramDefPtr("x"), "paramDefPtr() failed : There is no parameter defined with name x.");
  }
  void tellsWhatIsNotThere() {
    QFETCH(COperation, operation);
    QFETCH(QString, message);
    SLoggedSmall small;
    QVERIFY(!operation(small.file));
    QCOMPARE(small.log.lines, QStringList("Parameter file " + message));
    QCOMPARE(small.file.errorMsg(), message.section(" : ", 1));
  }

  void findsNothingSilently() {
    SLoggedSmall small;
    QVERIFY(small.file.paramValue("Speed", 9).isNull());
    QVERIFY(small.file.paramValue("x", 1).isNull());
    QVERIFY(!small.file.setAndMarkParamValue("x", CParamVal(), 1));
    QVERIFY(!small.file.setAndMarkParamValue("Speed", CParamVal(), 9));
    QVERIFY(!small.file.paramDef("x").valid());
    QVERIFY(small.file.referencedBy("x").isEmpty());
    QVERIFY(!small.file.existingSubGroup("Mode", 1));
    QVERIFY(!small.file.existingSubGroup("", 9));
    QCOMPARE(small.log.lines, QStringList());
    QCOMPARE(small.file.errorMsg(), QString());
  }
};

QTEST_APPLESS_MAIN(tst_ParameterFileErrors)
#include "tst_ParameterFileErrors.moc"
