#include "CAssignments.h"
#include "CInvocation.h"
#include "CLoadedFile.h"
#include "COutput.h"
#include "CTable.h"
#include "Commands.h"
#include "DisplayText.h"
#include "Tool.h"
#include "ValueTexts.h"

#include <QJsonArray>
#include <QJsonObject>

#include <set>

namespace {

/// The words NAME=VALUE; an empty text, or what is wrong with them.
QString readAssignments(const QStringList& words, QVector<SAssignment>& assignments) {
  std::set<QString> names;
  for (const QString& word : words) {
    const int sign = word.indexOf(QLatin1Char('='));
    if (sign < 1) return Tool::tr("\"%1\" is not of the form NAME=VALUE.").arg(word);
    SAssignment assignment;
    assignment.name = word.left(sign);
    assignment.text = word.mid(sign + 1);
    if (assignment.text.isNull()) assignment.text = QLatin1String("");
    if (!names.insert(assignment.name).second)
      return Tool::tr("\"%1\" is set twice.").arg(assignment.name);
    assignments.append(assignment);
  }
  return {};
}

void printTable(const ICParameterFile& file, const QVector<SAssignment>& assignments,
                COutput& out) {
  CTable table({Tool::tr("SUB-DEVICE"), Tool::tr("NAME"), Tool::tr("OLD"), Tool::tr("NEW"),
                Tool::tr("MEANING")});
  for (const SAssignment& each : assignments) {
    const CParamDefItem definition = file.paramDef(each.name);
    table.addRow(
        {QString::number(each.subDevId), DisplayText::shown(each.name),
         DisplayText::shown(each.oldValue.asStr()),
         each.isChange ? DisplayText::shown(each.newValue.asStr()) : Tool::tr("(unchanged)"),
         each.isChange ? ValueTexts::change(definition, each.oldValue, each.newValue, out.labels())
                       : ValueTexts::meaning(definition, each.oldValue, out.labels())});
  }
  table.print(out);
}

void printJson(const CLoadedFile& loaded, const QVector<SAssignment>& assignments, bool isSaved,
               COutput& out) {
  QJsonArray array;
  for (const SAssignment& each : assignments) {
    const CParamVal& value = each.isChange ? each.newValue : each.oldValue;
    array.append(QJsonObject{{QStringLiteral("subDevice"), each.subDevId},
                             {QStringLiteral("name"), each.name},
                             {QStringLiteral("old"), each.oldValue.asStr()},
                             {QStringLiteral("new"), value.asStr()},
                             {QStringLiteral("changed"), each.isChange}});
  }
  out.json({{QStringLiteral("file"), loaded.fileName()},
            {QStringLiteral("hardwareId"), loaded.file().hardwareId()},
            {QStringLiteral("saved"), isSaved},
            {QStringLiteral("assignments"), array}});
}

EExitStatus set(const CInvocation& invocation, COutput& out) {
  QVector<SAssignment> wanted;
  const QString problem = readAssignments(invocation.argumentsFrom(1), wanted);
  if (!problem.isEmpty()) return invocation.wrongUsage(problem, out);

  CLoadedFile loaded(out);
  if (!loaded.load(invocation.argument(0), invocation) || !loaded.canSave()) return ExitFile;
  if (!loaded.selectOneHardwareId(invocation) ||
      !loaded.checkSubDevice(invocation.subDevice(), {loaded.file().hardwareId()})) {
    return ExitFindings;
  }
  CAssignments assignments(loaded, wanted);
  if (!assignments.check(invocation.subDevice())) return ExitFindings;

  const bool save = assignments.hasChanges() && !invocation.isSet(CommonOptions::kDryRun);
  if (save) {
    assignments.make();
    if (!loaded.save()) return ExitFile;
  }
  if (invocation.wantsJson()) {
    printJson(loaded, assignments.all(), save, out);
  } else {
    printTable(loaded.file(), assignments.all(), out);
    if (invocation.isSet(CommonOptions::kDryRun)) out.line(CommonOptions::dryRunNote());
  }
  return ExitDone;
}

}  // namespace

QVector<SCommand> setCommands() {
  SCommand command;
  command.name = QStringLiteral("set");
  command.summary = Tool::tr("Change values of parameters that a file has.");
  command.details = Tool::tr(
      "All assignments are checked first; then all are made and the file is saved, or none. With "
      "--def a value must be of its type and within the definition's limits and those of its limit "
      "parameters in the same sub-device, or be one of its choices; the name of a choice, radio "
      "button or check box state (checked, unchecked, undefined) may be given in place of its "
      "value, and is looked for before a number. Bits without a name are set with a warning. "
      "Without --def a value is taken as it is typed.\n"
      "Values of other parameters that are limited by a changed one are not looked at.");
  command.arguments = {
      {QStringLiteral("FILE"), Tool::tr("A value file."), EWord::File},
      {QStringLiteral("NAME=VALUE"), Tool::tr("Names of parameters and their new values."),
       EWord::Assignment, SArgument::OneOrMore}};
  command.options = {
      CommonOptions::hardwareId(Tool::tr("The hardware id; needed when the file has several.")),
      CommonOptions::subDevice(
          Tool::tr("The sub-device, 0 to 255; needed when several have a parameter of the name.")),
      CommonOptions::def(Tool::tr("The definition file to check the values against.")),
      CommonOptions::dryRun(), CommonOptions::json()};
  command.examples = QStringList(QStringLiteral(
      "set TwoAxisDrive.xparam OperatingMode=Homing VelocityLimit=450 --def TwoAxisDrive.xpdef "
      "--hardware-id KTO-2A-16 --sub-device 2"));
  command.run = set;
  return {command};
}
