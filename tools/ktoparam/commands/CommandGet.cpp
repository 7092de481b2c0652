#include "Command.h"
#include "NParameterLookup.h"
#include "NSuggestion.h"
#include "SValueView.h"
#include "UniqueNames.h"

#include <map>
#include <set>

namespace {

/// Gathers the values of the names asked for, over hardware ids and sub-devices.
class CGathering {
 public:
  CGathering(CLoadedFile& loaded, const CInvocation& invocation, const CLabels& labels)
      : mLoaded(loaded),
        mViews(loaded.file(), labels),
        mNames(invocation.argumentsFrom(1)),
        mSubDevice(invocation.subDevice()) {}

  QVector<SValueView> gather(const QStringList& hardwareIds) {
    QVector<SValueView> found;
    for (const QString& hardwareId : hardwareIds) {
      mLoaded.selectHardwareId(hardwareId);
      for (const QString& name : mNames) gather(name, found);
    }
    return found;
  }

  /// Reports the names that were found nowhere; true when there are none.
  bool reportMissing(const QStringList& hardwareIds) {
    QStringList known;
    for (const QString& hardwareId : hardwareIds) {
      mLoaded.selectHardwareId(hardwareId);
      known += NParameterLookup::allNames(mLoaded.file());
    }
    known = uniqueNames(known);
    int reported = 0;
    for (const QString& name : mNames)
      if (mFound.count(name) == 0)
        report(name, reported++ < NSuggestion::kMaxHelped ? known : QStringList());
    return reported == 0;
  }

 private:
  void gather(const QString& name, QVector<SValueView>& found) {
    ICParameterFile& file = mLoaded.file();
    for (const quint8 id : NParameterLookup::subDevicesWith(file, name)) {
      if (mSubDevice && *mSubDevice != id) {
        mElsewhere[name].insert(id);
        continue;
      }
      const ICParamTreeNode* node = file.findParameter(file.rootGroup(id), name);
      if (!node) continue;
      found.append(mViews.of(*node));
      mFound.insert(name);
    }
  }

  void report(const QString& name, const QStringList& known) const {
    const auto elsewhere = mElsewhere.find(name);
    if (elsewhere == mElsewhere.end()) {
      mLoaded.message(Tool::tr("there is no parameter \"%1\".%2")
                          .arg(name, NParameterLookup::didYouMean(name, known)));
      return;
    }
    const QList<quint8> ids(elsewhere->second.begin(), elsewhere->second.end());
    mLoaded.message(Tool::tr("there is no parameter \"%1\" in sub-device %2; it is in %3.")
                        .arg(name, QString::number(*mSubDevice), NParameterLookup::listed(ids)));
  }

  CLoadedFile& mLoaded;
  CValueViews mViews;
  const QStringList mNames;
  const std::optional<quint8> mSubDevice;
  std::set<QString> mFound;
  std::map<QString, std::set<quint8>> mElsewhere;  // sub-devices that were not asked for
};

void printTable(const QVector<SValueView>& found, COutput& out) {
  CTable table({Tool::tr("HARDWARE ID"), Tool::tr("SUB-DEVICE"), QString(), Tool::tr("NAME"),
                Tool::tr("VALUE"), Tool::tr("UNIT"), Tool::tr("MEANING")});
  for (const SValueView& view : found) {
    table.addRow({NDisplayText::shown(view.hardwareId), QString::number(view.subDevId),
                  view.isChanged() ? QStringLiteral("*") : QString(),
                  NDisplayText::shown(view.name), NDisplayText::shown(view.value.asStr()),
                  NDisplayText::shownOrNothing(view.unit), view.meaning},
                 view.isChanged());
  }
  table.print(out);
}

EExitStatus get(const CInvocation& invocation, COutput& out) {
  CLoadedFile loaded(out);
  QStringList hardwareIds;
  const EExitStatus opened = loaded.openToRead(invocation, hardwareIds);
  if (opened != ExitDone) return opened;
  CGathering gathering(loaded, invocation, out.labels());
  const QVector<SValueView> found = gathering.gather(hardwareIds);
  if (invocation.wantsJson()) {
    QJsonArray values;
    for (const SValueView& view : found) values.append(view.toPlacedJson());
    out.json({{QStringLiteral("file"), loaded.fileName()}, {QStringLiteral("values"), values}});
  } else {
    printTable(found, out);
  }
  return gathering.reportMissing(hardwareIds) ? ExitDone : ExitFindings;
}

}  // namespace

QVector<SCommand> getCommands() {
  return {{QStringLiteral("get"),
           Tool::tr("Print the values of parameters by their names."),
           Tool::tr("All hardware ids and sub-devices that have a parameter are listed, unless "
                    "options choose one. The exit status is 1 when a name is found nowhere; the "
                    "others are still printed."),
           {{QStringLiteral("FILE"), Tool::tr("A value file."), EWord::File},
            {QStringLiteral("NAME"), Tool::tr("Names of parameters."), EWord::Parameter,
             SArgument::OneOrMore}},
           {NOptions::hardwareId(Tool::tr("Only this hardware id.")),
            NOptions::subDevice(Tool::tr("Only this sub-device, 0 to 255.")),
            NOptions::def(Tool::tr("A definition file: adds units, names of choices and bits, and "
                                   "a \"*\" before what is not the default.")),
            NOptions::json()},
           {QStringLiteral("get TwoAxisDrive.xparam VelocityLimit OperatingMode --sub-device 2")},
           get}};
}
