#include "CInvocation.h"
#include "CLoadedFile.h"
#include "COutput.h"
#include "CTable.h"
#include "Commands.h"
#include "DisplayText.h"
#include "ParameterLookup.h"
#include "SValueView.h"
#include "Suggestion.h"
#include "Tool.h"
#include "UniqueNames.h"

#include <QJsonArray>
#include <QJsonObject>

#include <map>
#include <set>

namespace {

struct SFound {
  QString hardwareId;
  SValueView view;
};

/// Gathers the values of the names asked for, over hardware ids and sub-devices.
class CGathering {
 public:
  CGathering(CLoadedFile& loaded, const CInvocation& invocation, const CLabels& labels)
      : mLoaded(loaded),
        mViews(loaded.file(), labels),
        mNames(invocation.argumentsFrom(1)),
        mSubDevice(invocation.subDevice()) {}

  QVector<SFound> gather(const QStringList& hardwareIds) {
    QVector<SFound> found;
    for (const QString& hardwareId : hardwareIds) {
      mLoaded.selectHardwareId(hardwareId);
      for (const QString& name : mNames) gather(hardwareId, name, found);
    }
    return found;
  }

  /// Reports the names that were found nowhere; true when there are none.
  bool reportMissing(const QStringList& hardwareIds) {
    QStringList known;
    for (const QString& hardwareId : hardwareIds) {
      mLoaded.selectHardwareId(hardwareId);
      known += ParameterLookup::allNames(mLoaded.file());
    }
    known = uniqueNames(known);
    int reported = 0;
    for (const QString& name : mNames)
      if (mFound.count(name) == 0)
        report(name, reported++ < Suggestion::kMaxHelped ? known : QStringList());
    return reported == 0;
  }

 private:
  void gather(const QString& hardwareId, const QString& name, QVector<SFound>& found) {
    ICParameterFile& file = mLoaded.file();
    for (const quint8 id : ParameterLookup::subDevicesWith(file, name)) {
      if (mSubDevice && *mSubDevice != id) {
        mElsewhere[name].insert(id);
        continue;
      }
      const ICParamTreeNode* node = file.findParameter(file.rootGroup(id), name);
      if (!node) continue;
      found.append({hardwareId, mViews.of(*node)});
      mFound.insert(name);
    }
  }

  void report(const QString& name, const QStringList& known) const {
    const auto elsewhere = mElsewhere.find(name);
    if (elsewhere == mElsewhere.end()) {
      mLoaded.message(Tool::tr("there is no parameter \"%1\".%2")
                          .arg(name, ParameterLookup::didYouMean(name, known)));
      return;
    }
    const QList<quint8> ids(elsewhere->second.begin(), elsewhere->second.end());
    mLoaded.message(Tool::tr("there is no parameter \"%1\" in sub-device %2; it is in %3.")
                        .arg(name, QString::number(*mSubDevice), ParameterLookup::listed(ids)));
  }

  CLoadedFile& mLoaded;
  CValueViews mViews;
  const QStringList mNames;
  const std::optional<quint8> mSubDevice;
  std::set<QString> mFound;
  std::map<QString, std::set<quint8>> mElsewhere;  // sub-devices that were not asked for
};

void printTable(const QVector<SFound>& found, COutput& out) {
  CTable table({Tool::tr("HARDWARE ID"), Tool::tr("SUB-DEVICE"), QString(), Tool::tr("NAME"),
                Tool::tr("VALUE"), Tool::tr("UNIT"), Tool::tr("MEANING")});
  for (const SFound& each : found) {
    const SValueView& view = each.view;
    table.addRow({out.labels().shown(each.hardwareId), QString::number(view.subDevId),
                  view.isChanged() ? QStringLiteral("*") : QString(), DisplayText::shown(view.name),
                  DisplayText::shown(view.value.asStr()), DisplayText::shownOrNothing(view.unit),
                  view.meaning},
                 view.isChanged());
  }
  if (!table.isEmpty()) table.print(out);
}

void printJson(const CLoadedFile& loaded, const QVector<SFound>& found, COutput& out) {
  QJsonArray values;
  for (const SFound& each : found) {
    QJsonObject value = each.view.toJson();
    value.insert(QStringLiteral("hardwareId"), out.labels().of(each.hardwareId));
    value.insert(QStringLiteral("subDevice"), each.view.subDevId);
    values.append(value);
  }
  out.json({{QStringLiteral("file"), loaded.fileName()}, {QStringLiteral("values"), values}});
}

EExitStatus get(const CInvocation& invocation, COutput& out) {
  CLoadedFile loaded(out);
  if (!loaded.load(invocation.argument(0), invocation)) return ExitFile;
  const QStringList hardwareIds = loaded.hardwareIds(invocation);
  if (hardwareIds.isEmpty() || !loaded.checkSubDevice(invocation.subDevice(), hardwareIds))
    return ExitFindings;
  CGathering gathering(loaded, invocation, out.labels());
  const QVector<SFound> found = gathering.gather(hardwareIds);
  if (invocation.wantsJson())
    printJson(loaded, found, out);
  else
    printTable(found, out);
  return gathering.reportMissing(hardwareIds) ? ExitDone : ExitFindings;
}

}  // namespace

QVector<SCommand> getCommands() {
  SCommand command;
  command.name = QStringLiteral("get");
  command.summary = Tool::tr("Print the values of parameters by their names.");
  command.details = Tool::tr(
      "All hardware ids and sub-devices that have a parameter are listed, unless options choose "
      "one. "
      "The exit status is 1 when a name is found nowhere; the others are still printed.");
  command.arguments = {{QStringLiteral("FILE"), Tool::tr("A value file."), EWord::File},
                       {QStringLiteral("NAME"), Tool::tr("Names of parameters."), EWord::Parameter,
                        SArgument::OneOrMore}};
  command.options = {
      CommonOptions::hardwareId(Tool::tr("Only this hardware id.")),
      CommonOptions::subDevice(Tool::tr("Only this sub-device, 0 to 255.")),
      CommonOptions::def(
          Tool::tr("A definition file: adds units, names of choices and bits, and a \"*\" before "
                   "what is not the default.")),
      CommonOptions::json()};
  command.examples = QStringList(
      QStringLiteral("get TwoAxisDrive.xparam VelocityLimit OperatingMode --sub-device 2"));
  command.run = get;
  return {command};
}
