#include "CMigrationTable.h"
#include "TestFiles.h"
#include "TestRows.h"
#include "paramfile/ExampleDrive.h"

#include <QRegularExpression>
#include <QTemporaryDir>

using namespace NTestFiles;

namespace {

SMigrationRule renaming(const QString& name, const QString& newName) {
  SMigrationRule rule;
  rule.name = name;
  rule.newName = newName;
  return rule;
}

QByteArray saved(const CMigrationTable& table) {
  QByteArray bytes;
  QString error;
  return table.save(bytes, error) ? bytes : error.toUtf8();
}

}  // namespace

class tst_CMigrationTable : public QObject {
  Q_OBJECT

 private slots:
  /// A proposal counts once the marks of its comment are gone.
  void writesNotesAndProposals() {
    CMigrationTable table;
    table.rules = {renaming("A--B---", "B"), renaming("C", "D")};
    table.rules[0].value = "--x\n--";
    table.rules[1].note = "The same type -- and unit:\nlook at it.";
    for (SMigrationRule& rule : table.rules) rule.isProposal = true;
    const QByteArray bytes = saved(table);
    QCOMPARE(bytes, read(data("migration/proposals.xml")));

    for (SMigrationRule& rule : table.rules) rule.isProposal = false;
    table.rules[1].note.clear();
    QString text = QString::fromUtf8(bytes);
    text.replace(QRegularExpression("<!--(\\s*<(?:[^-]|-[^-])*)-->"), "\\1");
    QVERIFY(write(mFolder.filePath("t"), text.toUtf8()));
    CMigrationTable again;
    QString error;
    QVERIFY2(again.load(mFolder.filePath("t"), error), qPrintable(error));
    QCOMPARE(saved(again), saved(table));
  }

  /// Tables beside definitions, a folder each.
  void problems_data() {
    QTest::addColumn<QString>("folder");
    const QDir pairs(data("migration/pairs"));
    for (const QString& name : pairs.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
      if (QFile::exists(pairs.filePath(name + "/problems.txt")))
        addRow(qPrintable(name), pairs.filePath(name + '/'));
  }
  void problems() {
    QFETCH(QString, folder);
    const auto [oldOne, newOne] = std::pair(makeFile(), makeFile());
    CMigrationTable table;
    QString error;
    QVERIFY(oldOne->loadParamDefFile(folder + "old.xpdef", 0x10000));
    QVERIFY(newOne->loadParamDefFile(folder + "new.xpdef", 0x10000));
    QVERIFY2(table.load(folder + "table.xml", error), qPrintable(error));
    QString told;
    for (const CMigrationTable::SProblem& problem : table.problems(*oldOne, *newOne)) {
      told += QString("%1: %2: %3\n")
                  .arg(problem.line)
                  .arg(problem.isWarning ? "warning" : "error", problem.text);
    }
    QCOMPARE(told, QString::fromUtf8(read(folder + "problems.txt")));
  }

  /// What could not be loaded is not saved.
  void unsavable() {
    CMigrationTable table;
    table.rules = {renaming("A", "B"), renaming("A", "C")};
    QCOMPARE(saved(table),
             QByteArray("Line 6, \"A\": there is a rule for this parameter already."));
    table.rules.removeLast();
    table.rules[0].rescaling = SRescaling{"0", "0", SRescaling::Up};
    QVERIFY(write(mFolder.filePath("t"), "old"));
    QString error;
    QVERIFY(!table.save(mFolder.filePath("t"), error));
    QCOMPARE(error, QString("File \"%1\": Line 6, \"A\": a factor of 0 loses every value.")
                        .arg(mFolder.filePath("t")));
    QCOMPARE(read(mFolder.filePath("t")), QByteArray("old"));
    table.rules[0].name = "\x1F";
    QVERIFY(saved(table).contains("XML cannot hold"));
  }

 private:
  QTemporaryDir mFolder;
};

QTEST_APPLESS_MAIN(tst_CMigrationTable)
#include "tst_CMigrationTable.moc"
