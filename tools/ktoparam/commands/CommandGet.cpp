#include "CParameterWords.h"
#include "Command.h"
#include "SValueView.h"

namespace {

/// By hardware id, and then in the order of the words.
QVector<SValueView> gather(CLoadedFile& loaded, CParameterWords& words, const CLabels& labels) {
  CValueViews views(loaded.file(), labels);
  QVector<SValueView> found;
  for (const QString& hardwareId : loaded.chosenIds()) {
    loaded.selectHardwareId(hardwareId);
    for (const ICParamTreeNode* node : words.look(loaded.file(), loaded.chosenSubDevice()))
      found.append(views.of(*node));
  }
  return found;
}

void print(const CInvocation& invocation, const CLoadedFile& loaded,
           const QVector<SValueView>& found, COutput& out) {
  CTable table({Tool::tr("HARDWARE ID"), Tool::tr("SUB-DEVICE"), QString(), Tool::tr("NAME"),
                Tool::tr("VALUE"), Tool::tr("UNIT"), Tool::tr("MEANING")});
  QJsonArray values;
  for (const SValueView& view : found) {
    values.append(view.toPlacedJson());
    table.addRow({NDisplayText::shown(view.hardwareId), QString::number(view.subDevId),
                  view.isChanged() ? "*" : QString(), NDisplayText::shown(view.name),
                  NDisplayText::shown(view.value.asStr()), NDisplayText::shownOrNothing(view.unit),
                  view.meaning},
                 view.isChanged());
  }
  invocation.print(table,
                   {{"file", loaded.fileName()},
                    {"definitionFile", textOrNull(loaded.definitionFile())},
                    {"values", values}},
                   out);
}

EExitStatus get(const CInvocation& invocation, COutput& out) {
  CLoadedFile loaded(out);
  CParameterWords words(invocation.argumentsFrom(1));
  const EExitStatus opened = words.openToRead(loaded, invocation, out);
  if (opened != ExitDone) return opened;
  print(invocation, loaded, gather(loaded, words, out.labels()), out);
  return words.reportMissing(loaded, loaded.chosenIds()) ? ExitDone : ExitFindings;
}

}  // namespace

QVector<SCommand> getCommands() {
  return {{"get",
           Tool::tr("Print the values of parameters by their names."),
           Tool::tr("All hardware ids and sub-devices that have a parameter are listed, unless "
                    "options choose one. The exit status is 1 when a name is found nowhere; the "
                    "others are still printed."),
           {NOptions::valueFile(), NOptions::parameters(SArgument::OneOrMore)},
           {NOptions::hardwareId(), NOptions::subDevice(),
            NOptions::def(Tool::tr("A definition file: adds units, names of choices and bits, and "
                                   "a \"*\" before what is not the default.")),
            NOptions::noDef(), NOptions::json()},
           {"get TwoAxisDrive.xparam VelocityLimit OperatingMode --sub-device 2",
            "get TwoAxisDrive.xparam \"Motion/Limits/*\" \"KTO-2A-16[2]/Motor/Rating/MotorName\""},
           get}};
}
