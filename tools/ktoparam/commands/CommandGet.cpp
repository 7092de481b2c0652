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

  QVector<SValueView> gather() {
    for (const QString& hardwareId : mLoaded.chosenIds()) {
      mLoaded.selectHardwareId(hardwareId);
      mKnown += NParameterLookup::allNames(mLoaded.file());
      for (const QString& name : mNames) gather(name);
    }
    mKnown = uniqueNames(mKnown);
    return mFound;
  }

  /// Reports the names that were found nowhere; true when there are none.
  bool reportMissing() {
    int reported = 0;
    for (const QString& name : mNames)
      if (mFoundNames.count(name) == 0)
        report(name, reported++ < NSuggestion::kMaxHelped ? mKnown : QStringList());
    return reported == 0;
  }

 private:
  void gather(const QString& name) {
    ICParameterFile& file = mLoaded.file();
    for (const quint8 id : NParameterLookup::subDevicesWith(file, name)) {
      if (mSubDevice && *mSubDevice != id) {
        mElsewhere[name].insert(id);
      } else if (const ICParamTreeNode* node = file.findParameter(file.rootGroup(id), name)) {
        mFound.append(mViews.of(*node));
        mFoundNames.insert(name);
      }
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
  QStringList mKnown;
  QVector<SValueView> mFound;
  std::set<QString> mFoundNames;
  std::map<QString, std::set<quint8>> mElsewhere;  // sub-devices that were not asked for
};

void print(const CInvocation& invocation, const QVector<SValueView>& found, COutput& out) {
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
  invocation.print(table, {{"file", invocation.argument(0)}, {"values", values}}, out);
}

EExitStatus get(const CInvocation& invocation, COutput& out) {
  CLoadedFile loaded(out);
  const EExitStatus opened = loaded.openToRead(invocation);
  if (opened != ExitDone) return opened;
  CGathering gathering(loaded, invocation, out.labels());
  print(invocation, gathering.gather(), out);
  return gathering.reportMissing() ? ExitDone : ExitFindings;
}

}  // namespace

QVector<SCommand> getCommands() {
  return {{"get",
           Tool::tr("Print the values of parameters by their names."),
           Tool::tr("All hardware ids and sub-devices that have a parameter are listed, unless "
                    "options choose one. The exit status is 1 when a name is found nowhere; the "
                    "others are still printed."),
           {NOptions::valueFile(),
            {"NAME", Tool::tr("Names of parameters."), EWord::Parameter, SArgument::OneOrMore}},
           {NOptions::hardwareId(), NOptions::subDevice(),
            NOptions::def(Tool::tr("A definition file: adds units, names of choices and bits, and "
                                   "a \"*\" before what is not the default.")),
            NOptions::json()},
           {"get TwoAxisDrive.xparam VelocityLimit OperatingMode --sub-device 2"},
           get}};
}
