#include "CCompensationFileImpl.h"

#include "CMessageBoardHelper.h"
#include "CStr.h"
#include "LumoToday.h"
#include "NLumoXmlTags.h"

using namespace NLumoXmlTags;

namespace {

const QString kMissingValue = QStringLiteral("0.0");

QLatin1String adjustmentTag(ICCompensationFile::EDataPointFormat format) {
  return format == ICCompensationFile::CurrentFormat ? TAG_ADJUST : TAG_ERROR;
}

CParamVal valueOf(QLatin1String tag, const CDomElement& parent) {
  return CDomDoc::existingSubElementAsString(tag, parent, kMissingValue);
}

CCompensationPoint readPoint(const CDomElement& element,
                             ICCompensationFile::EDataPointFormat format) {
  const bool isCurrent = format == ICCompensationFile::CurrentFormat;
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

}  // namespace

CCompensationFileImpl::CCompensationFileImpl(ICLogfile* logfile)
    : CXmlAbstractLumoFile(logfile, ATTR_VERSION_CAPITAL) {}

void CCompensationFileImpl::clear() {
  CCompensationTable::clear();
  mErrorMsg.clear();
  mDetectedFormat = NoFormat;
  mSaveFormat = CurrentFormat;
}

int CCompensationFileImpl::load(const QString& fileName, const QString& version) {
  startLoad();
  if (!open(fileName, TAG_ROOT_C_COMPENSATION, version, mErrorMsg)) {
    domDocument().clear();
    return mVersionError ? VersionError : OpenError;
  }
  return readDocument();
}

int CCompensationFileImpl::loadFromBuffer(const QByteArray& buffer, const QString& version) {
  startLoad();
  const int result = open(buffer, TAG_ROOT_C_COMPENSATION, version, mErrorMsg);
  if (result != Opened) {
    domDocument().clear();
    return result;
  }
  return readDocument();
}

/// The format for saving belongs to the application, so that it can be chosen before a load.
void CCompensationFileImpl::startLoad() {
  const EDataPointFormat saveFormat = mSaveFormat;
  clear();
  mSaveFormat = saveFormat;
  mVersionError = false;
}

int CCompensationFileImpl::readDocument() {
  setMetaData(CXmlAbstractLumoFile::metaData());
  int result = readCompensationHeader();
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

int CCompensationFileImpl::save(const QString& fileName, const QString& version) {
  int result = setDataToDocument(version);
  if (result == Ok && !CXmlAbstractLumoFile::save(fileName, mErrorMsg)) result = SaveError;
  domDocument().clear();
  return result;
}

int CCompensationFileImpl::saveToBuffer(QByteArray& buffer, const QString& version) {
  int result = setDataToDocument(version);
  if (result == Ok && !CXmlAbstractLumoFile::save(buffer, mErrorMsg)) result = SaveError;
  domDocument().clear();
  return result;
}

int CCompensationFileImpl::setDataToDocument(const QString& version) {
  mErrorMsg.clear();
  createNewDocument(TAG_ROOT_C_COMPENSATION, version);
  fillMetaData();
  if (!CXmlAbstractLumoFile::setMetaData(metaData())) return notWritten(TAG_HEAD);
  const int result = writeCompensationHeader();
  return result == Ok ? writeCompensationPoints() : result;
}

void CCompensationFileImpl::fillMetaData() {
  CXMLMetaData filled = metaData();
  if (filled.isEmpty()) {
    filled.setAuthor(qEnvironmentVariable("USER"));
    filled.setDate(NLumoToday::today());
    setMetaData(filled);
  }
}

int CCompensationFileImpl::writeCompensationHeader() {
  const CDomElement element = domElement(TAG_HEADER, domDocument().documentElement());
  if (element.isNull()) return notWritten(TAG_HEADER);
  CDomDoc::setSubElementValue(TAG_MIN, element, header().minimum().asStr());
  CDomDoc::setSubElementValue(TAG_MAX, element, header().maximum().asStr());
  return Ok;
}

int CCompensationFileImpl::writeCompensationPoints() {
  CDomElement list = domElement(TAG_POINTLIST, domDocument().documentElement());
  if (list.isNull()) return notWritten(TAG_POINTLIST);
  const QLatin1String tag = adjustmentTag(mSaveFormat);
  const QList<CCompensationPoint> points = allPoints();
  for (const CCompensationPoint& point : points) {
    const CDomElement element = list.appendElement(TAG_POINT);
    CDomDoc::setSubElementValue(TAG_POSITION, element, point.position().asStr());
    CDomDoc::setSubElementValue(tag, element, point.adjustment().asStr());
  }
  return Ok;
}

int CCompensationFileImpl::notWritten(QLatin1String tag) {
  mErrorMsg = tr("The element \"%1\" could not be written.").arg(tag);
  return ContentError;
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
