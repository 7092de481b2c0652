#include "CValueEdit.h"
#include "Command.h"
#include "NCsvImport.h"

namespace {

const QLatin1String kSourceHardwareId("source-hardware-id");
const QLatin1String kKeepMissing("keep-missing");
const QLatin1String kAllowInvalid("allow-invalid");

bool checkTypes(const CLoadedFile& destination, const CLoadedFile& source) {
  if (destination.info().type == source.info().type) return true;
  source.message(
      Tool::tr("this is a file of type %1; values for a file of type %2 are needed here.")
          .arg(source.info().typeName, destination.info().typeName));
  return false;
}

/// Reports all parameters that would need a default and have no definition; the library stops at
/// the first.
int reportImpossible(const CLoadedFile& destination, const ICParameterFile& source) {
  const ICParameterFile& file = destination.file();
  int failed = 0;
  for (const quint8 id : file.subDeviceIds()) {
    for (const QString& name : file.paramNames(id)) {
      const bool hasValue = !source.paramValue(name, id).isNull();
      if (hasValue || !file.paramDef(name).name().isEmpty()) continue;
      ++failed;
      destination.message(
          Tool::tr("parameter \"%1\" of sub-device %2 is neither in the source nor defined, so "
                   "there is no value for it. --keep-missing leaves such parameters as they are.")
              .arg(name, QString::number(id)));
    }
  }
  return failed;
}

/// What is wrong with SOURCE, --csv and the options of one of them; empty when nothing is.
QString sourceProblem(const CInvocation& invocation) {
  const bool hasSource = !invocation.argumentsFrom(1).isEmpty();
  const bool hasTable = invocation.isSet(NCsvImport::kCsv);
  if (!hasSource && !hasTable) return Tool::tr("SOURCE or --csv FILE is missing.");
  if (hasSource && hasTable) return Tool::tr("SOURCE and --csv cannot be used together.");
  if (hasSource && !invocation.isSet(NOptions::kDef))
    return Tool::tr("--%1 %2 is missing.").arg(NOptions::kDef, QLatin1String("DEF"));
  for (const QLatin1String option : {kSourceHardwareId, kKeepMissing, kAllowInvalid})
    if (hasTable && invocation.isSet(option))
      return Tool::tr("--%1 goes with SOURCE, not with --csv.").arg(option);
  return {};
}

EExitStatus import(const CInvocation& invocation, COutput& out) {
  const QString problem = sourceProblem(invocation);
  if (!problem.isEmpty()) return invocation.wrongUsage(problem, out);
  if (invocation.isSet(NCsvImport::kCsv)) return NCsvImport::run(invocation, out);
  CLoadedFile destination(out);
  if (!destination.lock(invocation.argument(0), invocation)) return ExitFile;
  CLoadedFile source(out);
  if (!destination.loadValues(invocation.argument(0), invocation) || !destination.canSave() ||
      !source.load(invocation.argument(1), SFileInfo::Values))
    return ExitFile;
  if (!checkTypes(destination, source) || !destination.selectOneHardwareId(invocation) ||
      !source.selectOneHardwareId(invocation, kSourceHardwareId))
    return ExitFindings;
  ICParameterFile& file = destination.file();
  const bool keep = invocation.isSet(kKeepMissing);
  CValueEdit edit(destination, invocation, out);
  SEditCounts counts;
  counts.failed = keep ? 0 : reportImpossible(destination, source.file());
  if (counts.failed > 0) return edit.refuse(counts);
  NParamDef::CImportedParams imported;
  if (!file.importParamFile(&source.file(), source.file().hardwareId(), file.hardwareId(),
                            keep ? NParamDef::ImportKeep : NParamDef::ImportDefault, imported)) {
    destination.message(file.errorMsg());
    return ExitFindings;
  }
  for (const NParamDef::SImportedParam& each : qAsConst(imported))
    counts.note(static_cast<SEditedParam::EWhat>(each.what), each.subDevId, each.name);
  return edit.finish(
      counts, invocation.isSet(kAllowInvalid) ? CValueEdit::SavedAsTold : CValueEdit::Refused);
}

}  // namespace

QVector<SCommand> importCommands() {
  return {{"import",
           Tool::tr("Take over the values of another file, or of another hardware id."),
           Tool::tr("Every parameter of DEST gets the value that SOURCE has for the same "
                    "sub-device and name, or else the default of its definition. Parameters that "
                    "only SOURCE has are added when they are defined, and skipped (\"unknown\") "
                    "when they are not. All is done, or nothing.\nDEST and SOURCE may be one file "
                    "with two hardware ids.\nLists by name what was taken, got the default, was "
                    "kept, added or skipped, with old and new value; what was equal already is "
                    "only counted.\nValues that the definitions do not allow are told as \"check\" "
                    "tells them: those that were written, and others that a written limit "
                    "parameter no longer allows. Nothing is saved then, and the exit status is 1. "
                    "What was wrong before and stays as it was is not looked at; warnings, such "
                    "as of unnamed bits, do not count.") +
               QLatin1Char('\n') + NCsvImport::help(),
           {{"DEST", Tool::tr("The value file to change."), EWord::File},
            {"SOURCE", Tool::tr("The value file to take values from."), EWord::File,
             SArgument::NoneOrOne}},
           {NOptions::def(Tool::tr("The definition file of DEST; needed with SOURCE.")),
            NCsvImport::option(),
            {kSourceHardwareId, "ID",
             Tool::tr("The hardware id in SOURCE; needed when it has several."), EWord::HardwareId},
            NOptions::hardwareId(Tool::tr("The hardware id in DEST; needed when it has several.")),
            {kKeepMissing,
             {},
             Tool::tr("Leave what SOURCE lacks as it is, instead of setting it to its default.")},
            {kAllowInvalid,
             {},
             Tool::tr("Save all the same where the definitions do not allow a value, and exit with "
                      "0. What they do not allow is still told.")},
            NOptions::dryRun(),
            NOptions::noWait(),
            NOptions::json()},
           {"import TwoAxisDrive.xparam TwoAxisDrive.xparam --def TwoAxisDrive.xpdef "
            "--source-hardware-id KTO-2A-16 --hardware-id KTO-2A-32 --dry-run"},
           import}};
}
