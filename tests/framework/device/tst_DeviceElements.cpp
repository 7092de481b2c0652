#include "CDeviceElement.h"

#include <QVariant>
#include <QtTest>

using namespace NktoGlobal;

class tst_DeviceElements : public QObject {
  Q_OBJECT
 private slots:
  void joinsPathsAndKeepsFilesOfAType() {
    for (const char* text : {"/p|a|/p/a", "/p/|a|/p/a", "/p|/a|/p/a", "|a|a", "/p||"}) {
      const QStringList parts = QString(text).split('|');
      QCOMPARE(CFileElement(parts.at(0), parts.at(1)).projectFilePath(), parts.at(2));
    }
    CParamFileElement file(FILE_TYPE_PARAMETERS, {"/p", "a.xparam"}, {"/d", "a.xpdef"});
    file.setProjectPath("/q");
    file.setValueFileName("b.xparam");
    const CParamFileElement expected(FILE_TYPE_PARAMETERS, {"/q", "b.xparam"}, {"/q", "a.xpdef"});
    QCOMPARE(QVariant::fromValue(file).value<CParamFileElement>(), expected);
    CDeviceElement device;
    QVERIFY(device.isNull());
    device.addParameterFile(file);
    device.addParameterFile({FILE_TYPE_MOTOR_PARAMETERS, {"/p", "c"}});
    QVERIFY(!device.isNull() && !device.isEmpty());
    QCOMPARE(device.parameterFiles(FILE_TYPE_PARAMETERS), QList<CParamFileElement>({expected}));
  }
};

QTEST_APPLESS_MAIN(tst_DeviceElements)
#include "tst_DeviceElements.moc"
