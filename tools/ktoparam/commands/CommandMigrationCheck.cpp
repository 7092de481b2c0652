#include "CMigrationTable.h"
#include "Command.h"
#include "NFileHints.h"
#include "NFileMessage.h"
#include "SParamFinding.h"

#include <algorithm>

namespace {

using CProblems = QList<CMigrationTable::SProblem>;

const QLatin1String kOld("old");
const QLatin1String kNew("new");

bool load(CMigrationTable& table, const QString& fileName, COutput& out) {
  QString error = NFileHints::unreadable(fileName);
  if (error.isEmpty() && !table.load(fileName, error))
    error = NFileMessage::withoutFile(error, fileName);
  if (!error.isEmpty()) out.message(fileName, error);
  return error.isEmpty();
}

/// As compilers write, so that editors jump to the line.
void print(const QString& fileName, const CProblems& problems, COutput& out) {
  for (const CMigrationTable::SProblem& problem : problems) {
    const auto severity = problem.isWarning ? SParamFinding::Warning : SParamFinding::Error;
    const QString line = problem.line > 0 ? QStringLiteral(":%1").arg(problem.line) : QString();
    out.line(QStringLiteral("%1%2: %3: %4")
                 .arg(NDisplayText::escaped(fileName), line,
                      out.styled(SParamFinding::severityText(severity),
                                 problem.isWarning ? COutput::Yellow : COutput::Red),
                      NDisplayText::escaped(problem.text)));
  }
}

QJsonArray toJson(const CProblems& problems) {
  QJsonArray array;
  for (const CMigrationTable::SProblem& problem : problems) {
    const auto severity = problem.isWarning ? SParamFinding::Warning : SParamFinding::Error;
    array.append(QJsonObject{{"line", problem.line > 0 ? QJsonValue(problem.line) : QJsonValue()},
                             {"severity", SParamFinding::severityText(severity)},
                             {"text", problem.text}});
  }
  return array;
}

EExitStatus check(const CInvocation& invocation, COutput& out) {
  const QString fileName = invocation.argument(0);
  CMigrationTable table;
  CLoadedFile oldFile(out);
  CLoadedFile newFile(out);
  const bool hasTable = load(table, fileName, out);
  const bool hasOld = oldFile.load(invocation.value(kOld), SFileInfo::Definitions);
  if (!newFile.load(invocation.value(kNew), SFileInfo::Definitions) || !hasOld || !hasTable)
    return ExitFile;
  const CProblems problems = table.problems(oldFile.file(), newFile.file());
  const auto warnings = static_cast<int>(std::count_if(
      problems.begin(), problems.end(), [](const auto& problem) { return problem.isWarning; }));
  const int errors = problems.size() - warnings;
  if (invocation.wantsJson()) {
    out.json({{"file", fileName},
              {"old", oldFile.fileName()},
              {"new", newFile.fileName()},
              {"errors", errors},
              {"warnings", warnings},
              {"findings", toJson(problems)}});
  } else {
    print(fileName, problems, out);
    out.line(
        Tool::tr("errors %1, warnings %2").arg(QString::number(errors), QString::number(warnings)));
  }
  return errors > 0 ? ExitFindings : ExitDone;
}

}  // namespace

QVector<SCommand> migrationCheckCommands() {
  return {
      {"migration check",
       Tool::tr("Find what is wrong with a migration table."),
       Tool::tr("Lists with file and line: rules for parameters that are not defined, that "
                "contradict each other or cannot work on the types, and parameters whose meaning "
                "changed and that no rule is about. Warnings are what may be meant, such as "
                "parameters that are lost.\nThe exit status is 1 when there are errors."),
       {{"TABLE", Tool::tr("A migration table."), EWord::File}},
       {NOptions::required(
            {kOld, "DEF", Tool::tr("The definition file of the old release."), EWord::File}),
        NOptions::required(
            {kNew, "DEF", Tool::tr("The definition file of the new release."), EWord::File}),
        NOptions::json()},
       {"migration check Releases.xmig --old Release1.xpdef --new Release2.xpdef"},
       check}};
}
