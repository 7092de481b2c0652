// Import of values from a file or from another object.

#include "CAtomicFile.h"
#include "CParamImport.h"
#include "CParameterFileBaseImpl.h"
#include "CParameterFileHelper.h"

namespace {

/// The version of the file itself; 0 when it cannot be read, which its load then reports.
quint32 versionOf(const QString& fileName) {
  QByteArray content;
  QString ignored;
  return CAtomicFile::read(fileName, content, ignored) ? CParameterFileHelper::fileVersion(content)
                                                       : 0;
}

}  // namespace

bool CParameterFileBaseImpl::importParamFile(const QString& fileName,
                                             const QString& sourceHardwareId,
                                             const QString& destinationHardwareId,
                                             NParamDef::EImportMissing missing) {
  return importFile(fileName, sourceHardwareId, destinationHardwareId, missing, nullptr);
}

bool CParameterFileBaseImpl::importParamFile(const QString& fileName,
                                             const QString& sourceHardwareId,
                                             const QString& destinationHardwareId,
                                             NParamDef::EImportMissing missing,
                                             NParamDef::CImportedParams& imported) {
  return importFile(fileName, sourceHardwareId, destinationHardwareId, missing, &imported);
}

bool CParameterFileBaseImpl::importParamFile(ICParameterFile* source,
                                             const QString& sourceHardwareId,
                                             const QString& destinationHardwareId,
                                             NParamDef::EImportMissing missing) {
  return importOther(source, sourceHardwareId, destinationHardwareId, missing, nullptr);
}

bool CParameterFileBaseImpl::importParamFile(ICParameterFile* source,
                                             const QString& sourceHardwareId,
                                             const QString& destinationHardwareId,
                                             NParamDef::EImportMissing missing,
                                             NParamDef::CImportedParams& imported) {
  return importOther(source, sourceHardwareId, destinationHardwareId, missing, &imported);
}

bool CParameterFileBaseImpl::importFile(const QString& fileName, const QString& sourceHardwareId,
                                        const QString& destinationHardwareId,
                                        NParamDef::EImportMissing missing,
                                        NParamDef::CImportedParams* imported) {
  SLoadedValues source;
  source.hardwareId = sourceHardwareId;
  return checkDestination(destinationHardwareId) &&
         readValueFile(fileName, mVersion != 0 ? mVersion : versionOf(fileName),
                       tr("importParamFile() Loading parameter value file failed"), source,
                       kOwnSubDevIds) &&
         importHardwareId(source.trees, source.hardwareId, destinationHardwareId, missing,
                          imported);
}

bool CParameterFileBaseImpl::importOther(ICParameterFile* source, const QString& sourceHardwareId,
                                         const QString& destinationHardwareId,
                                         NParamDef::EImportMissing missing,
                                         NParamDef::CImportedParams* imported) {
  if (!checkDestination(destinationHardwareId)) return false;
  const auto* other = dynamic_cast<CParameterFileBaseImpl*>(source);
  if (other == nullptr) {
    return setErrorMsg(
        tr("Other instance is not from type CParameterFileBaseImpl. Import failed."));
  }
  QString sourceId = sourceHardwareId;
  return (!sourceId.isEmpty() || firstHardwareId(sourceId, other->mTrees)) &&
         importHardwareId(other->mTrees, sourceId, destinationHardwareId, missing, imported);
}

bool CParameterFileBaseImpl::firstHardwareId(QString& hardwareId,
                                             const CHardwareIdTrees& trees) const {
  if (trees.empty()) return setErrorMsg(tr("The parameter file does not contain any hardware ID."));
  hardwareId = trees.begin()->first;
  return true;
}

QString CParameterFileBaseImpl::importDestination(const QString& hardwareId) const {
  return hardwareId.isEmpty() ? mHardwareId : hardwareId;
}

/// A hardware id that was added holds nothing yet, and is known by being active only.
bool CParameterFileBaseImpl::checkDestination(const QString& hardwareId) const {
  const QString id = importDestination(hardwareId);
  const bool isAdded = !id.isEmpty() && id == mHardwareId;
  return isAdded || containsHardwareId(id) ||
         setErrorMsg(tr("Destination hardware id \"%1\" does not exist. Import failed.").arg(id));
}

/// Looks at the destination again: an error handler may have changed this object since.
bool CParameterFileBaseImpl::importHardwareId(const CHardwareIdTrees& source,
                                              const QString& sourceHardwareId,
                                              const QString& destinationHardwareId,
                                              NParamDef::EImportMissing missing,
                                              NParamDef::CImportedParams* imported) {
  const auto trees = source.find(sourceHardwareId);
  if (trees == source.end()) {
    return setErrorMsg(
        tr("Other instance does not contain source hardware id \"%1\". Import failed.")
            .arg(sourceHardwareId));
  }
  return checkDestination(destinationHardwareId) &&
         importParameters(trees->second, importDestination(destinationHardwareId), missing,
                          imported);
}

bool CParameterFileBaseImpl::importParameters(const CSubDeviceTrees& source,
                                              const QString& destinationHardwareId,
                                              NParamDef::EImportMissing missing,
                                              NParamDef::CImportedParams* imported) {
  CSubDeviceTrees added;  // of a hardware id that holds nothing yet
  const auto known = mTrees.find(destinationHardwareId);
  CParamImport import(mDefinitions, mLogfile, imported != nullptr);
  QString error;
  if (!import.plan(source, known != mTrees.end() ? known->second : added, missing, error))
    return setErrorMsg(error);
  if (import.apply()) {
    mTrees.try_emplace(destinationHardwareId, std::move(added));
    setHwIdChanged(destinationHardwareId);
  }
  mImportResult = import.result();
  if (imported != nullptr) *imported = import.params();
  return true;
}
