#include "CParameterFileComparison.h"
#include "CRescaling.h"
#include "GoldenFiles.h"
#include "NShortText.h"
#include "ParamFileText.h"
#include "RandomMigration.h"
#include "TestRows.h"
#include "analysis/AnalysisFiles.h"

#include <QTemporaryDir>
#include <QTest>

namespace {

using S = SMigrationStep;

/// In a place, a name.
QString placed(const QString& hardwareId, int subDevId, const QString& name) {
  return QString("%1[%2] %3").arg(hardwareId, QString::number(subDevId), name);
}

QStringList sorted(const QSet<QString>& texts) {
  QStringList list = texts.values();
  list.sort();
  return list;
}

/// What a save writes.
QByteArray saved(ICParameterFile& file) {
  const QTemporaryDir folder;
  const QString name = folder.filePath("F");
  return file.saveParamFile(name, {}, 0x10000) ? NTestFiles::read(name) : QByteArray();
}

/// What a comparison has to find, by the plan.
QSet<QString> expected(const CMigrationSteps& steps) {
  QMap<QString, QString> before;
  QMap<QString, QString> after;
  for (const S& step : steps) {
    if (step.oldValue.isNull()) continue;
    before.insert(placed(step.hardwareId, step.subDevId, step.name), step.oldValue);
    if (step.kind != S::Dropped)
      after.insert(placed(step.hardwareId, step.newSubDevId, step.newName), step.newValue);
  }
  QSet<QString> texts;
  for (const QString& place : before.keys())
    if (!after.contains(place)) texts += "removed " + place + '=' + before[place];
  for (const QString& place : after.keys())
    if (!before.contains(place) || before[place] != after[place])
      texts += (before.contains(place) ? "changed " : "added ") + place + '=' + after[place];
  return texts;
}

/// What a comparison finds, but groups and ids.
QSet<QString> found(const CParamDifferences& differences) {
  QSet<QString> texts;
  for (const SParamDifference& each : differences) {
    const QString place = placed(each.hardwareId, each.subDevId, each.name);
    if (each.kind == SParamDifference::ParameterRemoved)
      texts += "removed " + place + '=' + each.oldValue;
    if (each.kind == SParamDifference::ParameterAdded)
      texts += "added " + place + '=' + each.newValue;
    if (each.kind == SParamDifference::ValueChanged)
      texts += "changed " + place + '=' + each.newValue;
  }
  return texts;
}

/// The places after the steps of a kind.
QSet<QString> placesOf(const CMigrationSteps& steps, bool (*isMeant)(const S&)) {
  QSet<QString> places;
  for (const S& step : steps)
    if (isMeant(step)) places += placed(step.hardwareId, step.newSubDevId, step.newName);
  return places;
}

QSet<QString> placesOf(const CParamDifferences& differences, SParamDifference::EKind kind) {
  QSet<QString> places;
  for (const SParamDifference& each : differences)
    if (each.kind == kind) places += placed(each.hardwareId, each.subDevId, each.name);
  return places;
}

bool isInRenamed(const SParamDifference& moved, const CMigrationSteps& steps) {
  return std::any_of(steps.begin(), steps.end(), [&moved](const S& step) {
    const QString path = NShortText::below(step.groupPath, step.name) + '/';
    return step.kind == S::GroupRenamed && step.hardwareId == moved.hardwareId &&
           step.subDevId == moved.subDevId && QString(moved.oldGroupPath + '/').startsWith(path);
  });
}

QString toText(const CMigrationSteps& steps) {
  QString text;
  for (const S& step : steps) {
    text += placed(step.hardwareId, step.subDevId, NShortText::below(step.groupPath, step.name));
    if (step.newSubDevId != step.subDevId) text += QString(" [%1]").arg(step.newSubDevId);
    if (step.newName != step.name) text += " > " + step.newName;
    text += QString(": %1 '%2'").arg(S::kindText(step.kind), step.oldValue);
    if (step.newValue != step.oldValue) text += " > '" + step.newValue + '\'';
    text += QString(step.comesBack ? " (%1) " : " (lost, %1) ").arg(step.line) + step.text + '\n';
  }
  return text;
}

CParameterFilePtr copyOf(ICParameterFile& file) {
  return std::make_unique<CParameterFileBaseImpl>(dynamic_cast<CParameterFileBaseImpl&>(file),
                                                  nullptr);
}

QString rescaled(const SRescaling& rule, const QString& from, const QString& to,
                 CRescaling::EDirection direction, const QString& text) {
  const CRescaling rescaling(rule, CParamDefItem::typeFromString(from),
                             CParamDefItem::typeFromString(to), direction);
  const CRescaling::SResult result = rescaling.convert(text);
  if (result.text.isNull()) return "?";
  return result.text + (result.outcome == CRescaling::Rounded ? " rounded" : "");
}

}  // namespace

class tst_CParameterMigration : public QObject {
  Q_OBJECT

 private slots:
  void rescales_data() {
    NGoldenFiles::addTable("migration/rescaled.txt", {"factor", "offset", "rounding", "from", "to",
                                                      "text", "result", "back"});
  }
  void rescales() {
    QFETCH(QString, factor);
    QFETCH(QString, offset);
    QFETCH(QString, rounding);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, text);
    QFETCH(QString, back);
    const SRescaling rule{factor, offset, SRescaling::ERounding(rounding.toInt())};
    const QString result = rescaled(rule, from, to, CRescaling::Forward, text);
    QTEST(result, "result");
    const QString next = result == "?" ? text : result.section(' ', 0, 0);
    QCOMPARE(rescaled(rule, to, from, CRescaling::Back, next).section(' ', 0, 0),
             back.isEmpty() ? text : back);
  }

  void migratesPairs_data() {
    QTest::addColumn<QString>("folder");
    const QDir pairs(NTestFiles::data("migration/pairs"));
    for (const QString& name : pairs.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
      if (QFile::exists(pairs.filePath(name + "/old.xparam")))
        addRow(qPrintable(name), pairs.filePath(name + '/'));
  }
  void migratesPairs() {
    QFETCH(QString, folder);
    CMigrationTable table;
    QString error;
    const auto [oldOne, newOne, values] = std::tuple(makeFile(), makeFile(), makeFile());
    QVERIFY2(table.load(folder + "table.xml", error), qPrintable(error));
    QVERIFY(oldOne->loadParamDefFile(folder + "old.xpdef", 0x10000) &&
            newOne->loadParamDefFile(folder + "new.xpdef", 0x10000) &&
            values->loadParamFile(folder + "old.xparam", {}, 0x10000));
    CParameterMigration migration(*values, {{table, oldOne.get(), newOne.get()}});
    QVERIFY2(migration.plan(), qPrintable(migration.errorMsg()));
    QString plan = toText(migration.steps());
    QVERIFY(migration.run());
    const QString after = NAnalysisFiles::toText(*values).replace(" [", "\n[") + '\n';
    CParameterMigration back(*values, {{table, oldOne.get(), newOne.get()}},
                             CParameterMigration::Back);
    QVERIFY(back.plan());
    plan += "back:\n" + toText(back.steps());
    if (!back.run()) plan += back.errorMsg() + '\n';
    QCOMPARE(plan, QString::fromUtf8(NTestFiles::read(folder + "plan.txt")));
    QCOMPARE(after, QString::fromUtf8(NTestFiles::read(folder + "after.txt")));
  }

  void tellsAllThatChanges() {
    int count = 0;
    for (quint32 seed = 0; seed < 3000; ++seed) {
      const CRandomMigration random(seed, false);
      const CParameterFilePtr before = copyOf(*random.values);
      CParameterMigration migration(*random.values, random.releases());
      QVERIFY2(migration.plan(), qPrintable(migration.errorMsg()));
      QCOMPARE(NParamFileText::all(*random.values), NParamFileText::all(*before));
      QVERIFY(migration.run());
      const CMigrationSteps steps = migration.steps();
      const auto differences = CParameterFileComparison::compare(*before, *random.values);
      QCOMPARE(sorted(found(differences) - expected(steps)).join('\n'), QString());
      QCOMPARE(sorted(expected(steps) - found(differences)).join('\n'), QString());
      QVERIFY(placesOf(steps, [](const S& step) { return step.kind == S::IdChanged; }) ==
              placesOf(differences, SParamDifference::IdChanged) -
                  placesOf(steps, [](const S& step) { return step.kind < S::IdChanged; }));
      const auto told = placesOf(steps, [](const S& step) { return !step.oldValue.isNull(); });
      for (const SParamDifference& each : differences)
        if (each.kind == SParamDifference::ParameterMoved)
          QVERIFY(told.contains(placed(each.hardwareId, each.subDevId, each.name)) ||
                  isInRenamed(each, steps));
      count += steps.size();
    }
    QVERIFY(count > 10000);
  }

  void comesBackUnlessNamed() {
    int equal = 0;
    int compared = 0;
    for (quint32 seed = 0; equal < 10000; ++seed) {
      QVERIFY(seed < 20000);
      const CRandomMigration random(seed, true);
      const QString before = NParamFileText::content(*random.values);
      const bool isSaved = seed % 50 == 0;
      const QByteArray bytes = isSaved ? saved(*random.values) : QByteArray();
      CParameterMigration forth(*random.values, random.releases());
      QVERIFY2(forth.plan() && forth.run(), qPrintable(forth.errorMsg()));
      const QString between = NParamFileText::content(*random.values);
      CParameterMigration back(*random.values, random.releases(), CParameterMigration::Back);
      QVERIFY2(back.plan(), qPrintable(back.errorMsg()));
      const auto isLost = [](const S& step) { return !step.comesBack; };
      const QSet<QString> lost = placesOf(forth.steps(), isLost);
      const bool comes = placesOf(back.steps(), isLost).isEmpty();
      QCOMPARE(back.run(), comes);
      if (!comes) {
        QVERIFY2(!lost.isEmpty(), qPrintable(QString::number(seed)));
        QCOMPARE(NParamFileText::content(*random.values), between);
        continue;
      }
      const QString after = NParamFileText::content(*random.values);
      if (lost.isEmpty()) QCOMPARE(QString::number(seed) + after, QString::number(seed) + before);
      if (lost.isEmpty() && !bytes.isEmpty()) {
        QCOMPARE(saved(*random.values), bytes);
        ++compared;
      }
      if (lost.isEmpty()) ++equal;
    }
    QVERIFY(compared > 100);
  }
};

QTEST_GUILESS_MAIN(tst_CParameterMigration)
#include "tst_CParameterMigration.moc"
