#include "CDeviceElement.h"
#include "TestRows.h"

#include <QVariant>

using namespace NktoGlobal;

class tst_DeviceElements : public QObject {
  Q_OBJECT
 private slots:
  void joinsPathAndName() {
    QCOMPARE(CFileElement("/project", "a.xparam").projectFilePath(), QString("/project/a.xparam"));
    QCOMPARE(CFileElement("/project/", "a.xparam").projectFilePath(), QString("/project/a.xparam"));
    QCOMPARE(CFileElement("/project", "/a.xparam").projectFilePath(), QString("/project/a.xparam"));
    QCOMPARE(CFileElement("", "a.xparam").projectFilePath(), QString("a.xparam"));
    QCOMPARE(CFileElement("/project", "").projectFilePath(), QString());
  }

  void projectPathIsThatOfBothFiles() {
    CParamFileElement element(FILE_TYPE_PARAMETERS, {"/p", "a.xparam"}, {"/d", "a.xpdef"});
    element.setProjectPath("/q");
    element.setValueFileName("b.xparam");
    const CParamFileElement expected(FILE_TYPE_PARAMETERS, {"/q", "b.xparam"}, {"/q", "a.xpdef"});
    QCOMPARE(element, expected);
    QCOMPARE(QVariant::fromValue(element).value<CParamFileElement>(), expected);
  }

  void givesFilesOfAType() {
    const CParamFileElement a(FILE_TYPE_MOTOR_PARAMETERS, {"/p", "a"});
    const CParamFileElement c(FILE_TYPE_MOTOR_PARAMETERS, {"/p", "c"});
    CDeviceElement device;
    QVERIFY(device.isNull());
    for (const auto& file : {a, CParamFileElement(FILE_TYPE_PARAMETERS, {"/p", "b"}), c})
      device.addParameterFile(file);
    QVERIFY(!device.isNull() && !device.isEmpty());
    QCOMPARE(device.parameterFiles(FILE_TYPE_MOTOR_PARAMETERS), QList<CParamFileElement>({a, c}));
  }
};

QTEST_APPLESS_MAIN(tst_DeviceElements)
#include "tst_DeviceElements.moc"
