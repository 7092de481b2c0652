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
    addTextRow("", "a.xparam", "a.xparam");
    addTextRow("/project", "", "");
  }
  void joinsPathAndName() {
    QFETCH(QString, path);
    QFETCH(QString, name);
    QTEST(CFileElement(path, name).projectFilePath(), "joined");
  }

  void projectPathIsThatOfBothFiles() {
    CParamFileElement element(FILE_TYPE_PARAMETERS, {"/p", "a.xparam"}, {"/d", "a.xpdef"});
    element.setProjectPath("/q");
    element.setValueFileName("b.xparam");
    QCOMPARE(element,
             CParamFileElement(FILE_TYPE_PARAMETERS, {"/q", "b.xparam"}, {"/q", "a.xpdef"}));
  }

  void givesFilesOfAType() {
    const CParamFileElement a(FILE_TYPE_MOTOR_PARAMETERS, {"/p", "a"});
    const CParamFileElement c(FILE_TYPE_MOTOR_PARAMETERS, {"/p", "c"});
    CDeviceElement device;
    QVERIFY(device.isNull());
    device.addParameterFile(a);
    device.addParameterFile({FILE_TYPE_PARAMETERS, {"/p", "b"}});
    device.addParameterFile(c);
    QVERIFY(!device.isNull() && !device.isEmpty());
    QCOMPARE(device.parameterFiles(FILE_TYPE_MOTOR_PARAMETERS), QList<CParamFileElement>({a, c}));
  }

  void travelsInAVariant() {
    const CParamFileElement element(FILE_TYPE_MOTOR_PARAMETERS, {"/p", "a.xparam"});
    QCOMPARE(QVariant::fromValue(element).value<CParamFileElement>(), element);
  }
};

QTEST_APPLESS_MAIN(tst_DeviceElements)
#include "tst_DeviceElements.moc"
