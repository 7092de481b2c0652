#include "CDeviceElement.h"

#include <QVariant>
#include <QtTest>

using namespace NktoGlobal;

class tst_DeviceElements : public QObject {
  Q_OBJECT
 private slots:
  void joinsPathAndName() {
    for (const char* text : {"/p|a|/p/a", "/p/|a|/p/a", "/p|/a|/p/a", "|a|a", "/p||"}) {
      const QStringList parts = QString(text).split('|');
      QCOMPARE(CFileElement(parts.at(0), parts.at(1)).projectFilePath(), parts.at(2));
    }
  }

  void givesFilesOfAType() {
    CParamFileElement changed(FILE_TYPE_PARAMETERS, {"/p", "a.xparam"}, {"/d", "a.xpdef"});
    changed.setProjectPath("/q");
    changed.setValueFileName("b.xparam");
    const CParamFileElement expected(FILE_TYPE_PARAMETERS, {"/q", "b.xparam"}, {"/q", "a.xpdef"});
    QCOMPARE(QVariant::fromValue(changed).value<CParamFileElement>(), expected);
    CDeviceElement device;
    QVERIFY(device.isNull());
    const CParamFileElement motor(FILE_TYPE_MOTOR_PARAMETERS, {"/p", "c"});
    for (const auto& file : {changed, motor, changed}) device.addParameterFile(file);
    QVERIFY(!device.isNull() && !device.isEmpty());
    const QList<CParamFileElement> both{expected, expected};
    QCOMPARE(device.parameterFiles(FILE_TYPE_PARAMETERS), both);
  }
};

QTEST_APPLESS_MAIN(tst_DeviceElements)
#include "tst_DeviceElements.moc"
