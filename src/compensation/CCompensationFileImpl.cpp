#include "CCompensationFileImpl.h"

#include "CStr.h"
#include "NLumoXmlTags.h"

CCompensationFileImpl::CCompensationFileImpl(ICLogfile* logfile)
    : CXmlAbstractLumoFile(logfile, NLumoXmlTags::ATTR_VERSION_CAPITAL) {}

void CCompensationFileImpl::clear() {
  CCompensationTable::clear();
  mErrorMsg.clear();
  mDetectedFormat = NoFormat;
  mSaveFormat = CurrentFormat;
}

QLatin1String CCompensationFileImpl::adjustmentTag(EDataPointFormat format) {
  return format == CurrentFormat ? NLumoXmlTags::TAG_ADJUST : NLumoXmlTags::TAG_ERROR;
}

bool CCompensationFileImpl::handleVersionError(const QString& fileVersion,
                                               const QString& expectedVersion) {
  unsigned int file = 0;
  unsigned int expected = 0;
  const bool accepted =
      fileVersion.isEmpty() ||
      (CStr::stringToRevision(fileVersion, file) &&
       CStr::stringToRevision(expectedVersion, expected) && file >> 16 == expected >> 16);
  mVersionError = !accepted;
  return accepted;
}
