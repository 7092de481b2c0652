#include "CReleases.h"
#include "CStr.h"
#include "Command.h"
#include "NMigrationOptions.h"
#include "NMigrationPlan.h"
#include "NSuggestion.h"

namespace {

using namespace NMigrationOptions;

const QLatin1String kAllowOpen("allow-open");

/// What a migration came to.
struct SOutcome {
  CMigrationSteps steps;
  QStringList lost;
  quint32 version = 0;
  bool isSaved = false;
  bool isRefused = false;
  bool isOpen = false;
};

void printNext(const CInvocation& invocation, const CReleases& releases, const SOutcome& outcome,
               COutput& out) {
  const int added = releases.newDefinitions().size();
  if (added > 0)
    out.line(Tool::tr("Definitions that are new: %1; nothing is added for them.").arg(added));
  const QStringList dropped = releases.dropped();
  if (invocation.isSet(kReverse) && !dropped.isEmpty())
    out.line(
        Tool::tr("The tables drop what does not come back: %1").arg(NSuggestion::listed(dropped)));
  if (!outcome.lost.isEmpty()) {
    out.line(Tool::tr("Nothing is saved, since this would not come back: %1")
                 .arg(NSuggestion::listed(outcome.lost)));
  }
  if (outcome.isSaved) {
    out.line(Tool::tr("Saved as version %1; \"ktoparam check\" tells what the definitions find.")
                 .arg(CStr::revisionToString(outcome.version)));
  }
  if (outcome.isOpen && outcome.isSaved)
    out.line(Tool::tr("What is open was saved all the same."));
  else if (outcome.isOpen && !invocation.isSet(kAllowOpen))
    out.line(
        Tool::tr("Decide with --answer NAME=VALUE, or with a rule in the table; --allow-open "
                 "saves all the same."));
  invocation.noteDryRun(out);
}

void report(const CInvocation& invocation, const CReleases& releases, const SOutcome& outcome,
            COutput& out) {
  if (!invocation.wantsJson()) {
    NMigrationPlan::print(outcome.steps, out);
    NMigrationPlan::printSummary(outcome.steps, invocation.isSet(kReverse), out);
    return printNext(invocation, releases, outcome, out);
  }
  out.json({{"file", invocation.argument(0)},
            {"output", invocation.value(NOptions::kOutput, invocation.argument(0))},
            {"tables", QJsonArray::fromStringList(releases.tableNames())},
            {"saved", outcome.isSaved},
            {"version", CStr::revisionToString(outcome.version)},
            {"counts", NMigrationPlan::countsToJson(outcome.steps)},
            {"newDefinitions", out.labels().of(releases.newDefinitions())},
            {"steps", NMigrationPlan::toJson(outcome.steps, out.labels())}});
}

/// Plans, and makes what is to be saved of the values.
bool run(const CInvocation& invocation, const CLoadedFile& values, CParameterMigration& migration,
         SOutcome& outcome) {
  if (!migration.plan()) {
    values.message(migration.errorMsg());
    return false;
  }
  outcome.steps = migration.steps();
  outcome.version = migration.version();
  outcome.isOpen = outcome.isOpen || migration.isOpen();
  if (invocation.isSet(kReverse)) outcome.lost = NMigrationPlan::lostOnTheWayBack(outcome.steps);
  outcome.isRefused = (outcome.isOpen && !invocation.isSet(kAllowOpen)) || !outcome.lost.isEmpty();
  if (outcome.isRefused || invocation.isDryRun()) return true;
  outcome.isRefused = !migration.run();
  if (outcome.isRefused) values.message(migration.errorMsg());
  return true;
}

bool isToBeSaved(const CInvocation& invocation, const CLoadedFile& values,
                 const SOutcome& outcome) {
  const bool isChange = !outcome.steps.isEmpty() || outcome.version != values.info().version ||
                        invocation.isSet(NOptions::kOutput);
  return isChange && !outcome.isRefused && !invocation.isDryRun();
}

EExitStatus migrate(const CInvocation& invocation, COutput& out) {
  CReleases releases(invocation, out);
  const QString problem = releases.usageProblem();
  if (!problem.isEmpty()) return invocation.wrongUsage(problem, out);
  const QString fileName = invocation.argument(0);
  const QString target = invocation.value(NOptions::kOutput, fileName);
  CLoadedFile values(out);
  if (!values.lock(target, invocation) || !values.load(fileName, SFileInfo::Values) ||
      !values.canSave() || !releases.load() ||
      !SFileInfo::mayReplace(target, SFileInfo::Values, out)) {
    return ExitFile;
  }
  const auto answers = releases.answers();
  if (!releases.check() || !answers) return ExitFindings;

  out.doing(Tool::tr("Migrating …"));
  SOutcome outcome;
  const QString migrated = releases.migratedAlready(values);
  if (!migrated.isEmpty()) {
    values.message(
        Tool::tr("warning: the file looks as if it was migrated already: %1").arg(migrated));
    outcome.isOpen = true;
  }
  CParameterMigration migration(values.file(), releases.all(), releases.direction());
  migration.setAnswers(*answers);
  if (!run(invocation, values, migration, outcome)) return ExitFindings;
  outcome.isSaved = isToBeSaved(invocation, values, outcome);
  if (outcome.isSaved && !values.saveAs(target, outcome.version)) return ExitFile;
  values.unlock();
  report(invocation, releases, outcome, out);
  return outcome.isRefused ? ExitFindings : ExitDone;
}

SOption repeated(SOption option) {
  option.mayRepeat = true;
  return option;
}

}  // namespace

QVector<SCommand> migrateCommands() {
  return {
      {"migrate",
       Tool::tr("Take values over from the definitions of one release to those of the next."),
       Tool::tr("Migration tables say what becomes of renamed, rescaled, renumbered, moved and "
                "dropped parameters. The plan is listed with a line for all that changes; what "
                "no rule is about keeps its text. All hardware ids are migrated, or nothing is "
                "saved.\nWhere a human has to decide, or the new definitions do not allow a "
                "value that the old ones did, nothing is saved and the exit status is 1: give "
                "an --answer, or --allow-open. Nothing is added for new definitions; "
                "\"ktoparam check\" lists them.\nSeveral tables lead from release to release: "
                "--old A --table T --new B --table U --new C. With --reverse the file goes the "
                "other way, back to the --old definitions, unless the plan tells that "
                "something does not come back.\nA file that looks as if it was migrated "
                "already is told and not saved without --allow-open: it has new names and none "
                "of the old ones, the version that the table gives, or the new release in its "
                "comment. A table without any of these leaves no mark that could be seen."),
       {NOptions::valueFile()},
       {NOptions::required(
            repeated({kTable, "TABLE", Tool::tr("The migration table."), EWord::File, "t"})),
        NOptions::required(
            {kOld, "OLD", Tool::tr("The definition file that it leads from."), EWord::File}),
        NOptions::required(repeated(
            {kNew, "NEW", Tool::tr("The definition file that it leads to."), EWord::File})),
        {kReverse, {}, Tool::tr("From the new definitions back to the old ones.")},
        repeated({kAnswer, "NAME=VALUE",
                  Tool::tr("The new value of a parameter, by its new name, where one has to be "
                           "decided about. May be repeated.")}),
        {kAllowOpen,
         {},
         Tool::tr("Save all the same what nobody decided about, with its old value.")},
        NOptions::output(Tool::tr("Where the result goes to; FILE unless given.")),
        NOptions::dryRun(),
        NOptions::noWait(),
        NOptions::json()},
       {"migrate Release1.xparam --table Releases.xmig --old Release1.xpdef --new Release2.xpdef "
        "--dry-run"},
       migrate}};
}
