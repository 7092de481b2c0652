#include "CComparedFiles.h"

#include "CInvocation.h"
#include "CParameterFileComparison.h"
#include "Tool.h"

#include <QFileInfo>

const QLatin1String CComparedFiles::kNewHardwareId("new-hardware-id");
const QLatin1String CComparedFiles::kNewSubDevice("new-sub-device");
const QLatin1String CComparedFiles::kOnly("only");

CComparedFiles::SNames::SNames(const CInvocation& invocation) : oldFile(invocation.argument(0)) {
  const QString second = invocation.argument(1);
  const bool mayBeMissing = invocation.isSet(kNewHardwareId) || invocation.isSet(kNewSubDevice);
  hasNew = !second.isEmpty() && (!mayBeMissing || QFileInfo::exists(second));
  newFile = hasNew ? second : oldFile;
  parameters = invocation.argumentsFrom(hasNew ? 2 : 1);
}

QString CComparedFiles::usageProblem(const CInvocation& invocation) {
  for (const auto& [option, needed] : {std::make_pair(kNewHardwareId, NOptions::kHardwareId),
                                       std::make_pair(kNewSubDevice, NOptions::kSubDevice)})
    if (invocation.isSet(option) && !invocation.isSet(needed))
      return Tool::tr("--%1 needs --%2.").arg(option, needed);
  if (SNames(invocation).hasNew || invocation.isSet(kNewHardwareId) ||
      invocation.isSet(kNewSubDevice)) {
    return {};
  }
  return Tool::tr("NEW is missing. Without it, --%1 or --%2 tells what to compare with.")
      .arg(kNewHardwareId, kNewSubDevice);
}

CComparedFiles::CComparedFiles(const CInvocation& invocation, COutput& out)
    : mInvocation(invocation),
      mOut(out),
      mNames(invocation),
      mOld(out),
      mNew(out),
      mWords(mNames.parameters),
      mOldSubDevice(invocation.subDevice()),
      mNewSubDevice(invocation.isSet(kNewSubDevice) ? invocation.subDevice(kNewSubDevice)
                                                    : mOldSubDevice) {}

bool CComparedFiles::load() {
  const bool hasOld = mOld.load(mNames.oldFile, SFileInfo::Values);
  // Both names may be wrong, and both are told.
  if (!hasOld && !mNames.hasNew) return false;
  return mNew.loadValues(mNames.newFile, mInvocation, mNames.oldFile) && hasOld;
}

bool CComparedFiles::select() {
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

EExitStatus CComparedFiles::look() {
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

void CComparedFiles::note(ICParameterFile& file, std::optional<quint8> subDevice,
                          const QString& hardwareId) {
  for (const ICParamTreeNode* node : mWords.look(file, subDevice)) {
    const int id = mNewSubDevice.value_or(node->subDevId());
    mMeant.insert({hardwareId, id, node->name()});
    mMeant.insert({hardwareId, id, QString()});
    mMeant.insert({hardwareId, SParamDifference::kNoSubDevice, QString()});
  }
}

CParamDifferences CComparedFiles::compare() const {
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

CParamDifferences CComparedFiles::meant(const CParamDifferences& all) const {
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

NIdDifferences::CPlaces CComparedFiles::places() const {
  ICParameterFile& oldFile = mOld.file();
  ICParameterFile& newFile = mNew.file();
  NIdDifferences::CPlaces places;
  for (const auto& [oldId, newId] : mHardwareIds) {
    if (!oldFile.selectHardwareId(oldId) || !newFile.selectHardwareId(newId)) continue;
    for (const quint8 id : mNewSubDevice ? QList<quint8>{*mNewSubDevice} : newFile.subDeviceIds()) {
      for (const QString& name : newFile.paramNames(id))
        if (!oldFile.paramValue(name, mOldSubDevice.value_or(id)).isNull()) ++places[name];
    }
  }
  return places;
}
