#include "CDeviceElement.h"
#include "TestRows.h"

#include <QVariant>

using namespace NktoGlobal;

class tst_DeviceElements : public QObject {
  Q_OBJECT
 private slots:
  void joinsPathAndName_data() {
    addColumns<QString, QString, QString>("path", "name", "joined");
    addTextRow("/project", "a.xparam", "/project/a.xparam");
    addTextRow("/project/", "a.xparam", "/project/a.xparam");
    addTextRow("/project", "/a.xparam", "/project/a.xparam");
    addTextRow("project", "motors/a.xparam", "project/motors/a.xparam");
    addTextRow("/", "a.xparam", "/a.xparam");
    addTextRow("", "a.xparam", "a.xparam");
    addTextRow("", "/a.xparam", "/a.xparam");
    addTextRow("/project", "", "");
    addTextRow("", "", "");
  }
  void joinsPathAndName() {
    QFETCH(QString, path);
    QFETCH(QString, name);
    QTEST(CFileElement(path, name).projectFilePath(), "joined");
    CParamFileElement element;
    element.setProjectPath(path);
    element.setValueFileName(name);
    QTEST(element.valueFile().projectFilePath(), "joined");
  }

  void copiesAreTheirOwn() {
    CDeviceElement device;
    device.setName("Feeder");
    device.addParameterFile({FILE_TYPE_PARAMETERS, {"/p", "a"}});
    CDeviceElement copy = device;
    copy.setName("Cutter");
    copy.addParameterFile({FILE_TYPE_PARAMETERS, {"/p", "b"}});
    QCOMPARE(device.name(), QString("Feeder"));
    QCOMPARE(device.parameterFiles().size(), 1);
    QCOMPARE(copy.parameterFiles().size(), 2);

    CParamFileElement file = device.parameterFiles().first();
    file.setProjectPath("/q");
    file.setComment("changed");
    QCOMPARE(device.parameterFiles().first(), CParamFileElement(FILE_TYPE_PARAMETERS, {"/p", "a"}));
  }

  void projectPathIsThatOfBothFiles() {
    CParamFileElement element(FILE_TYPE_PARAMETERS, {"/p", "a.xparam"}, {"/d", "a.xpdef"});
    QCOMPARE(element.projectPath(), QString("/p"));
    element.setProjectPath("/q");
    QCOMPARE(element.valueFile(), CFileElement("/q", "a.xparam"));
    QCOMPARE(element.definitionFile(), CFileElement("/q", "a.xpdef"));
    element.setValueFileName("b.xparam");
    QCOMPARE(element.valueFileName(), QString("b.xparam"));
    QCOMPARE(element.definitionFile().fileName(), QString("a.xpdef"));
  }

  void differsInAnyMember_data() {
    addColumns<CParamFileElement>("other");
    const CFileElement value("/p", "a.xparam");
    const CFileElement definition("/p", "a.xpdef");
    using F = CParamFileElement;
    addRow("type", F{FILE_TYPE_PARAMETERS, value, definition});
    addRow("value file's name", F{FILE_TYPE_MOTOR_PARAMETERS, {"/p", "b"}, definition});
    addRow("value file's path", F{FILE_TYPE_MOTOR_PARAMETERS, {"/q", "a.xparam"}, definition});
    addRow("definition file", F{FILE_TYPE_MOTOR_PARAMETERS, value});
    F commented(FILE_TYPE_MOTOR_PARAMETERS, value, definition);
    commented.setComment("c");
    addRow("comment", commented);
  }
  void differsInAnyMember() {
    QFETCH(CParamFileElement, other);
    CParamFileElement element(FILE_TYPE_MOTOR_PARAMETERS, {"/p", "a.xparam"}, {"/p", "a.xpdef"});
    QVERIFY(element != other);
    element.setFileType(other.fileType());
    element.setValueFile(other.valueFile());
    element.setDefinitionFile(other.definitionFile());
    element.setComment(other.comment());
    QCOMPARE(element, other);
  }

  void givesFilesOfAType() {
    CDeviceElement device;
    device.addParameterFile({FILE_TYPE_MOTOR_PARAMETERS, {"/p", "a"}});
    device.addParameterFile({FILE_TYPE_PARAMETERS, {"/p", "b"}});
    device.addParameterFile({FILE_TYPE_MOTOR_PARAMETERS, {"/p", "c"}});
    const auto motors = device.parameterFiles(FILE_TYPE_MOTOR_PARAMETERS);
    QCOMPARE(motors.size(), 2);
    QCOMPARE(motors.first().valueFileName(), QString("a"));
    QCOMPARE(motors.last().valueFileName(), QString("c"));
    QVERIFY(device.parameterFiles(FILE_TYPE_NONE).isEmpty());
    QCOMPARE(device.parameterFiles().size(), 3);
  }

  void knowsNullAndEmpty() {
    CDeviceElement device;
    QVERIFY(device.isNull() && device.isEmpty());
    device.setName("Feeder");
    QVERIFY(!device.isNull() && device.isEmpty());
    device.addParameterFile(CParamFileElement());
    QVERIFY(!device.isNull() && !device.isEmpty());
    device.setName(QString());
    QVERIFY(!device.isNull() && !device.isEmpty());
  }

  void travelsInAVariant() {
    const CParamFileElement element(FILE_TYPE_MOTOR_PARAMETERS, {"/p", "a.xparam"});
    QCOMPARE(QVariant::fromValue(element).value<CParamFileElement>(), element);
    QCOMPARE(QVariant(QMetaType::type("CParamFileElement"), nullptr).value<CParamFileElement>(),
             CParamFileElement());
  }
};

QTEST_APPLESS_MAIN(tst_DeviceElements)
#include "tst_DeviceElements.moc"
