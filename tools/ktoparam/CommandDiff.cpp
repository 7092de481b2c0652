#include "CInvocation.h"
#include "CLoadedFile.h"
#include "COutput.h"
#include "CParameterFileComparison.h"
#include "Commands.h"
#include "Differences.h"
#include "Tool.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

EExitStatus diff(const CInvocation& invocation, COutput& out) {
  CLoadedFile oldFile(out);
  CLoadedFile newFile(out);
  const bool hasOld = oldFile.loadValues(invocation.argument(0));
  if (!newFile.load(invocation.argument(1), invocation) || !hasOld) return ExitFile;

  const CParamDifferences differences =
      CParameterFileComparison::compare(oldFile.file(), newFile.file(), &newFile.file());
  if (invocation.wantsJson()) {
    out.json({{QStringLiteral("old"), oldFile.fileName()},
              {QStringLiteral("new"), newFile.fileName()},
              {QStringLiteral("differences"), Differences::toJson(differences)}});
  } else {
    Differences::print(differences, out);
  }
  return differences.isEmpty() ? ExitDone : ExitFindings;
}

}  // namespace

QVector<SCommand> diffCommands() {
  SCommand command;
  command.name = QStringLiteral("diff");
  command.summary = Tool::tr("Show how the values of two files differ.");
  command.details = Tool::tr(
      "Lists what was added, removed, changed and moved to another group. With --def, values that "
      "are the same number are equal, however they are written. The order of parameters, the date "
      "and the comment are no differences.\n"
      "The exit status is 1 when there are differences.");
  command.arguments = {{QStringLiteral("OLD"), Tool::tr("A value file."), EWord::File},
                       {QStringLiteral("NEW"), Tool::tr("A value file."), EWord::File}};
  command.options = {CommonOptions::def(Tool::tr("The definition file.")), CommonOptions::json()};
  command.examples = QStringList(
      QStringLiteral("diff Delivered.xparam TwoAxisDrive.xparam --def TwoAxisDrive.xpdef"));
  command.run = diff;
  return {command};
}
