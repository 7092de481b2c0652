#include "CParameterFileComparison.h"
#include "CParameterWords.h"
#include "Command.h"
#include "NDifferenceFilter.h"
#include "NDifferenceSummary.h"
#include "NDifferences.h"
#include "NIdDifferences.h"

#include <QFileInfo>

#include <set>
#include <tuple>

namespace {

const QLatin1String kNewHardwareId("new-hardware-id");
const QLatin1String kNewSubDevice("new-sub-device");
const QLatin1String kOnly("only");

/// The arguments: OLD, NEW, and names. NEW may be missing where options tell what to compare with;
/// the second word is a name then, unless there is a file of that name.
struct SFiles {
  explicit SFiles(const CInvocation& invocation) : oldName(invocation.argument(0)) {
    const QString second = invocation.argument(1);
    const bool mayBeMissing = invocation.isSet(kNewHardwareId) || invocation.isSet(kNewSubDevice);
    hasNew = !second.isEmpty() && (!mayBeMissing || QFileInfo::exists(second));
    newName = hasNew ? second : oldName;
    names = invocation.argumentsFrom(hasNew ? 2 : 1);
  }

  QString oldName;
  QString newName;
  bool hasNew;
  QStringList names;
};

QString usageProblem(const CInvocation& invocation) {
  for (const auto& [option, needed] : {std::make_pair(kNewHardwareId, NOptions::kHardwareId),
                                       std::make_pair(kNewSubDevice, NOptions::kSubDevice)})
    if (invocation.isSet(option) && !invocation.isSet(needed))
      return Tool::tr("--%1 needs --%2.").arg(option, needed);
  if (!SFiles(invocation).hasNew && !invocation.isSet(kNewHardwareId) &&
      !invocation.isSet(kNewSubDevice)) {
    return Tool::tr("NEW is missing. Without it, --%1 or --%2 tells what to compare with.")
        .arg(kNewHardwareId, kNewSubDevice);
  }
  if (invocation.isSet(kOnly)) return NDifferenceFilter::problem(invocation.value(kOnly));
  return {};
}

/// The two sides of a comparison, and what of them is compared.
class CSides {
 public:
  CSides(const CInvocation& invocation, COutput& out)
      : mInvocation(invocation),
        mOut(out),
        mFiles(invocation),
        mOld(out),
        mNew(out),
        mWords(mFiles.names),
        mOldSubDevice(invocation.subDevice()),
        mNewSubDevice(invocation.isSet(kNewSubDevice) ? invocation.subDevice(kNewSubDevice)
                                                      : mOldSubDevice) {}

  bool load() {
    const bool hasOld = mOld.load(mFiles.oldName, SFileInfo::Values);
    // Both names may be wrong, and both are told.
    if (!hasOld && !mFiles.hasNew) return false;
    return mNew.loadValues(mFiles.newName, mInvocation, mFiles.oldName) && hasOld;
  }

  /// False, with a message, when a file does not have what is to be compared.
  bool select() {
    if (mInvocation.isSet(NOptions::kHardwareId)) {
      const QString oldId = mInvocation.value(NOptions::kHardwareId);
      mHardwareIds = {{oldId, mInvocation.value(kNewHardwareId, oldId)}};
      if (!mOld.selectHardwareId(oldId) || !mNew.selectHardwareId(mHardwareIds.first().second))
        return false;
    } else {
      const QStringList all = mOld.file().hardwareIds() + mNew.file().hardwareIds();
      for (const QString& id : std::set<QString>(all.begin(), all.end()))
        mHardwareIds.append({id, id});
    }
    return mOld.checkSubDevice(mOldSubDevice, mOld.hardwareIds(mInvocation)) &&
           mNew.checkSubDevice(mNewSubDevice, mNew.file().hardwareIds());
  }

  CParamDifferences compare() {
    using CComparison = CParameterFileComparison;
    ICParameterFile& oldFile = mOld.file();
    ICParameterFile& newFile = mNew.file();
    if (!mOldSubDevice && !mInvocation.isSet(NOptions::kHardwareId))
      return meant(CComparison::compare(oldFile, newFile, &newFile));
    CParamDifferences all;
    for (const auto& [oldId, newId] : qAsConst(mHardwareIds)) {
      all += mOldSubDevice
                 ? CComparison::compareSubDevices(oldFile, oldId, *mOldSubDevice, newFile, newId,
                                                  *mNewSubDevice, &newFile)
                 : CComparison::compareHardwareIds(oldFile, oldId, newFile, newId, &newFile);
    }
    return meant(all);
  }

  /// Finds the parameters that are named. Not done when one of them is nowhere.
  EExitStatus look() {
    if (mWords.isEmpty()) return ExitDone;
    QStringList oldIds;
    QStringList newIds;
    for (const auto& [oldId, newId] : qAsConst(mHardwareIds)) {
      if (mOld.file().containsHardwareId(oldId)) oldIds.append(oldId);
      if (mNew.file().containsHardwareId(newId)) newIds.append(newId);
    }
    mWords.readNames(mOld, oldIds);
    mWords.readNames(mNew, newIds);
    const QString only =
        mInvocation.isSet(kNewHardwareId) ? QString() : mInvocation.value(NOptions::kHardwareId);
    const EExitStatus status = mWords.checkAddresses(only, mInvocation, mOut);
    if (status != ExitDone) return status;
    for (const auto& [oldId, newId] : qAsConst(mHardwareIds)) {
      if (mOld.file().selectHardwareId(oldId)) note(mOld.file(), mOldSubDevice, newId);
      if (mNew.file().selectHardwareId(newId)) note(mNew.file(), mNewSubDevice, newId);
    }
    return mWords.reportMissing(mNew, newIds) ? ExitDone : ExitFindings;
  }

  /// Where both files have the parameters that were compared.
  NIdDifferences::CPlaces places() const {
    ICParameterFile& oldFile = mOld.file();
    ICParameterFile& newFile = mNew.file();
    NIdDifferences::CPlaces places;
    for (const auto& [oldId, newId] : mHardwareIds) {
      if (!oldFile.selectHardwareId(oldId) || !newFile.selectHardwareId(newId)) continue;
      for (const quint8 id :
           mNewSubDevice ? QList<quint8>{*mNewSubDevice} : newFile.subDeviceIds()) {
        for (const QString& name : newFile.paramNames(id))
          if (!oldFile.paramValue(name, mOldSubDevice.value_or(id)).isNull()) ++places[name];
      }
    }
    return places;
  }

  const ICParameterFile& definitions() const { return mNew.file(); }
  const QString& definitionFile() const { return mNew.definitionFile(); }
  const QString& oldName() const { return mOld.fileName(); }
  const QString& newName() const { return mNew.fileName(); }

 private:
  /// By hardware id, sub-device and name as differences tell them: those of NEW.
  using CPlace = std::tuple<QString, int, QString>;

  /// What is meant, and the sub-devices and hardware ids that it lies in.
  void note(ICParameterFile& file, std::optional<quint8> subDevice, const QString& hardwareId) {
    for (const ICParamTreeNode* node : mWords.look(file, subDevice)) {
      const int id = mNewSubDevice.value_or(node->subDevId());
      mMeant.insert({hardwareId, id, node->name()});
      mMeant.insert({hardwareId, id, QString()});
      mMeant.insert({hardwareId, SParamDifference::kNoSubDevice, QString()});
    }
  }

  CParamDifferences meant(const CParamDifferences& all) const {
    if (mWords.isEmpty()) return all;
    CParamDifferences some;
    for (const SParamDifference& each : all) {
      const bool isOfSubDevice = each.kind == SParamDifference::SubDeviceTypeChanged ||
                                 each.kind == SParamDifference::SubDeviceNameChanged;
      if (!isOfSubDevice && mMeant.count({each.hardwareId, each.subDevId, each.name}) > 0)
        some.append(each);
    }
    return some;
  }

  const CInvocation& mInvocation;
  COutput& mOut;
  const SFiles mFiles;
  CLoadedFile mOld;
  CLoadedFile mNew;
  CParameterWords mWords;
  std::set<CPlace> mMeant;
  const std::optional<quint8> mOldSubDevice;
  const std::optional<quint8> mNewSubDevice;
  QVector<QPair<QString, QString>> mHardwareIds;
};

/// The list, in which ids come last and many of them are only counted, and the summary.
void print(const CParamDifferences& differences, bool listsAllIds, const CSides& sides,
           COutput& out) {
  using NDifferenceSummary::kMostLines;
  const auto [others, ids, parameters] =
      NIdDifferences::separated(differences, [&sides] { return sides.places(); });
  const bool isCounted = !listsAllIds && ids.size() > kMostLines;
  const CParamDifferences listed = isCounted ? others : others + ids;
  NDifferences::print(listed, sides.definitions(), out);
  if (!listed.isEmpty()) out.line({});
  NDifferenceSummary::printTotal(differences, out);
  if (isCounted)
    out.line(Tool::tr("%1 parameters have other ids; --only id lists them.").arg(parameters));
  if (listed.size() > kMostLines) NDifferenceSummary::printParts(differences, out);
}

EExitStatus diff(const CInvocation& invocation, COutput& out) {
  const QString problem = usageProblem(invocation);
  if (!problem.isEmpty()) return invocation.wrongUsage(problem, out);
  CSides sides(invocation, out);
  if (!sides.load()) return ExitFile;
  if (!sides.select()) return ExitFindings;
  const EExitStatus looked = sides.look();
  if (looked != ExitDone) return looked;

  out.doing(Tool::tr("Comparing …"));
  CParamDifferences differences = sides.compare();
  if (invocation.isSet(kOnly))
    differences = NDifferenceFilter::filtered(differences, invocation.value(kOnly));
  if (invocation.wantsJson()) {
    out.json({{"old", sides.oldName()},
              {"new", sides.newName()},
              {"definitionFile", textOrNull(sides.definitionFile())},
              {"summary", NDifferenceSummary::toJson(differences)},
              {"differences", NDifferences::toJson(differences, out.labels())}});
  } else {
    print(differences, invocation.isSet(kOnly), sides, out);
  }
  return differences.isEmpty() ? ExitDone : ExitFindings;
}

SOption only() {
  SOption option{kOnly, "KINDS",
                 Tool::tr("Only these, with commas between them: %1.")
                     .arg(NDifferenceFilter::words().join(QLatin1String(", ")))};
  option.choices = NDifferenceFilter::words();
  return option;
}

}  // namespace

QVector<SCommand> diffCommands() {
  return {
      {"diff",
       Tool::tr("Show how the values of two files differ."),
       Tool::tr("Lists what was added, removed, changed and moved to another group. With --def, "
                "values that are the same number are equal, however they are written. The order of "
                "parameters, the date and the comment do not count as differences.\nTwo hardware "
                "ids or two sub-devices can be compared, too, also of one file; the list shows "
                "those of NEW then. Files of other kinds can be compared as \"ktoparam text\" "
                "prints them.\nAn id that changed in the same way wherever its parameter is stands "
                "in the list once, without hardware id or sub-device; more than 24 such lines are "
                "only counted. The counts of all kinds follow and, behind a list of more than 24 "
                "lines, where most differences are.\nThe exit status is 1 when there are "
                "differences; with --only, when there are some of these kinds."),
       {{"OLD", Tool::tr("A value file."), EWord::File},
        {"NEW", Tool::tr("A value file; OLD unless given, where an option names its other part."),
         EWord::File, SArgument::NoneOrOne},
        NOptions::parameters()},
       {NOptions::def(Tool::tr("The definition file.")),
        NOptions::noDef(),
        NOptions::hardwareId(),
        {kNewHardwareId, "ID", Tool::tr("Compare it with this one of NEW."), EWord::HardwareId},
        NOptions::subDevice(),
        {kNewSubDevice, "N", Tool::tr("Compare it with this one of NEW."), EWord::SubDevice},
        only(),
        NOptions::json()},
       {"diff Delivered.xparam TwoAxisDrive.xparam --def TwoAxisDrive.xpdef",
        "diff Delivered.xparam TwoAxisDrive.xparam --only changed,added,removed",
        "diff TwoAxisDrive.xparam --hardware-id KTO-2A-16 --new-hardware-id KTO-2A-32",
        "diff TwoAxisDrive.xparam --sub-device 2 --new-sub-device 3"},
       diff}};
}
