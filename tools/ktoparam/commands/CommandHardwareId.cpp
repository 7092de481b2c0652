#include "Command.h"

namespace {

/// Prints the hardware ids that the file has.
void print(const CLoadedFile& loaded, const CInvocation& invocation, COutput& out) {
  ICParameterFile& file = loaded.file();
  CTable table({Tool::tr("HARDWARE ID"), Tool::tr("SUB-DEVICES"), Tool::tr("PARAMETERS")});
  QJsonArray array;
  for (const QString& hardwareId : file.hardwareIds()) {
    file.selectHardwareId(hardwareId);
    QJsonArray subDevices;
    int parameters = 0;
    for (const quint8 id : file.subDeviceIds()) {
      subDevices.append(id);
      parameters += file.paramNames(id).size();
    }
    table.addRow({out.labels().shown(hardwareId), QString::number(subDevices.size()),
                  QString::number(parameters)});
    array.append(QJsonObject{{QStringLiteral("id"), out.labels().of(hardwareId)},
                             {QStringLiteral("subDevices"), subDevices},
                             {QStringLiteral("parameters"), parameters}});
  }
  if (!invocation.wantsJson()) return table.print(out);
  out.json({{QStringLiteral("file"), loaded.fileName()}, {QStringLiteral("hardwareIds"), array}});
}

/// Loads the file, edits it, saves it unless it is a dry run, and prints what it has then.
template <bool (*change)(CLoadedFile&, const CInvocation&)>
EExitStatus edit(const CInvocation& invocation, COutput& out) {
  CLoadedFile loaded(out);
  if (!loaded.load(invocation.argument(0), SFileInfo::Values) || !loaded.canSave()) return ExitFile;
  if (!change(loaded, invocation)) return ExitFindings;
  const bool isDryRun = invocation.isDryRun();
  if (!isDryRun && !loaded.save()) return ExitFile;
  print(loaded, invocation, out);
  if (isDryRun && !invocation.wantsJson()) out.line(NOptions::dryRunNote());
  return ExitDone;
}

/// Selecting the source first gives a message that knows the ids that there are.
bool selectSource(CLoadedFile& loaded, const CInvocation& invocation) {
  return loaded.selectHardwareId(invocation.argument(1));
}

/// Blanks around a hardware id do not survive a load.
QString newId(const CInvocation& invocation) {
  return invocation.argument(2).trimmed();
}

bool isUsable(const CLoadedFile& loaded, const QString& hardwareId) {
  if (hardwareId.isEmpty()) {
    loaded.message(Tool::tr("a hardware id must not be empty."));
    return false;
  }
  if (loaded.file().containsHardwareId(hardwareId)) {
    loaded.message(
        Tool::tr("there is a hardware id \"%1\" already; remove it first.").arg(hardwareId));
    return false;
  }
  return true;
}

bool clone(CLoadedFile& loaded, const CInvocation& invocation) {
  return selectSource(loaded, invocation) && isUsable(loaded, newId(invocation)) &&
         loaded.file().cloneHardwareId(invocation.argument(1), newId(invocation));
}

bool rename(CLoadedFile& loaded, const CInvocation& invocation) {
  return selectSource(loaded, invocation) && isUsable(loaded, newId(invocation)) &&
         loaded.file().renameHardwareId(invocation.argument(1), newId(invocation));
}

bool remove(CLoadedFile& loaded, const CInvocation& invocation) {
  if (!selectSource(loaded, invocation)) return false;
  const QString hardwareId = invocation.argument(1);
  QStringList others = loaded.file().hardwareIds();
  others.removeOne(hardwareId);
  if (others.isEmpty()) {
    loaded.message(
        Tool::tr(
            "\"%1\" is the last hardware id, and a file must have one; delete the file instead.")
            .arg(hardwareId));
    return false;
  }
  return loaded.selectHardwareId(others.first()) && loaded.file().removeHardwareId(hardwareId);
}

EExitStatus runList(const CInvocation& invocation, COutput& out) {
  CLoadedFile loaded(out);
  if (!loaded.load(invocation.argument(0), SFileInfo::Values)) return ExitFile;
  print(loaded, invocation, out);
  return ExitDone;
}

SArgument idArgument(const QString& help) {
  return {QStringLiteral("ID"), help, EWord::HardwareId};
}

SArgument newIdArgument() {
  return {QStringLiteral("NEW-ID"), Tool::tr("The new hardware id.")};
}

}  // namespace

QVector<SCommand> hardwareIdCommands() {
  const QString details = Tool::tr("Prints the hardware ids that the file has then.");
  const QVector<SOption> options = {NOptions::dryRun(), NOptions::json()};
  return {
      {QStringLiteral("hardware-id list"),
       Tool::tr("List the hardware ids of a file."),
       {},
       {NOptions::valueFile()},
       {NOptions::json()},
       {QStringLiteral("hardware-id list TwoAxisDrive.xparam")},
       runList},
      {QStringLiteral("hardware-id clone"),
       Tool::tr("Copy a hardware id with all its values to a new one."),
       details,
       {NOptions::valueFile(), idArgument(Tool::tr("The hardware id to copy.")), newIdArgument()},
       options,
       {QStringLiteral("hardware-id clone TwoAxisDrive.xparam KTO-2A-16 KTO-2A-64")},
       edit<clone>},
      {QStringLiteral("hardware-id rename"),
       Tool::tr("Give a hardware id another name."),
       details,
       {NOptions::valueFile(), idArgument(Tool::tr("The current hardware id.")), newIdArgument()},
       options,
       {QStringLiteral("hardware-id rename TwoAxisDrive.xparam KTO-2A-16 KTO-2A-16B")},
       edit<rename>},
      {QStringLiteral("hardware-id remove"),
       Tool::tr("Remove a hardware id with all its values."),
       details,
       {NOptions::valueFile(),
        idArgument(Tool::tr("The hardware id to remove; not the last one."))},
       options,
       {QStringLiteral("hardware-id remove TwoAxisDrive.xparam KTO-2A-16")},
       edit<remove>}};
}
