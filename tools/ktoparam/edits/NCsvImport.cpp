#include "NCsvImport.h"

#include "CCsvTable.h"
#include "CInvocation.h"
#include "CLoadedFile.h"
#include "NDifferences.h"
#include "Output.h"
#include "SValueView.h"

namespace {

CParamDifferences changesOf(const QVector<SAssignment>& assignments, ICParameterFile& file,
                            const CLabels& labels) {
  CParamDifferences changes;
  CValueViews views(file, labels);
  for (const SAssignment& each : assignments) {
    if (!each.isChange) continue;
    file.selectHardwareId(each.hardwareId);
    SParamDifference change;
    change.hardwareId = each.hardwareId;
    change.subDevId = each.subDevId;
    change.newGroupPath =
        views.of(*file.findParameter(file.rootGroup(each.subDevId), each.name)).group;
    change.oldGroupPath = change.newGroupPath;
    change.name = each.name;
    change.oldValue = each.oldValue.asStr();
    change.newValue = each.newValue.asStr();
    changes.append(change);
  }
  return changes;
}

void print(const CInvocation& invocation, const CLoadedFile& loaded,
           const QVector<SAssignment>& assignments, int skipped, bool isSaved, COutput& out) {
  const CParamDifferences changes = changesOf(assignments, loaded.file(), out.labels());
  const int changed = changes.size();
  const int equal = assignments.size() - changed;
  if (invocation.wantsJson()) {
    return out.json(
        {{"file", loaded.fileName()},
         {"csv", invocation.value(NCsvImport::kCsv)},
         {"saved", isSaved},
         {"counts", QJsonObject{{"changed", changed}, {"equal", equal}, {"skipped", skipped}}},
         {"changes", NDifferences::toJson(changes, out.labels())}});
  }
  NDifferences::print(changes, loaded.file(), out);
  out.line(Tool::tr("changed %1, equal %2, skipped %3")
               .arg(QString::number(changed), QString::number(equal), QString::number(skipped)));
  invocation.noteDryRun(out);
}

}  // namespace

SOption NCsvImport::option() {
  return {kCsv, "FILE", Tool::tr("A table of values to take instead of SOURCE."), EWord::File};
}

QString NCsvImport::help() {
  return Tool::tr(
      "With --csv, DEST gets the values of a table that \"export --format csv\" printed and a "
      "spreadsheet saved, in UTF-8, with commas or semicolons. Its columns are found by their "
      "headings: name and value, and hardwareId and subDevice where DEST has several; all others "
      "are for reading. A row with the value that the parameter has is no edit. All rows are "
      "checked first, as \"set\" checks what is typed; then all changes are made, or none. Without "
      "--def a value is taken as the table has it, so that a spreadsheet's 1,5 or 1E+05 is stored "
      "like that; use --def, or look at the plan with --dry-run. With --hardware-id, rows of "
      "others "
      "are skipped.");
}

EExitStatus NCsvImport::run(const CInvocation& invocation, COutput& out) {
  CLoadedFile loaded(out);
  CCsvTable table(invocation.value(kCsv), out);
  const QString fileName = invocation.argument(0);
  if (!loaded.lock(fileName, invocation) || !loaded.loadValues(fileName, invocation) ||
      !loaded.canSave() || !table.load()) {
    return ExitFile;
  }
  const QString onlyId = invocation.value(NOptions::kHardwareId);
  if (invocation.isSet(NOptions::kHardwareId) && !loaded.selectHardwareId(onlyId))
    return ExitFindings;

  const bool isRead = table.readRows(loaded, onlyId);
  CAssignments assignments(loaded, table.rows(), out);
  if (!assignments.check() || !isRead) return ExitFindings;
  const bool save = assignments.hasChanges() && !invocation.isDryRun();
  if (save) {
    assignments.make();
    if (!loaded.save()) return ExitFile;
  }
  print(invocation, loaded, assignments.all(), table.skipped(), save, out);
  return ExitDone;
}
