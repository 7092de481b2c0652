#include "CReleases.h"

#include "CInvocation.h"
#include "CLoadedFile.h"
#include "COutput.h"
#include "CParamValueRules.h"
#include "CStr.h"
#include "NFileMessage.h"
#include "NMigrationOptions.h"
#include "NParameterLookup.h"
#include "Tool.h"

#include <set>

namespace {

/// What a rule's parameter is called before and after the table.
struct SNames {
  QString before;
  QString after;
};

SNames namesOf(const SMigrationRule& rule, bool isBack) {
  const QString newName = rule.newName.isNull() ? rule.name : rule.newName;
  return isBack ? SNames{newName, rule.name} : SNames{rule.name, newName};
}

std::set<QString> namesIn(ICParameterFile& file) {
  std::set<QString> names;
  const QString active = file.hardwareId();
  for (const QString& hardwareId : file.hardwareIds()) {
    file.selectHardwareId(hardwareId);
    for (const quint8 subDevId : file.subDeviceIds())
      for (const QString& name : file.paramNames(subDevId)) names.insert(name);
  }
  file.selectHardwareId(active);
  return names;
}

/// A new name that the values have where none of the old ones is left; null when there is none.
QString renamedAlready(const CMigrationTable& table, const std::set<QString>& present,
                       bool isBack) {
  QString found;
  for (const SMigrationRule& rule : table.rules) {
    const SNames names = namesOf(rule, isBack);
    if (rule.isProposal || rule.isDropped || names.before == names.after) continue;
    if (present.count(names.before) > 0) return {};
    if (found.isNull() && present.count(names.after) > 0) found = names.after;
  }
  return found;
}

}  // namespace

CReleases::CReleases(const CInvocation& invocation, COutput& out)
    : mInvocation(invocation),
      mOut(out),
      mTableNames(invocation.values(NMigrationOptions::kTable)) {}

CReleases::~CReleases() = default;

QString CReleases::usageProblem() const {
  const auto ends = mInvocation.values(NMigrationOptions::kNew).size();
  return ends == mTableNames.size()
             ? QString()
             : Tool::tr("Each --table needs its --new, the definitions that it leads to.");
}

CReleases::EDirection CReleases::direction() const {
  return mInvocation.isSet(NMigrationOptions::kReverse) ? CParameterMigration::Back
                                                        : CParameterMigration::Forward;
}

bool CReleases::load() {
  for (const QString& fileName : QStringList(mInvocation.value(NMigrationOptions::kOld)) +
                                     mInvocation.values(NMigrationOptions::kNew)) {
    mDefinitions.push_back(std::make_unique<CLoadedFile>(mOut));
    if (!mDefinitions.back()->load(fileName, SFileInfo::Definitions)) return false;
  }
  for (const QString& fileName : mTableNames) {
    QString error;
    CMigrationTable table;
    if (!table.load(fileName, error)) {
      mOut.message(fileName, NFileMessage::withoutFile(error, fileName));
      return false;
    }
    mTables.append(table);
  }
  return true;
}

bool CReleases::check() const {
  bool isGood = true;
  const auto releases = all();
  for (int i = 0; i < releases.size(); ++i) {
    const auto& [table, before, after] = releases.at(i);
    for (const auto& problem : table.problems(*before, *after)) {
      isGood = isGood && problem.isWarning;
      // The plan shows what comes of a rule.
      if (problem.isWarning && problem.line > 0) continue;
      mOut.message(mTableNames.at(i),
                   problem.isWarning ? Tool::tr("warning: %1").arg(problem.text) : problem.text,
                   problem.line);
    }
  }
  return isGood;
}

QVector<CParameterMigration::SRelease> CReleases::all() const {
  QVector<CParameterMigration::SRelease> releases;
  for (int i = 0; i < mTables.size(); ++i) {
    const auto at = static_cast<size_t>(i);
    releases.append({mTables.at(i), &mDefinitions[at]->file(), &mDefinitions[at + 1]->file()});
  }
  return releases;
}

const ICParameterFile& CReleases::end() const {
  return (direction() == CParameterMigration::Back ? mDefinitions.front() : mDefinitions.back())
      ->file();
}

std::optional<QMap<QString, QString>> CReleases::answers() const {
  QMap<QString, QString> answers;
  bool isGood = true;
  for (const QString& text : mInvocation.values(NMigrationOptions::kAnswer))
    if (!readAnswer(text, answers)) isGood = false;
  return isGood ? std::optional(answers) : std::nullopt;
}

bool CReleases::readAnswer(const QString& text, QMap<QString, QString>& answers) const {
  const int sign = text.indexOf(QLatin1Char('='));
  const QString name = text.left(sign);
  const CParamDefItem definition = end().paramDef(name);
  QString problem;
  CParamVal value;
  if (sign < 0) {
    problem = Tool::tr("\"%1\" is not an answer; write NAME=VALUE.").arg(text);
  } else if (definition.name().isEmpty()) {
    problem = Tool::tr("there is no definition \"%1\".%2")
                  .arg(name, NParameterLookup::didYouMean(name, end().defNames()));
  } else if (CParamValueRules(definition, end()).read(text.mid(sign + 1), value, problem)) {
    answers.insert(name, value.asStr());
    return true;
  }
  mOut.message(QLatin1String("--") + NMigrationOptions::kAnswer, problem);
  return false;
}

QStringList CReleases::newDefinitions() const {
  const bool isBack = direction() == CParameterMigration::Back;
  const auto& first = isBack ? mDefinitions.back() : mDefinitions.front();
  std::set<QString> known;
  for (const QString& name : first->file().defNames()) known.insert(name);
  for (int i = 0; i < mTables.size(); ++i) {
    std::set<QString> renamed;
    for (const SMigrationRule& rule : mTables.at(isBack ? mTables.size() - 1 - i : i).rules) {
      const SNames names = namesOf(rule, isBack);
      if (!rule.isProposal && !rule.isDropped && known.erase(names.before) > 0)
        renamed.insert(names.after);
    }
    known.insert(renamed.begin(), renamed.end());
  }
  QStringList added;
  for (const QString& name : end().defNames())
    if (known.count(name) == 0) added.append(name);
  return added;
}

QStringList CReleases::dropped() const {
  QStringList names;
  for (const CMigrationTable& table : mTables)
    for (const SMigrationRule& rule : table.rules)
      if (rule.isDropped && !rule.isProposal) names.append(rule.name);
  return names;
}

QString CReleases::migratedAlready(const CLoadedFile& values) const {
  const bool isBack = direction() == CParameterMigration::Back;
  const CMigrationTable& table = isBack ? mTables.last() : mTables.first();
  const QString name = renamedAlready(table, namesIn(values.file()), isBack);
  if (!name.isNull()) {
    return Tool::tr("it has \"%1\", a name after the migration, and none of the names before it.")
        .arg(name);
  }
  quint32 version = 0;
  if (!isBack && CStr::stringToRevision(mTables.last().newVersion, version) &&
      values.info().version == version) {
    return Tool::tr("it has the version %1 already, which the table gives.")
        .arg(mTables.last().newVersion);
  }
  const QString before = isBack ? table.newRelease : table.oldRelease;
  const QString after = isBack ? mTables.first().oldRelease : mTables.last().newRelease;
  const QString comment = values.file().comment();
  if (!after.isEmpty() && comment.contains(after) && !comment.contains(before))
    return Tool::tr("its comment names the release \"%1\".").arg(after);
  return {};
}
