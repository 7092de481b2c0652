#include "CParamValueRules.h"
#include "CParameterWords.h"
#include "CValueEdit.h"
#include "Command.h"

namespace {

SEditedParam::EWhat setDefault(ICParameterFile& file, const QString& name, quint8 subDevId) {
  const CParamDefItem definition = file.paramDef(name);
  if (definition.name().isEmpty()) return SEditedParam::Unknown;
  const CParamVal value = definition.defVal();
  if (value.isNull()) return SEditedParam::Kept;
  if (CParamValueRules::mayStay(file.paramValue(name, subDevId), value, definition))
    return SEditedParam::Equal;
  return file.setParamValue(name, value, subDevId) ? SEditedParam::Defaulted : SEditedParam::Failed;
}

/// Sets what is meant to its default.
SEditCounts setDefaults(const CLoadedFile& loaded, const CParameterWords& words) {
  ICParameterFile& file = loaded.file();
  SEditCounts counts;
  for (const quint8 id : loaded.chosenSubDevices()) {
    for (const QString& name : file.paramNames(id)) {
      if (!words.mean(*file.findParameter(file.rootGroup(id), name))) continue;
      counts.note(setDefault(file, name, id), id, name);
    }
  }
  return counts;
}

EExitStatus defaults(const CInvocation& invocation, COutput& out) {
  CLoadedFile loaded(out);
  CParameterWords words(invocation.argumentsFrom(1));
  const EExitStatus opened = words.openToEdit(loaded, invocation, out);
  if (opened != ExitDone) return opened;
  words.look(loaded.file(), loaded.chosenSubDevice());
  if (!words.reportMissing(loaded, {loaded.file().hardwareId()})) return ExitFindings;
  CValueEdit edit(loaded, invocation, out);
  const SEditCounts counts = setDefaults(loaded, words);
  return counts.failed > 0 ? edit.refuse(counts) : edit.finish(counts, CValueEdit::Saved);
}

}  // namespace

QVector<SCommand> defaultsCommands() {
  return {{"defaults",
           Tool::tr("Set parameters to the defaults of their definitions."),
           Tool::tr("Without a name all parameters of the hardware id are set. Parameters that are "
                    "not defined, or whose definition has no default, are left as they are and "
                    "listed as skipped or kept. A name or pattern that is found nowhere is an "
                    "error, and nothing is changed then.\nDefaults that the "
                    "definitions do not allow are set all the same and told as \"check\" tells "
                    "them, as are other values that a limit parameter no longer allows then; the "
                    "exit status is 1 when one of them is an error."),
           {NOptions::valueFile(), NOptions::parameters()},
           {NOptions::required(NOptions::def(Tool::tr("The definition file."))),
            NOptions::oneHardwareId(), NOptions::subDevice(), NOptions::dryRun(),
            NOptions::noWait(), NOptions::json()},
           {"defaults TwoAxisDrive.xparam \"Velocity*\" --def TwoAxisDrive.xpdef "
            "--hardware-id KTO-2A-16 --dry-run"},
           defaults}};
}
