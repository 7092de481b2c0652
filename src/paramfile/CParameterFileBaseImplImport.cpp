// Import of values from another object; the import of a file ends here too.

#include "CParamImport.h"
#include "CParameterFileBaseImpl.h"

bool CParameterFileBaseImpl::importParamFile(ICParameterFile* source,
                                             const QString& sourceHardwareId,
                                             const QString& destinationHardwareId,
                                             NParamDef::EImportMissing missing) {
  QString destinationId = destinationHardwareId;
  CSubDeviceTrees* destination = importDestination(destinationId);
  if (destination == nullptr) {
    return false;
  }
  const auto* other = dynamic_cast<CParameterFileBaseImpl*>(source);
  if (other == nullptr) {
    return setErrorMsg(
        tr("Other instance is not from type CParameterFileBaseImpl. Import failed."));
  }
  QString sourceId = sourceHardwareId;
  if (sourceId.isEmpty() && !firstHardwareId(sourceId, other->mTrees)) {
    return false;
  }
  const auto trees = other->mTrees.find(sourceId);
  if (trees == other->mTrees.end()) {
    return setErrorMsg(
        tr("Other instance does not contain source hardware id \"%1\". Import failed.")
            .arg(sourceId));
  }
  return importParameters(trees->second, *destination, destinationId, missing);
}

bool CParameterFileBaseImpl::firstHardwareId(QString& hardwareId,
                                             const CHardwareIdTrees& trees) const {
  if (trees.empty()) {
    return setErrorMsg(tr("The parameter file does not contain any hardware ID."));
  }
  hardwareId = trees.begin()->first;
  return true;
}

CSubDeviceTrees* CParameterFileBaseImpl::importDestination(QString& hardwareId) {
  if (hardwareId.isEmpty()) {
    hardwareId = mHardwareId;
  }
  const auto trees = mTrees.find(hardwareId);
  if (trees == mTrees.end()) {
    setErrorMsg(
        tr("Destination hardware id \"%1\" does not exist. Import failed.").arg(hardwareId));
    return nullptr;
  }
  return &trees->second;
}

bool CParameterFileBaseImpl::importParameters(const CSubDeviceTrees& source,
                                              CSubDeviceTrees& destination,
                                              const QString& destinationHardwareId,
                                              NParamDef::EImportMissing missing) {
  CParamImport import(mDefinitions, mLogfile);
  QString error;
  if (!import.plan(source, destination, missing, error)) {
    return setErrorMsg(error);
  }
  if (import.apply()) {
    setHwIdChanged(destinationHardwareId);
  }
  mImportResult = import.result();
  return true;
}
