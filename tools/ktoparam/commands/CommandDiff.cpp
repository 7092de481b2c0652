#include "CParameterFileComparison.h"
#include "Command.h"
#include "NDifferences.h"

#include <set>

namespace {

const QLatin1String kNewHardwareId("new-hardware-id");
const QLatin1String kNewSubDevice("new-sub-device");

QString usageProblem(const CInvocation& invocation) {
  for (const auto& [option, needed] : {std::make_pair(kNewHardwareId, NOptions::kHardwareId),
                                       std::make_pair(kNewSubDevice, NOptions::kSubDevice)}) {
    if (invocation.isSet(option) && !invocation.isSet(needed))
      return Tool::tr("--%1 needs --%2.").arg(option, needed);
  }
  const bool isOneFile = invocation.argument(1).isEmpty();
  if (isOneFile && !invocation.isSet(kNewHardwareId) && !invocation.isSet(kNewSubDevice)) {
    return Tool::tr("NEW is missing. Without it, --%1 or --%2 tells what to compare with.")
        .arg(kNewHardwareId, kNewSubDevice);
  }
  return {};
}

/// The two sides of a comparison, and what of them is compared.
class CSides {
 public:
  CSides(const CInvocation& invocation, COutput& out)
      : mInvocation(invocation),
        mOld(out),
        mNew(out),
        mOldSubDevice(invocation.subDevice()),
        mNewSubDevice(invocation.isSet(kNewSubDevice) ? invocation.subDevice(kNewSubDevice)
                                                      : mOldSubDevice) {}

  bool load() {
    const QString second = mInvocation.argument(1);
    const bool hasOld = mOld.load(mInvocation.argument(0), SFileInfo::Values);
    // Both names may be wrong, and both are told.
    if (!hasOld && second.isEmpty()) return false;
    return mNew.loadValues(second.isEmpty() ? mInvocation.argument(0) : second, mInvocation) &&
           hasOld;
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
      return CComparison::compare(oldFile, newFile, &newFile);
    CParamDifferences all;
    for (const auto& [oldId, newId] : qAsConst(mHardwareIds)) {
      all += mOldSubDevice
                 ? CComparison::compareSubDevices(oldFile, oldId, *mOldSubDevice, newFile, newId,
                                                  *mNewSubDevice, &newFile)
                 : CComparison::compareHardwareIds(oldFile, oldId, newFile, newId, &newFile);
    }
    return all;
  }

  const ICParameterFile& definitions() const { return mNew.file(); }
  const QString& oldName() const { return mOld.fileName(); }
  const QString& newName() const { return mNew.fileName(); }

 private:
  const CInvocation& mInvocation;
  CLoadedFile mOld;
  CLoadedFile mNew;
  const std::optional<quint8> mOldSubDevice;
  const std::optional<quint8> mNewSubDevice;
  QVector<QPair<QString, QString>> mHardwareIds;
};

EExitStatus diff(const CInvocation& invocation, COutput& out) {
  const QString problem = usageProblem(invocation);
  if (!problem.isEmpty()) return invocation.wrongUsage(problem, out);
  CSides sides(invocation, out);
  if (!sides.load()) return ExitFile;
  if (!sides.select()) return ExitFindings;

  out.doing(Tool::tr("Comparing …"));
  const CParamDifferences differences = sides.compare();
  if (invocation.wantsJson()) {
    out.json({{"old", sides.oldName()},
              {"new", sides.newName()},
              {"differences", NDifferences::toJson(differences, out.labels())}});
  } else {
    NDifferences::print(differences, sides.definitions(), out);
  }
  return differences.isEmpty() ? ExitDone : ExitFindings;
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
                "prints them.\nThe exit status is 1 when there are differences."),
       {{"OLD", Tool::tr("A value file."), EWord::File},
        {"NEW", Tool::tr("A value file; OLD unless given."), EWord::File, SArgument::NoneOrOne}},
       {NOptions::def(Tool::tr("The definition file.")),
        NOptions::hardwareId(),
        {kNewHardwareId, "ID", Tool::tr("Compare it with this one of NEW."), EWord::HardwareId},
        NOptions::subDevice(),
        {kNewSubDevice, "N", Tool::tr("Compare it with this one of NEW."), EWord::SubDevice},
        NOptions::json()},
       {"diff Delivered.xparam TwoAxisDrive.xparam --def TwoAxisDrive.xpdef",
        "diff TwoAxisDrive.xparam --hardware-id KTO-2A-16 --new-hardware-id KTO-2A-32",
        "diff TwoAxisDrive.xparam --sub-device 2 --new-sub-device 3"},
       diff}};
}
