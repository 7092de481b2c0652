// Every operation that fails says why, and leaves the object as it was.

#include "ExampleDrive.h"
#include "GoldenFiles.h"
#include "ParamFileText.h"

#include <functional>

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
    FAILS(f.addParameter(f.rootGroup(1)->childPtr("Mode"), "Name", CParamVal())),
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

}  // namespace

class tst_ParameterFileErrors : public QObject {
  Q_OBJECT

 private slots:
  void failuresChangeNothing_data() {
    NGoldenFiles::addTable("paramfile/failures.txt", {"operation", "logged"});
  }
  void failuresChangeNothing() {
    QFETCH(QString, operation);
    QFETCH(QString, logged);
    const auto run = kOperations.value(operation);
    SLoggedSmall small;
    const QString before = NParamFileText::all(small.file);
    QVERIFY(run && !run(small.file));
    QCOMPARE(small.log.lines, QStringList(logged));
    QCOMPARE(small.file.errorMsg(), logged.section(" failed : ", -1));
    QCOMPARE(NParamFileText::all(small.file), before);
  }
};

QTEST_APPLESS_MAIN(tst_ParameterFileErrors)
#include "tst_ParameterFileErrors.moc"
