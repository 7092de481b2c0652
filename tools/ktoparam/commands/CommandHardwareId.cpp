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
    array.append(QJsonObject{{"id", out.labels().of(hardwareId)},
                             {"subDevices", subDevices},
                             {"parameters", parameters}});
  }
  invocation.print(table, {{"file", loaded.fileName()}, {"hardwareIds", array}}, out);
}

/// Loads the file, edits it, saves it unless it is a dry run, and prints what it has then.
template <bool (*change)(CLoadedFile&, const CInvocation&)>
EExitStatus edit(const CInvocation& invocation, COutput& out) {
  CLoadedFile loaded(out);
  const QString fileName = invocation.argument(0);
  if (!loaded.lock(fileName, invocation) || !loaded.load(fileName, SFileInfo::Values) ||
      !loaded.canSave()) {
    return ExitFile;
  }
  if (!change(loaded, invocation)) return ExitFindings;
  if (!invocation.isDryRun() && !loaded.save()) return ExitFile;
  print(loaded, invocation, out);
  return ExitDone;
}

/// Selecting the source first gives a message that knows the ids that there are.
bool selectSource(CLoadedFile& loaded, const CInvocation& invocation) {
  return loaded.selectHardwareId(invocation.argument(1));
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

/// Clones or renames. Blanks around a hardware id do not survive a load.
template <bool (ICParameterFile::*change)(const QString&, const QString&)>
bool toNewId(CLoadedFile& loaded, const CInvocation& invocation) {
  const QString newId = invocation.argument(2).trimmed();
  return selectSource(loaded, invocation) && isUsable(loaded, newId) &&
         (loaded.file().*change)(invocation.argument(1), newId);
}

bool remove(CLoadedFile& loaded, const CInvocation& invocation) {
  if (!selectSource(loaded, invocation)) return false;
  const QString hardwareId = invocation.argument(1);
  QStringList others = loaded.file().hardwareIds();
  others.removeOne(hardwareId);
  if (others.isEmpty()) {
    loaded.message(Tool::tr("\"%1\" is the last hardware id, and a file must have one; "
                            "delete the file instead.")
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
  return {"ID", help, EWord::HardwareId};
}

}  // namespace

QVector<SCommand> hardwareIdCommands() {
  const QString details = Tool::tr("Prints the hardware ids that the file has then.");
  const SArgument newId = {"NEW-ID", Tool::tr("The new hardware id.")};
  const QVector<SOption> options = {NOptions::dryRun(), NOptions::noWait(), NOptions::json()};
  return {{"hardware-id list",
           Tool::tr("List the hardware ids of a file."),
           {},
           {NOptions::valueFile()},
           {NOptions::json()},
           {"hardware-id list TwoAxisDrive.xparam"},
           runList},
          {"hardware-id clone",
           Tool::tr("Copy a hardware id with all its values to a new one."),
           details,
           {NOptions::valueFile(), idArgument(Tool::tr("The hardware id to copy.")), newId},
           options,
           {"hardware-id clone TwoAxisDrive.xparam KTO-2A-16 KTO-2A-64"},
           edit<toNewId<&ICParameterFile::cloneHardwareId>>},
          {"hardware-id rename",
           Tool::tr("Give a hardware id another name."),
           details,
           {NOptions::valueFile(), idArgument(Tool::tr("The current hardware id.")), newId},
           options,
           {"hardware-id rename TwoAxisDrive.xparam KTO-2A-16 KTO-2A-16B"},
           edit<toNewId<&ICParameterFile::renameHardwareId>>},
          {"hardware-id remove",
           Tool::tr("Remove a hardware id with all its values."),
           details,
           {NOptions::valueFile(),
            idArgument(Tool::tr("The hardware id to remove; not the last one."))},
           options,
           {"hardware-id remove TwoAxisDrive.xparam KTO-2A-16"},
           edit<remove>}};
}
