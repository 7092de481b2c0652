#include "CDefinitionMerge.h"
#include "CParameterFileMerge.h"
#include "Command.h"

#include <QFileInfo>

namespace {

/// An empty file is what git gives as the base of files that were added on both sides.
bool isEmptyBase(const QString& fileName) {
  const QFileInfo place(fileName);
  return place.isFile() && place.size() == 0;
}

bool loadBase(CLoadedFile& base, const QString& fileName, NktoGlobal::EParamFileType type) {
  if (!isEmptyBase(fileName)) return base.load(fileName, SFileInfo::Values);
  base.begin(fileName, type, 0);
  return true;
}

bool load(const CInvocation& invocation, CLoadedFile& base, CLoadedFile& ours,
          CLoadedFile& theirs) {
  return ours.loadValues(invocation.argument(1), invocation) &&
         loadBase(base, invocation.argument(0), ours.info().type) &&
         theirs.load(invocation.argument(2), SFileInfo::Values);
}

void report(const CInvocation& invocation, const CMergeConflicts& conflicts, bool areOfDefinitions,
            COutput& out) {
  const CLabels& labels = out.labels();
  QJsonArray array;
  CTable table(areOfDefinitions
                   ? QStringList{Tool::tr("NAME"), Tool::tr("WHAT"), Tool::tr("CONFLICT")}
                   : QStringList{Tool::tr("HARDWARE ID"), Tool::tr("SUB-DEVICE"), Tool::tr("NAME"),
                                 Tool::tr("CONFLICT")});
  for (const SMergeConflict& conflict : conflicts) {
    const bool hasSubDevice = conflict.subDevId != SMergeConflict::kNoSubDevice;
    array.append(
        QJsonObject{{"subject", SMergeConflict::subjectText(conflict.subject)},
                    {"kind", SMergeConflict::kindText(conflict.kind)},
                    {"hardwareId", labels.of(conflict.hardwareId)},
                    {"subDevice", hasSubDevice ? QJsonValue(conflict.subDevId) : QJsonValue()},
                    {"group", conflict.groupPath},
                    {"name", labels.of(conflict.name)},
                    {"base", presentOrNull(conflict.base)},
                    {"ours", presentOrNull(conflict.ours)},
                    {"theirs", presentOrNull(conflict.theirs)},
                    {"text", conflict.text()}});
    const QString name = labels.shownOrNothing(conflict.name);
    const QString text = NDisplayText::escaped(conflict.text());
    table.addRow(areOfDefinitions
                     ? QStringList{name, SMergeConflict::subjectText(conflict.subject), text}
                     : QStringList{labels.shownOrNothing(conflict.hardwareId),
                                   hasSubDevice ? QString::number(conflict.subDevId) : QString(),
                                   name, text});
  }
  invocation.print(table, {{"file", invocation.value(NOptions::kOutput)}, {"conflicts", array}},
                   out);
}

EExitStatus mergeDefinitions(const CInvocation& invocation, COutput& out) {
  if (invocation.isSet(NOptions::kDef))
    return invocation.wrongUsage(Tool::tr("--%1 is for value files.").arg(NOptions::kDef), out);
  CLoadedFile base(out);
  CLoadedFile ours(out);
  CLoadedFile theirs(out);
  const QString output = invocation.value(NOptions::kOutput);
  const QString baseName = invocation.argument(0);
  if (!ours.lock(output, invocation)) return ExitFile;
  if (!ours.load(invocation.argument(1), SFileInfo::Definitions) ||
      !(isEmptyBase(baseName) || base.load(baseName, SFileInfo::Definitions)) ||
      !theirs.load(invocation.argument(2), SFileInfo::Definitions) || !ours.canSave() ||
      !theirs.canSave() || !SFileInfo::mayReplace(output, SFileInfo::Definitions, out)) {
    return ExitFile;
  }
  CDefinitionMerge merging(base.file(), ours.file(), theirs.file());
  merging.setVersions(base.info().version, ours.info().version, theirs.info().version);
  out.doing(Tool::tr("Merging …"));
  if (!merging.run()) {
    ours.message(merging.errorMsg());
    return ExitFile;
  }
  if (!ours.saveDefinitionsAs(output, merging.version())) return ExitFile;
  report(invocation, merging.conflicts(), true, out);
  return merging.conflicts().isEmpty() ? ExitDone : ExitFindings;
}

EExitStatus merge(const CInvocation& invocation, COutput& out) {
  if (SFileInfo::kindOf(invocation.argument(1)) == SFileInfo::Definitions)
    return mergeDefinitions(invocation, out);
  CLoadedFile base(out);
  CLoadedFile ours(out);
  CLoadedFile theirs(out);
  const QString output = invocation.value(NOptions::kOutput);
  if (!ours.lock(output, invocation)) return ExitFile;
  if (!load(invocation, base, ours, theirs) || !ours.canSave() || !theirs.canSave())
    return ExitFile;
  if (!SFileInfo::mayReplace(output, SFileInfo::Values, out)) return ExitFile;

  CParameterFileMerge merging(base.file(), ours.file(), theirs.file());
  out.doing(Tool::tr("Merging …"));
  if (!merging.run()) {
    ours.message(merging.errorMsg());
    return ExitFile;
  }
  if (!ours.saveAs(output, merging.version())) return ExitFile;
  theirs.tellWhatSavesLose();
  report(invocation, merging.conflicts(), false, out);
  return merging.conflicts().isEmpty() ? ExitDone : ExitFindings;
}

}  // namespace

QVector<SCommand> mergeCommands() {
  return {{"merge",
           Tool::tr("Merge the changes of two files that come from one."),
           Tool::tr("Takes what THEIRS changed since BASE into OURS, parameter by parameter, or, "
                    "of definition files, field by field of each definition. Where both changed "
                    "the same thing differently, OUT keeps what OURS has, the "
                    "conflict is listed, and the exit status is 1. The date of the Head never "
                    "conflicts. With an empty BASE, the files were made independently.\nOUT may be "
                    "one of the three files, as a merge driver of git needs it."),
           {{"BASE", Tool::tr("The value or definition file that both come from."), EWord::File},
            {"OURS", Tool::tr("One's own file."), EWord::File},
            {"THEIRS", Tool::tr("The other file."), EWord::File}},
           {NOptions::required(NOptions::output(Tool::tr("Where the result goes to."))),
            NOptions::def(Tool::tr(
                "The definition file: values that are the same number are not a conflict then.")),
            NOptions::noWait(), NOptions::json()},
           {"merge Base.xparam Ours.xparam Theirs.xparam -o Merged.xparam"},
           merge}};
}
