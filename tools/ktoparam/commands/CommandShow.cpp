#include "Command.h"
#include "Views.h"

namespace {

bool asksForValues(const CInvocation& invocation) {
  return invocation.isSet(NOptions::kDef) || invocation.isSet(NOptions::kNoDef) ||
         invocation.isSet(NOptions::kHardwareId) || invocation.isSet(NOptions::kSubDevice) ||
         invocation.isSet(QLatin1String("changed"));
}

EExitStatus show(const CInvocation& invocation, COutput& out) {
  const QString fileName = invocation.argument(0);
  const QStringList names = invocation.argumentsFrom(1);
  const std::optional<SFileInfo> info = SFileInfo::read(fileName, out);
  if (!info) return ExitFile;
  if (info->kind == SFileInfo::Values) return NViews::showValues(invocation, out);
  if (!names.isEmpty() && info->kind != SFileInfo::Definitions) {
    return invocation.wrongUsage(
        Tool::tr("%1 has no parameters; names choose among those of values and definitions.")
            .arg(fileName),
        out);
  }
  if (asksForValues(invocation)) {
    return invocation.wrongUsage(
        Tool::tr("%1 is not a value file; --json is the only option for others.").arg(fileName),
        out);
  }
  CLoadedFile loaded(out);
  if (!loaded.load(fileName)) return ExitFile;
  if (info->kind == SFileInfo::Settings)
    return NViews::showSettings(loaded, invocation.wantsJson(), out);
  if (!names.isEmpty())
    return NViews::showWholeDefinitions(loaded, names, invocation.wantsJson(), out);
  if (info->kind == SFileInfo::Definitions)
    NViews::showDefinitions(loaded, invocation.wantsJson(), out);
  else
    NViews::showCompensation(loaded, invocation.wantsJson(), out);
  return ExitDone;
}

}  // namespace

QVector<SCommand> showCommands() {
  return {
      {"show",
       Tool::tr("Show what is in a file."),
       Tool::tr(
           "Definitions are shown as a table, values as a tree for each hardware id and "
           "sub-device. With --def, units and the names of choices and bits are shown with "
           "the values, and a \"*\" before each value that is not the default.\nSettings are "
           "shown as a tree, compensation tables point by point, with a \"!\" before each "
           "wrong one.\nWith names, only these values are shown, or each of these definitions is "
           "shown whole: also which parameters limit it, which it limits, and what else refers "
           "to it. A definition may be named by its id, too. A name goes before a pattern. The "
           "exit status is 1 when one is not found; the others are still shown.\nA text is quoted, "
           "as in JSON, when it is "
           "empty, begins or ends with a blank, or holds line breaks or control "
           "characters."),
       {{"FILE", Tool::tr("A file of any kind."), EWord::File}, NOptions::parameters()},
       {NOptions::def(Tool::tr("The definition file of a value file.")),
        NOptions::noDef(),
        NOptions::hardwareId(),
        NOptions::subDevice(),
        {"changed", {}, Tool::tr("Only values that are not the default; needs definitions.")},
        NOptions::json()},
       {"show TwoAxisDrive.xpdef", "show TwoAxisDrive.xpdef VelocityLimit \"Homing*\"",
        "show TwoAxisDrive.xparam --def TwoAxisDrive.xpdef --sub-device 2 --changed"},
       show}};
}
