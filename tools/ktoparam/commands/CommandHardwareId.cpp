#include "CInvocation.h"
#include "CLoadedFile.h"
#include "COutput.h"
#include "CTable.h"
#include "Commands.h"
#include "DisplayText.h"
#include "Tool.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

struct SSummary {
  QString hardwareId;
  QList<quint8> subDevices;
  int parameters = 0;
};

QVector<SSummary> summaries(ICParameterFile& file) {
  QVector<SSummary> all;
  for (const QString& hardwareId : file.hardwareIds()) {
    file.selectHardwareId(hardwareId);
    SSummary summary{hardwareId, file.subDeviceIds(), 0};
    for (const quint8 id : summary.subDevices) summary.parameters += file.paramNames(id).size();
    all.append(summary);
  }
  return all;
}

QJsonArray toJson(const QVector<SSummary>& all, const CLabels& labels) {
  QJsonArray array;
  for (const SSummary& each : all) {
    QJsonArray subDevices;
    for (const quint8 id : each.subDevices) subDevices.append(id);
    array.append(QJsonObject{{QStringLiteral("id"), labels.of(each.hardwareId)},
                             {QStringLiteral("subDevices"), subDevices},
                             {QStringLiteral("parameters"), each.parameters}});
  }
  return array;
}

void printSummaries(const QVector<SSummary>& all, COutput& out) {
  CTable table({Tool::tr("HARDWARE ID"), Tool::tr("SUB-DEVICES"), Tool::tr("PARAMETERS")});
  for (const SSummary& each : all) {
    table.addRow({out.labels().shown(each.hardwareId), QString::number(each.subDevices.size()),
                  QString::number(each.parameters)});
  }
  table.print(out);
}

void print(const CLoadedFile& loaded, const CInvocation& invocation, COutput& out) {
  const QVector<SSummary> all = summaries(loaded.file());
  if (!invocation.wantsJson()) return printSummaries(all, out);
  out.json({{QStringLiteral("file"), loaded.fileName()},
            {QStringLiteral("hardwareIds"), toJson(all, out.labels())}});
}

/// Loads the file, edits it, saves it unless it is a dry run, and prints what it has then.
EExitStatus edit(const CInvocation& invocation, COutput& out,
                 bool (*change)(CLoadedFile&, const CInvocation&)) {
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
    loaded.message(Tool::tr("\"%1\" is the last hardware id, and a file must have one; delete the "
                            "file instead.")
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

EExitStatus runClone(const CInvocation& invocation, COutput& out) {
  return edit(invocation, out, clone);
}

EExitStatus runRename(const CInvocation& invocation, COutput& out) {
  return edit(invocation, out, rename);
}

EExitStatus runRemove(const CInvocation& invocation, COutput& out) {
  return edit(invocation, out, remove);
}

SArgument fileArgument() {
  return {QStringLiteral("FILE"), Tool::tr("A value file."), EWord::File};
}

SArgument idArgument(const QString& help) {
  return {QStringLiteral("ID"), help, EWord::HardwareId};
}

SArgument newIdArgument(const QString& help) {
  return {QStringLiteral("NEW-ID"), help};
}

SCommand editCommand(const QString& name, const QString& summary) {
  return {name,
          summary,
          Tool::tr("Prints the hardware ids that the file has then."),
          {},
          {NOptions::dryRun(), NOptions::json()},
          {},
          {}};
}

SCommand listCommand() {
  return {QStringLiteral("hardware-id list"),
          Tool::tr("List the hardware ids of a file."),
          {},
          {fileArgument()},
          {NOptions::json()},
          {QStringLiteral("hardware-id list TwoAxisDrive.xparam")},
          runList};
}

SCommand cloneCommand() {
  SCommand command = editCommand(QStringLiteral("hardware-id clone"),
                                 Tool::tr("Copy a hardware id with all its values to a new one."));
  command.arguments = {fileArgument(), idArgument(Tool::tr("The hardware id to copy.")),
                       newIdArgument(Tool::tr("The new hardware id."))};
  command.examples =
      QStringList(QStringLiteral("hardware-id clone TwoAxisDrive.xparam KTO-2A-16 KTO-2A-64"));
  command.run = runClone;
  return command;
}

SCommand renameCommand() {
  SCommand command = editCommand(QStringLiteral("hardware-id rename"),
                                 Tool::tr("Give a hardware id another name."));
  command.arguments = {fileArgument(), idArgument(Tool::tr("The current hardware id.")),
                       newIdArgument(Tool::tr("The new hardware id."))};
  command.examples =
      QStringList(QStringLiteral("hardware-id rename TwoAxisDrive.xparam KTO-2A-16 KTO-2A-16B"));
  command.run = runRename;
  return command;
}

SCommand removeCommand() {
  SCommand command = editCommand(QStringLiteral("hardware-id remove"),
                                 Tool::tr("Remove a hardware id with all its values."));
  command.arguments = {fileArgument(),
                       idArgument(Tool::tr("The hardware id to remove; not the last one."))};
  command.examples =
      QStringList(QStringLiteral("hardware-id remove TwoAxisDrive.xparam KTO-2A-16"));
  command.run = runRemove;
  return command;
}

}  // namespace

QVector<SCommand> hardwareIdCommands() {
  return {listCommand(), cloneCommand(), renameCommand(), removeCommand()};
}
