#include "CParamValueFile.h"

#include "ICParameterFile.h"
#include "NLumoXmlTags.h"

CSubDeviceTrees cloneOf(const CSubDeviceTrees& trees) {
  CSubDeviceTrees copy;
  for (const auto& [subDevId, tree] : trees) copy.emplace(subDevId, tree.clone());
  return copy;
}

CParamValueFile::CParamValueFile(NktoGlobal::EParamFileType type, ICLogfile* logfile,
                                 CParameterFileErrorHandler* errorHandler)
    : CParamBaseFile(logfile, errorHandler), mRootTag(ICParameterFile::fileTypeToStr(type)) {
  if (mRootTag.isEmpty()) mRootTag = NLumoXmlTags::TAG_ROOT_PARAMETERS;
}

bool CParamValueFile::handleVersionError(const QString& version, const QString& otherVersion) {
  return handleValueFileVersionError(version, otherVersion);
}
