#include "CParamDefFile.h"
#include "CParameterFileErrorHandler.h"
#include "NClock.h"
#include "TestRows.h"

#include <QDomDocument>
#include <QtTest>

class tst_CParamBaseFile : public QObject {
  Q_OBJECT

 private slots:
  void aFreshFileHasTheLibrarysDefaults() {
    NClock::setToday([] { return QDate(2026, 5, 6); });
    CParamDefFile file(nullptr, nullptr);
    QCOMPARE(file.errorMsg(), QString("Ok"));
    QCOMPARE(file.author(), QString("RX5"));
    QCOMPARE(file.comment(), QString("automatic generated"));
    QCOMPARE(file.date(), QDate(2026, 5, 6));
    NClock::setToday(nullptr);
  }

  void versions_data() {
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("other");
    QTest::addColumn<bool>("accepted");
    addRow("minor", "1.0", "1.7", true);
    addRow("major", "1.0", "2.0", false);
    addRow("major alone", "2", "2.65535", true);
    addRow("no version", "abc", "2.0", true);
    addRow("missing", "", "2.0", true);
    addRow("minor too large", "1.65536", "2.0", true);
  }
  void versions() {
    QFETCH(QString, version);
    QFETCH(QString, other);
    QFETCH(bool, accepted);
    CParameterFileErrorHandler handler(nullptr);
    QCOMPARE(handler.handleFileVersionError(version, other), accepted);
    QCOMPARE(handler.handleDefFileVersionError(other, version), accepted);
    QCOMPARE(handler.handleValueFileVersionError(version, other), accepted);
  }

  void hardwareIdOfOneFile() {
    CParameterFileErrorHandler handler(nullptr);
    QString error;
    QVERIFY(handler.handleHardwareIdError(QString(), "B", error));
    QVERIFY(handler.handleHardwareIdError(QString("A"), "A", error));
    QVERIFY(error.isEmpty());
    QVERIFY(!handler.handleHardwareIdError(QString("a"), "A", error));
    QCOMPARE(error, QString("Hardware id 'A' is wrong. Expected was 'a'."));
  }

  void choiceAmongHardwareIds_data() {
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<QStringList>("available");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("message");
    const QStringList both{"A", "B"};
    addRow("any", "", both, "A", "");
    addRow("one of them", "B", both, "B", "");
    addRow("none of them", "C", both, "C", "There is no matching hardware id for 'C'.");
    addRow("none at all", "", QStringList(), "", "There is no matching hardware id for ''.");
  }
  void choiceAmongHardwareIds() {
    QFETCH(QString, wanted);
    QFETCH(QStringList, available);
    QFETCH(QString, chosen);
    QFETCH(QString, message);
    CParameterFileErrorHandler handler(nullptr);
    QString error;
    QCOMPARE(handler.handleHardwareIdError(wanted, available, error), message.isEmpty());
    QCOMPARE(wanted, chosen);
    QCOMPARE(error, message);
  }

  void aMissingSubElementNamesTheParameter() {
    QDomDocument document;
    QVERIFY(document.setContent(QByteArray("<Param><Name>x</Name></Param>")));
    CParamDefFile file(nullptr, nullptr);
    QString value;
    QVERIFY(file.existingParamSubElemetStr(document.documentElement(), "Name", 12, value));
    QCOMPARE(value, QString("x"));
    QVERIFY(!file.existingParamSubElemetStr(document.documentElement(), "Type", 12, value));
    QCOMPARE(file.errorMsg(),
             QString("Parameter (Id=12) -> Line 1: <Type> in <Param> is missing."));
    QCOMPARE(value, QString("x"));
  }
};

QTEST_APPLESS_MAIN(tst_CParamBaseFile)
#include "tst_CParamBaseFile.moc"
