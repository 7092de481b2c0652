#include "CComparedFiles.h"
#include "CDefinitionComparison.h"
#include "Command.h"
#include "NDefinitionDifferences.h"
#include "NDifferenceFilter.h"
#include "NDifferenceSummary.h"
#include "NDifferences.h"
#include "NIdDifferences.h"

namespace {

const QLatin1String kOnly = CComparedFiles::kOnly;

QString usageProblem(const CInvocation& invocation) {
  if (invocation.isSet(NDefinitionDifferences::kBreaking))
    return Tool::tr("--%1 is for definition files.").arg(NDefinitionDifferences::kBreaking);
  const QString problem = CComparedFiles::usageProblem(invocation);
  return problem.isEmpty() && invocation.isSet(kOnly)
             ? NDifferenceFilter::problem(invocation.value(kOnly))
             : problem;
}

/// The list, in which ids come last and many of them are only counted, and the summary.
void print(const CParamDifferences& differences, bool listsAllIds, const CComparedFiles& files,
           COutput& out) {
  using NDifferenceSummary::kMostLines;
  const auto [others, ids, parameters] =
      NIdDifferences::separated(differences, [&files] { return files.places(); });
  const bool isCounted = !listsAllIds && ids.size() > kMostLines;
  const CParamDifferences listed = isCounted ? others : others + ids;
  NDifferences::print(listed, files.definitions(), out);
  if (!listed.isEmpty()) out.line({});
  NDifferenceSummary::printTotal(differences, out);
  if (isCounted)
    out.line(Tool::tr("%1 parameters have other ids; --only id lists them.").arg(parameters));
  if (listed.size() > kMostLines) NDifferenceSummary::printParts(differences, out);
}

EExitStatus diffDefinitions(const CInvocation& invocation, COutput& out) {
  const QString problem = NDefinitionDifferences::usageProblem(invocation);
  if (!problem.isEmpty()) return invocation.wrongUsage(problem, out);
  CLoadedFile oldFile(out);
  CLoadedFile newFile(out);
  const bool hasOld = oldFile.load(invocation.argument(0), SFileInfo::Definitions);
  if (!newFile.load(invocation.argument(1), SFileInfo::Definitions) || !hasOld) return ExitFile;
  out.doing(Tool::tr("Comparing …"));
  CDefinitionDifferences differences =
      CDefinitionComparison::compare(oldFile.file(), newFile.file());
  if (invocation.isSet(NDefinitionDifferences::kBreaking))
    differences = NDefinitionDifferences::breaking(differences);
  if (invocation.wantsJson()) {
    out.json({{"old", oldFile.fileName()},
              {"new", newFile.fileName()},
              {"definitionFile", QJsonValue()},
              {"summary", NDefinitionDifferences::summary(differences)},
              {"differences", NDefinitionDifferences::toJson(differences, out.labels())}});
  } else {
    NDefinitionDifferences::print(differences, out);
  }
  return differences.isEmpty() ? ExitDone : ExitFindings;
}

EExitStatus diff(const CInvocation& invocation, COutput& out) {
  if (NDefinitionDifferences::areMeant(invocation.argument(0), invocation.argument(1)))
    return diffDefinitions(invocation, out);
  const QString problem = usageProblem(invocation);
  if (!problem.isEmpty()) return invocation.wrongUsage(problem, out);
  CComparedFiles files(invocation, out);
  if (!files.load()) return ExitFile;
  if (!files.select()) return ExitFindings;
  const EExitStatus looked = files.look();
  if (looked != ExitDone) return looked;

  out.doing(Tool::tr("Comparing …"));
  CParamDifferences differences = files.compare();
  if (invocation.isSet(kOnly))
    differences = NDifferenceFilter::filtered(differences, invocation.value(kOnly));
  if (invocation.wantsJson()) {
    out.json({{"old", files.oldName()},
              {"new", files.newName()},
              {"definitionFile", textOrNull(files.definitionFile())},
              {"summary", NDifferenceSummary::toJson(differences)},
              {"differences", NDifferences::toJson(differences, out.labels())}});
  } else {
    print(differences, invocation.isSet(kOnly), files, out);
  }
  return differences.isEmpty() ? ExitDone : ExitFindings;
}

SOption only() {
  SOption option{kOnly, "KINDS",
                 Tool::tr("Only these, with commas between them: %1.")
                     .arg(NDifferenceFilter::words().join(QLatin1String(", ")))};
  option.choices = NDifferenceFilter::words();
  return option;
}

}  // namespace

QVector<SCommand> diffCommands() {
  return {
      {"diff",
       Tool::tr("Show how two files of values or definitions differ."),
       Tool::tr("Lists what was added, removed, changed and moved to another group. With --def, "
                "values that are the same number are equal, however they are written. The order of "
                "parameters, the date and the comment do not count as differences.\nTwo hardware "
                "ids or two sub-devices can be compared, too, also of one file; the list shows "
                "those of NEW then. Files of other kinds can be compared as \"ktoparam text\" "
                "prints them.\nAn id that changed in the same way wherever its parameter is stands "
                "in the list once, without hardware id or sub-device; more than 24 such lines are "
                "only counted. The counts of all kinds follow and, behind a list of more than 24 "
                "lines, where most differences are.\nTwo definition files are compared by name, "
                "renamed definitions by id. What differs is safe (every value that was allowed "
                "still is, and means the same), or values may break, or their meaning changed.\n"
                "The exit status is 1 when there are "
                "differences; with --only or --breaking, when there are some of these kinds."),
       {{"OLD", Tool::tr("A value file or a definition file."), EWord::File},
        {"NEW",
         Tool::tr(
             "A file of the same kind; OLD unless given, where an option names its other part."),
         EWord::File, SArgument::NoneOrOne},
        NOptions::parameters()},
       {NOptions::def(Tool::tr("The definition file.")),
        NOptions::noDef(),
        NOptions::hardwareId(),
        {CComparedFiles::kNewHardwareId, "ID", Tool::tr("Compare it with this one of NEW."),
         EWord::HardwareId},
        NOptions::subDevice(),
        {CComparedFiles::kNewSubDevice, "N", Tool::tr("Compare it with this one of NEW."),
         EWord::SubDevice},
        only(),
        {NDefinitionDifferences::kBreaking,
         {},
         Tool::tr("Of definition files, only what is not safe.")},
        NOptions::json()},
       {"diff Delivered.xparam TwoAxisDrive.xparam --def TwoAxisDrive.xpdef",
        "diff Delivered.xparam TwoAxisDrive.xparam --only changed,added,removed",
        "diff Release1.xpdef Release2.xpdef --breaking",
        "diff TwoAxisDrive.xparam --hardware-id KTO-2A-16 --new-hardware-id KTO-2A-32",
        "diff TwoAxisDrive.xparam --sub-device 2 --new-sub-device 3"},
       diff}};
}
