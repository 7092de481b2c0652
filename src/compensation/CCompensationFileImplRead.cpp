// Reading of compensation files.

#include "CCompensationFileImpl.h"
#include "CMessageBoardHelper.h"
#include "NLumoXmlTags.h"

using namespace NLumoXmlTags;

namespace {

const QString kMissingValue = QStringLiteral("0.0");

CParamVal valueOf(QLatin1String tag, const CDomElement& parent) {
  return CDomDoc::existingSubElementAsString(tag, parent, kMissingValue);
}

}  // namespace

int CCompensationFileImpl::load(const QString& fileName, const QString& version) {
  startLoad();
  if (open(fileName, TAG_ROOT_C_COMPENSATION, version, mErrorMsg)) return readDocument(Opened);
  return readDocument(isVersionRejected() ? VersionError : OpenError);
}

int CCompensationFileImpl::loadFromBuffer(const QByteArray& buffer, const QString& version) {
  startLoad();
  return readDocument(open(buffer, TAG_ROOT_C_COMPENSATION, version, mErrorMsg));
}

/// The format for saving belongs to the application, so that it can be chosen before a load.
void CCompensationFileImpl::startLoad() {
  const EDataPointFormat saveFormat = mSaveFormat;
  clear();
  mSaveFormat = saveFormat;
}

/// Reads the document unless it could not be opened, and lets go of it.
int CCompensationFileImpl::readDocument(int openResult) {
  int result = openResult;
  if (result == Opened) {
    setMetaData(CXmlAbstractLumoFile::metaData());
    result = readCompensationHeader();
  }
  if (result == Ok) result = readCompensationPoints();
  domDocument().clear();
  return result;
}

int CCompensationFileImpl::readCompensationHeader() {
  const CDomElement element = existingDomElement(TAG_HEADER, domDocument().documentElement());
  if (element.isNull()) return notFound(TAG_HEADER);
  CCompensationHeader header;
  header.setMinimum(valueOf(TAG_MIN, element));
  header.setMaximum(valueOf(TAG_MAX, element));
  setHeader(header);
  return Ok;
}

CCompensationPoint CCompensationFileImpl::readPoint(const CDomElement& element,
                                                    EDataPointFormat format) {
  const bool isCurrent = format == CurrentFormat;
  const auto lacks = [&element](QLatin1String tag) {
    return CDomDoc::existingSubElement(tag, element).isNull();
  };
  CCompensationPoint::EGaps gaps;
  gaps.setFlag(CCompensationPoint::NoPosition, lacks(TAG_POSITION));
  gaps.setFlag(CCompensationPoint::NoAdjustment, lacks(isCurrent ? TAG_ADJUST : TAG_ERROR));
  gaps.setFlag(CCompensationPoint::OtherAdjustment, !lacks(isCurrent ? TAG_ERROR : TAG_ADJUST));
  CCompensationPoint point;
  point.setPosition(valueOf(TAG_POSITION, element));
  point.setAdjustment(valueOf(adjustmentTag(format), element));
  point.setGaps(gaps);
  return point;
}

int CCompensationFileImpl::readCompensationPoints() {
  const CDomElement list = existingDomElement(TAG_POINTLIST, domDocument().documentElement());
  if (list.isNull()) return notFound(TAG_POINTLIST);
  CDomElement element = CDomDoc::existingSubElement(TAG_POINT, list);
  if (element.isNull()) return Ok;
  mDetectedFormat =
      CDomDoc::existingSubElement(TAG_ERROR, element).isNull() ? CurrentFormat : OldFormat;
  if (mDetectedFormat == OldFormat) {
    CMessageBoardHelper::setFormDebugWarning(tr("Old compensation data point format found."),
                                             logfile());
  }
  for (; !element.isNull(); element = element.nextSiblingElement(TAG_POINT))
    appendPoint(readPoint(element, mDetectedFormat));
  return Ok;
}

int CCompensationFileImpl::notFound(QLatin1String tag) {
  mErrorMsg = tr("Parse error, %1 not found.").arg(tag);
  return ContentError;
}
