#include "CCompensationFileImpl.h"

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
