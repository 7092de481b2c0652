#include "CCompensationFindings.h"
#include "CompensationTables.h"

#include <QRandomGenerator>
#include <QtTest>

class tst_CCompensationFindings : public QObject {
  Q_OBJECT

 private slots:
  /// Where all texts are numbers and nothing is missing, the points told are those of the check.
  void findsWhatTheCheckFinds() {
    QRandomGenerator random(20261120);
    for (int round = 0; round < 40; ++round) {
      QString words = QString("%1/%2").arg(random.bounded(4)).arg(random.bounded(3, 12));
      const int count = round == 0 ? 520 : random.bounded(12);
      for (int i = 0; i < count; ++i)
        words += QString(" %1/0").arg(random.bounded(3) == 0 ? random.bounded(-1, 13) : i);
      const auto table = compensationTable(words);
      QList<int> expected;
      table->checkAllPoints(&expected);
      const CCompensationFindings findings(*table);
      QCOMPARE(findings.ofPoints().keys(), expected);
      QVERIFY(!findings.ofPoints().values().contains(QStringList()));
      QCOMPARE(findings.ofRange().isEmpty(), table->checkHeader());
      QCOMPARE(findings.isEmpty(), table->checkAll() == ICCompensationFile::CheckOk);
    }
  }
};

QTEST_APPLESS_MAIN(tst_CCompensationFindings)
#include "tst_CCompensationFindings.moc"
