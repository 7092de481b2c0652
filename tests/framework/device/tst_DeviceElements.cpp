#include "CDeviceElement.h"

#include <QVariant>
#include <QtTest>

using namespace NktoGlobal;

class tst_DeviceElements : public QObject {
  Q_OBJECT
 private slots:
  void joinsPathAndName_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("joined");
    const auto row = [](const char* path, const char* name, const char* joined) {
      QTest::addRow("'%s' and '%s'", path, name)
          << QString(path) << QString(name) << QString(joined);
    };
    row("/project", "a.xparam", "/project/a.xparam");
    row("/project/", "a.xparam", "/project/a.xparam");
    row("/project", "/a.xparam", "/project/a.xparam");
    row("project", "motors/a.xparam", "project/motors/a.xparam");
    row("/", "a.xparam", "/a.xparam");
    row("", "a.xparam", "a.xparam");
    row("", "/a.xparam", "/a.xparam");
    row("/project", "", "");
    row("", "", "");
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
    copy = device;
    QCOMPARE(copy.name(), QString("Feeder"));
    QCOMPARE(copy.parameterFiles(), device.parameterFiles());
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
    QTest::addColumn<CParamFileElement>("other");
    const CFileElement value("/p", "a.xparam");
    const CFileElement definition("/p", "a.xpdef");
    const auto row = [](const char* name, const CParamFileElement& other) {
      QTest::newRow(name) << other;
    };
    row("type", {FILE_TYPE_PARAMETERS, value, definition});
    row("value file's name", {FILE_TYPE_MOTOR_PARAMETERS, {"/p", "b"}, definition});
    row("value file's path", {FILE_TYPE_MOTOR_PARAMETERS, {"/q", "a.xparam"}, definition});
    row("definition file", {FILE_TYPE_MOTOR_PARAMETERS, value});
    CParamFileElement commented(FILE_TYPE_MOTOR_PARAMETERS, value, definition);
    commented.setComment("c");
    row("comment", commented);
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
    for (const EParamFileType type :
         {FILE_TYPE_MOTOR_PARAMETERS, FILE_TYPE_PARAMETERS, FILE_TYPE_MOTOR_PARAMETERS}) {
      device.addParameterFile({type, {"/p", QString::number(device.parameterFiles().size())}});
    }
    QStringList names;
    for (const auto& file : device.parameterFiles(FILE_TYPE_MOTOR_PARAMETERS)) {
      names += file.valueFileName();
    }
    QCOMPARE(names, QStringList({"0", "2"}));
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
