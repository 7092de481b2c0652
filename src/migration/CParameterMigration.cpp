#include "CParameterMigration.h"

#include "CHardwareMigration.h"
#include "CParameterFileBaseImpl.h"
#include "CStr.h"

#include <algorithm>
#include <optional>

namespace {

using CAnswered = std::set<const CParamTreeNodeImpl*>;

QString problemsOf(const CParameterMigration::SRelease& release) {
  QStringList texts;
  for (const CMigrationTable::SProblem& problem :
       release.table.problems(*release.oldDefinitions, *release.newDefinitions)) {
    if (problem.isWarning) continue;
    texts.append(problem.line == 0 ? problem.text
                                   : CParameterMigration::tr("line %1: %2")
                                         .arg(QString::number(problem.line), problem.text));
  }
  return texts.join(QLatin1Char('\n'));
}

}  // namespace

struct CParameterMigration::SData {
  ICParameterFile& values;
  const QVector<SRelease> releases;
  const EDirection direction;
  QMap<QString, QString> answers = {};
  CMigrationSteps steps = {};
  std::optional<CHardwareIdTrees> result = {};
  QString errorMsg = {};

  bool isBack() const { return direction == Back; }
  bool fail(const QString& text) {
    errorMsg = text;
    return false;
  }
  CDirectedTable directed(int position, bool isOpposite = false) const;
  QVector<QMap<QString, QString>> answersByTable() const;
  void plan(const CHardwareIdTrees& before);
  void planTable(int position, const CHardwareIdTrees& before,
                 const QMap<QString, QString>& tableAnswers, CAnswered& answered);
};

CParameterMigration::CParameterMigration(ICParameterFile& values, const QVector<SRelease>& releases,
                                         EDirection direction)
    : d(new SData{values, releases, direction}) {}

CParameterMigration::~CParameterMigration() {
  delete d;
}

void CParameterMigration::setAnswers(const QMap<QString, QString>& answers) {
  d->answers = answers;
}

bool CParameterMigration::plan() {
  d->steps.clear();
  d->result.reset();
  d->errorMsg.clear();
  const auto* const values = dynamic_cast<const CParameterFileBaseImpl*>(&d->values);
  if (values == nullptr) return d->fail(tr("Only files of this library can be migrated."));
  for (const SRelease& release : d->releases) {
    const QString problems = problemsOf(release);
    if (!problems.isEmpty()) return d->fail(problems);
  }
  d->plan(values->allTrees());
  return true;
}

/// The table at a place of the way.
CDirectedTable CParameterMigration::SData::directed(int position, bool isOpposite) const {
  const SRelease& release = releases.at(isBack() ? releases.size() - 1 - position : position);
  return {release.table, *release.oldDefinitions, *release.newDefinitions,
          isBack() != isOpposite ? CRescaling::Back : CRescaling::Forward};
}

/// By the names after each table.
QVector<QMap<QString, QString>> CParameterMigration::SData::answersByTable() const {
  QVector<QMap<QString, QString>> byTable(releases.size());
  QMap<QString, QString> current = answers;
  for (int i = releases.size() - 1; i >= 0; --i) {
    byTable[i] = current;
    if (!current.isEmpty()) current = directed(i).byNameBefore(current);
  }
  return byTable;
}

void CParameterMigration::SData::plan(const CHardwareIdTrees& before) {
  const QVector<QMap<QString, QString>> byTable = answersByTable();
  CAnswered answered;
  std::optional<CHardwareIdTrees> current;
  for (int i = 0; i < releases.size(); ++i) {
    planTable(i, current ? *current : before, byTable.at(i), answered);
    current = std::move(result);
  }
  result = current ? std::move(current) : CHardwareIdTrees();
}

void CParameterMigration::SData::planTable(int position, const CHardwareIdTrees& before,
                                           const QMap<QString, QString>& tableAnswers,
                                           CAnswered& answered) {
  CDirectedTable table = directed(position);
  CMigrationJudge judge(table.from(), table.to());
  CDirectedTable opposite = directed(position, true);
  const SMigrationInput input{table, tableAnswers, answered, position + 1 == releases.size(),
                              &opposite};
  const CHardwareMigration::CTypeOf typeOf = [this](quint8 subDevId) {
    return values.subDevType(subDevId);
  };
  CAnswered newlyAnswered;
  result.emplace();
  for (const auto& [hardwareId, subDevices] : before) {
    CHardwareMigration migration(subDevices, typeOf, input, judge);
    result->emplace(hardwareId, migration.run(newlyAnswered));
    for (SMigrationStep step : migration.steps()) {
      step.hardwareId = hardwareId;
      step.table = isBack() ? releases.size() - 1 - position : position;
      steps.append(step);
    }
  }
  answered = std::move(newlyAnswered);
}

const CMigrationSteps& CParameterMigration::steps() const {
  return d->steps;
}

bool CParameterMigration::isOpen() const {
  return std::any_of(d->steps.cbegin(), d->steps.cend(), [](const SMigrationStep& step) {
    return step.kind <= SMigrationStep::NotAllowed;
  });
}

bool CParameterMigration::run() {
  auto* const values = dynamic_cast<CParameterFileBaseImpl*>(&d->values);
  if (values == nullptr || !d->result) return d->fail(tr("There is no plan to carry out."));
  if (d->isBack()) {
    // What was answered is as a human wants it.
    const auto lost = std::find_if(d->steps.cbegin(), d->steps.cend(), [](const auto& step) {
      return !step.comesBack && step.kind != SMigrationStep::Replaced;
    });
    if (lost != d->steps.cend()) {
      return d->fail(
          tr("Not everything comes back, such as \"%1\"; nothing was done.").arg(lost->name));
    }
  }
  if (!d->steps.isEmpty()) values->allTrees() = std::move(*d->result);
  d->result.reset();
  for (const SMigrationStep& step : qAsConst(d->steps)) values->setHwIdChanged(step.hardwareId);
  return true;
}

quint32 CParameterMigration::version() const {
  quint32 version = d->values.paramFileVersion();
  if (d->isBack()) return version;
  for (const SRelease& release : d->releases)
    CStr::stringToRevision(release.table.newVersion, version);
  return version;
}

QString CParameterMigration::errorMsg() const {
  return d->errorMsg;
}
