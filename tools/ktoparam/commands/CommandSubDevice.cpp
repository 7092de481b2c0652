#include "CValueEdit.h"
#include "Command.h"

namespace {

// --- sub-device list

/// Adds the sub-devices of the active hardware id as rows, and gives them back as JSON.
QJsonArray addSubDevices(const ICParameterFile& file, const CLabels& labels, CTable& table) {
  QJsonArray array;
  for (const quint8 id : file.subDeviceIds()) {
    const QString type = ICParameterFile::subDeviceTypeToStr(file.subDevType(id));
    const QString name = labels.of(file.subDevName(id));
    const int parameters = file.paramNames(id).size();
    table.addRow({labels.shown(file.hardwareId()), QString::number(id), type,
                  NDisplayText::shownOrNothing(name), QString::number(parameters)});
    array.append(
        QJsonObject{{"id", id}, {"type", type}, {"name", name}, {"parameters", parameters}});
  }
  return array;
}

EExitStatus runList(const CInvocation& invocation, COutput& out) {
  CLoadedFile loaded(out);
  const EExitStatus opened = loaded.openToRead(invocation);
  if (opened != ExitDone) return opened;
  CTable table({Tool::tr("HARDWARE ID"), Tool::tr("SUB-DEVICE"), Tool::tr("TYPE"), Tool::tr("NAME"),
                Tool::tr("PARAMETERS")});
  QJsonArray array;
  for (const QString& hardwareId : loaded.chosenIds()) {
    loaded.selectHardwareId(hardwareId);
    array.append(QJsonObject{{"id", out.labels().of(hardwareId)},
                             {"subDevices", addSubDevices(loaded.file(), out.labels(), table)}});
  }
  invocation.print(table, {{"file", loaded.fileName()}, {"hardwareIds", array}}, out);
  return ExitDone;
}

// --- sub-device copy

/// What a copy will do to the target.
SEditCounts countsOf(const ICParameterFile& file, quint8 source, quint8 target) {
  SEditCounts counts;
  for (const QString& name : file.paramNames(source)) {
    const CParamVal old = file.paramValue(name, target);
    const bool isEqual = old.asStr() == file.paramValue(name, source).asStr();
    counts.note(old.isNull() ? SEditedParam::Added
                : isEqual    ? SEditedParam::Equal
                             : SEditedParam::Taken,
                target, name);
  }
  for (const QString& name : file.paramNames(target))
    if (file.paramValue(name, source).isNull()) counts.note(SEditedParam::Removed, target, name);
  return counts;
}

EExitStatus runCopy(const CInvocation& invocation, COutput& out) {
  const quint8 source = invocation.subDeviceAt(1);
  const quint8 target = invocation.subDeviceAt(2);
  CLoadedFile loaded(out);
  const EExitStatus opened = loaded.openToEdit(invocation);
  if (opened != ExitDone) return opened;

  ICParameterFile& file = loaded.file();
  const SEditCounts counts = countsOf(file, source, target);
  CValueEdit edit(loaded, invocation, out);
  if (!file.copySubDevice(source, target)) {
    loaded.message(file.errorMsg());
    return ExitFindings;
  }
  return edit.finish(counts);
}

}  // namespace

QVector<SCommand> subDeviceCommands() {
  return {
      {"sub-device list",
       Tool::tr("List the sub-devices of a file, such as the axes of a drive."),
       {},
       {NOptions::valueFile()},
       {NOptions::hardwareId(), NOptions::json()},
       {"sub-device list TwoAxisDrive.xparam"},
       runList},
      {"sub-device copy",
       Tool::tr("Copy all values of one sub-device to another."),
       Tool::tr(
           "The groups and parameters of TO become those of FROM; TO is created when it does not "
           "exist. What only TO had is removed. TO keeps its type and name when it has them."),
       {NOptions::valueFile(),
        {"FROM", Tool::tr("The sub-device to copy, 0 to 255."), EWord::SubDevice},
        {"TO", Tool::tr("The sub-device to overwrite."), EWord::SubDevice}},
       {NOptions::oneHardwareId(), NOptions::dryRun(), NOptions::noWait(), NOptions::json()},
       {"sub-device copy TwoAxisDrive.xparam 2 3 --hardware-id KTO-2A-16 --dry-run"},
       runCopy}};
}
