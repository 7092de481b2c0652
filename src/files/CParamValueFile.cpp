#include "CParamValueFile.h"

#include "ICParameterFile.h"
#include "NLumoXmlTags.h"

CParamValueFile::CParamValueFile(NktoGlobal::EParamFileType type, ICLogfile* logfile,
                                 CParameterFileErrorHandler* errorHandler)
    : CParamBaseFile(logfile, errorHandler), mRootTag(ICParameterFile::fileTypeToStr(type)) {
  if (mRootTag.isEmpty()) mRootTag = NLumoXmlTags::TAG_ROOT_PARAMETERS;
}

bool CParamValueFile::handleVersionError(const QString& version, const QString& otherVersion) {
  return handleValueFileVersionError(version, otherVersion);
}
