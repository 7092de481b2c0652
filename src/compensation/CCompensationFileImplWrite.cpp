// Writing of compensation files.

#include "CCompensationFileImpl.h"
#include "NClock.h"
#include "NLumoXmlTags.h"

using namespace NLumoXmlTags;

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
    filled.setDate(NClock::today());
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
