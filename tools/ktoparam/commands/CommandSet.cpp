#include "CAssignments.h"
#include "CParameterWords.h"
#include "Command.h"
#include "NParameterLookup.h"
#include "NValueMeaning.h"

#include <algorithm>
#include <set>

namespace {

/// The words NAME=VALUE; an empty text, or what is wrong with them.
QString readAssignments(const CInvocation& invocation, QVector<SAssignment>& assignments) {
  std::set<QString> names;
  for (const QString& word : invocation.argumentsFrom(1)) {
    const int sign = word.indexOf(QLatin1Char('='));
    if (sign < 1) return Tool::tr("\"%1\" is not of the form NAME=VALUE.").arg(word);
    SAssignment assignment;
    assignment.name = word.left(sign);
    assignment.text = word.mid(sign + 1);
    if (assignment.text.isNull()) assignment.text = QLatin1String("");
    assignment.wantedSubDevice = invocation.subDevice();
    if (!names.insert(assignment.name).second)
      return Tool::tr("\"%1\" is set twice.").arg(assignment.name);
    assignments.append(assignment);
  }
  return {};
}

/// Of a word ADDRESS=VALUE.
std::optional<SAddress> addressOf(const QString& word) {
  return SAddress::read(word.left(SAddress::lengthOf(word)));
}

/// The hardware id that an address names; null without addresses.
QString meantHardwareId(const QStringList& words) {
  for (const QString& word : words)
    if (const auto address = addressOf(word)) return address->hardwareId;
  return {};
}

/// Takes addresses apart, but for those that are names of parameters. An empty text, or what is
/// wrong with them.
QString readAddresses(const CInvocation& invocation, const ICParameterFile& file,
                      QVector<SAssignment>& assignments) {
  for (int i = 0; i < assignments.size(); ++i) {
    SAssignment& assignment = assignments[i];
    const QString word = invocation.argument(i + 1);
    const std::optional<SAddress> address = addressOf(word);
    if (!address || !NParameterLookup::subDevicesWith(file, assignment.name).isEmpty()) continue;
    const QString problem = CParameterWords::disagreement(
        *address, invocation.value(NOptions::kHardwareId), invocation.subDevice());
    if (!problem.isEmpty()) return problem;
    assignment.name = address->name;
    assignment.text = word.mid(SAddress::lengthOf(word) + 1);
    assignment.hardwareId = address->hardwareId;
    assignment.address = address;
  }
  return {};
}

/// Whether addresses lead to other hardware ids than the active one.
bool hasOthers(const CLoadedFile& loaded, const QVector<SAssignment>& assignments) {
  return std::any_of(assignments.begin(), assignments.end(), [&loaded](const SAssignment& each) {
    return each.hardwareId != loaded.file().hardwareId();
  });
}

void print(const CInvocation& invocation, const CLoadedFile& loaded,
           const QVector<SAssignment>& assignments, bool isSaved, COutput& out) {
  const bool showsIds = hasOthers(loaded, assignments);
  QJsonArray array;
  CTable table({Tool::tr("HARDWARE ID"), Tool::tr("SUB-DEVICE"), Tool::tr("NAME"), Tool::tr("OLD"),
                Tool::tr("NEW"), Tool::tr("MEANING")});
  for (const SAssignment& each : assignments) {
    const CParamDefItem definition = loaded.file().paramDef(each.name);
    const QString old = each.oldValue.asStr();
    const QString value = each.isChange ? each.newValue.asStr() : old;
    array.append(QJsonObject{{"hardwareId", each.hardwareId},
                             {"subDevice", each.subDevId},
                             {"name", each.name},
                             {"old", old},
                             {"new", value},
                             {"changed", each.isChange}});
    table.addRow(
        {showsIds ? NDisplayText::shown(each.hardwareId) : QString(),
         QString::number(each.subDevId), NDisplayText::shown(each.name), NDisplayText::shown(old),
         each.isChange ? NDisplayText::shown(value) : Tool::tr("(unchanged)"),
         each.isChange
             ? NValueMeaning::change(definition, each.oldValue, each.newValue, out.labels())
             : NValueMeaning::meaning(definition, each.oldValue, out.labels())});
  }
  invocation.print(table,
                   {{"file", loaded.fileName()},
                    {"definitionFile", textOrNull(loaded.definitionFile())},
                    {"hardwareId", loaded.file().hardwareId()},
                    {"saved", isSaved},
                    {"assignments", array}},
                   out);
}

EExitStatus set(const CInvocation& invocation, COutput& out) {
  QVector<SAssignment> wanted;
  const QString problem = readAssignments(invocation, wanted);
  if (!problem.isEmpty()) return invocation.wrongUsage(problem, out);

  CLoadedFile loaded(out);
  const EExitStatus opened =
      loaded.openToEdit(invocation, meantHardwareId(invocation.argumentsFrom(1)));
  if (opened != ExitDone) return opened;
  const QString contradiction = readAddresses(invocation, loaded.file(), wanted);
  if (!contradiction.isEmpty()) return invocation.wrongUsage(contradiction, out);
  CAssignments assignments(loaded, wanted, out);
  if (!assignments.check()) return ExitFindings;

  const bool save = assignments.hasChanges() && !invocation.isDryRun();
  if (save) {
    assignments.make();
    if (!loaded.save()) return ExitFile;
  }
  print(invocation, loaded, assignments.all(), save, out);
  return ExitDone;
}

}  // namespace

QVector<SCommand> setCommands() {
  return {
      {"set",
       Tool::tr("Change values of parameters that a file has."),
       Tool::tr(
           "All assignments are checked first; then all are made and the file is saved, or none. "
           "With --def a value must be of its type and within the definition's limits and those of "
           "its limit parameters in the same sub-device, or be one of its choices; the name of a "
           "choice, radio button or check box state (checked, unchecked, undefined) may be given "
           "in place of its value, and is looked for before a number. Bits without a name are set "
           "with a warning. Without --def a value is taken as it is typed.\nValues of other "
           "parameters that are limited by a changed one are not looked at.") +
           QLatin1Char('\n') +
           Tool::tr("With --def, bits may be given as they are shown, such as \"DI4 | bit 7\"; "
                    "named ones that are not given are not active then.") +
           QLatin1Char('\n') +
           Tool::tr(
               "Without --def, a definition file that is found changes nothing that is stored; "
               "there is a warning of what it does not allow."),
       {NOptions::valueFile(),
        {"NAME=VALUE", Tool::tr("Names or addresses of parameters, and their new values."),
         EWord::Assignment, SArgument::OneOrMore}},
       {NOptions::oneHardwareId(),
        NOptions::subDevice(Tool::tr(
            "The sub-device, 0 to 255; needed when several have a parameter of the name.")),
        NOptions::def(Tool::tr("The definition file to check the values against.")),
        NOptions::noDef(), NOptions::dryRun(), NOptions::noWait(), NOptions::json()},
       {"set TwoAxisDrive.xparam OperatingMode=Homing VelocityLimit=450 --def "
        "TwoAxisDrive.xpdef --hardware-id KTO-2A-16 --sub-device 2"},
       set}};
}
