// Loading and saving of definition and value files.

#include "CAtomicFile.h"
#include "CParamDefFile.h"
#include "CParameterFileBaseImpl.h"
#include "CStr.h"

bool CParameterFileBaseImpl::loadParamDefFile(const QString& fileName, quint32 revision) {
  CParamDefFile file(mLogfile, mErrorHandler);
  if (!file.open(fileName, CStr::revisionToString(revision)))
    return failedLoad(file, tr("Loading parameter definition file failed"));
  const CParamDefinitions& definitions = file.paramDefinitions();
  mDefinitions.updateReferenceIdList(definitions);
  mDefinitions.unite(definitions);
  mDefinitions.setMetaData(file.headMetaData());
  return noteContent(fileName, file.contentId());
}

bool CParameterFileBaseImpl::failedLoad(const CParamBaseFile& file, const QString& context) {
  setErrorMsg(file.errorMsg(), context);
  mErrorLine = file.errorLine();
  return false;
}

bool CParameterFileBaseImpl::saveParamDefFile(const QString& fileName, quint32 revision) {
  CParamDefFile file(mLogfile, mErrorHandler);
  if (!defAuthor().isEmpty() || !defComment().isEmpty())
    file.setMetaData(defAuthor(), defComment());
  return file.save(fileName, mDefinitions.sorted(), CStr::revisionToString(revision))
             ? noteContent(fileName, file.contentId())
             : setErrorMsg(file.errorMsg(), tr("Saving parameter definition file failed"));
}

bool CParameterFileBaseImpl::loadParamFile(const QString& fileName, const QString& hardwareId,
                                           quint32 revision) {
  return loadValues(fileName, hardwareId, revision, kOwnSubDevIds);
}

bool CParameterFileBaseImpl::loadParamFileAsSubDevId(const QString& fileName, quint8 subDevId,
                                                     const QString& hardwareId, quint32 revision) {
  return loadValues(fileName, hardwareId, revision, subDevId);
}

bool CParameterFileBaseImpl::loadValues(const QString& fileName, const QString& hardwareId,
                                        quint32 revision, int asSubDevId) {
  SLoadedValues loaded;
  loaded.hardwareId = hardwareId;
  if (!readValueFile(fileName, revision, tr("Loading parameter value file failed"), loaded,
                     asSubDevId)) {
    return false;
  }
  const std::optional<CContentId> contentId = loaded.contentId;
  takeOver(std::move(loaded), revision);
  return noteContent(fileName, contentId);
}

bool CParameterFileBaseImpl::readValueFile(const QString& fileName, quint32 revision,
                                           const QString& context, SLoadedValues& loaded,
                                           int asSubDevId) {
  CParamValueFile file(mFileType, mLogfile, mErrorHandler);
  file.setQuiet(mIsQuiet);
  file.followErrorHandler(mErrorHandler);
  const QString version = CStr::revisionToString(revision);
  const CParamValueFile::EResult result =
      asSubDevId == kOwnSubDevIds
          ? file.load(fileName, version, loaded.trees, loaded.labels, loaded.hardwareId)
          : file.loadAsSubDevId(fileName, version, static_cast<quint8>(asSubDevId), loaded.trees,
                                loaded.labels, loaded.hardwareId);
  loaded.metaData = file.headMetaData();
  loaded.findings = file.findings();
  loaded.contentId = file.contentId();
  return result == CParamValueFile::Ok || failedLoad(file, context);
}

void CParameterFileBaseImpl::takeOver(SLoadedValues&& loaded, quint32 revision) {
  mHardwareId = loaded.hardwareId;
  mMetaData = loaded.metaData;
  mVersion = revision;
  mLoadFindings = loaded.findings;
  for (auto it = loaded.labels.types.cbegin(); it != loaded.labels.types.cend(); ++it)
    mLabels.types.insert(it.key(), it.value());
  for (auto it = loaded.labels.names.cbegin(); it != loaded.labels.names.cend(); ++it)
    mLabels.names.insert(it.key(), it.value());
  appendParameterRootNodes(std::move(loaded.trees));
}

void CParameterFileBaseImpl::appendParameterRootNodes(CHardwareIdTrees&& trees) {
  for (auto& [id, subDevices] : trees) {
    CSubDeviceTrees& present = mTrees[id];
    for (auto& [subDevId, tree] : subDevices) {
      const auto known = present.find(subDevId);
      if (known == present.end())
        present.emplace(subDevId, std::move(tree));
      else
        known->second.merge(std::move(tree));
    }
  }
}

bool CParameterFileBaseImpl::saveParamFile(const QString& fileName, const QString& hardwareId,
                                           quint32 revision) {
  CParamValueFile file(mFileType, mLogfile, mErrorHandler);
  if (!author().isEmpty() || !comment().isEmpty()) file.setMetaData(author(), comment());
  const QString version = CStr::revisionToString(revision);
  const auto trees = mTrees.find(hardwareId);
  if (!hardwareId.isEmpty() && trees == mTrees.end()) {
    return setErrorMsg(tr("Saving parameters for hardware ID \"%1\" failed because there are "
                          "no parameters.")
                           .arg(hardwareId));
  }
  const bool isSaved = hardwareId.isEmpty()
                           ? file.save(fileName, version, mTrees, mLabels)
                           : file.save(fileName, trees->second, mLabels, hardwareId, version);
  return isSaved ? noteContent(fileName, file.contentId())
                 : setErrorMsg(file.errorMsg(), tr("Saving parameter value file failed"));
}

bool CParameterFileBaseImpl::noteContent(const QString& fileName,
                                         const std::optional<CContentId>& contentId) {
  if (contentId) mContentIds.insert(fileName, *contentId);  // a save may write nothing
  return true;
}

bool CParameterFileBaseImpl::hasChangedOnDisk(const QString& fileName) const {
  const auto known = mContentIds.find(fileName);
  if (known == mContentIds.end()) return false;
  QByteArray bytes;
  QString ignored;
  return !CAtomicFile::read(fileName, bytes, ignored) ||
         CXmlAbstractLumoFile::contentIdOf(bytes) != *known;
}
