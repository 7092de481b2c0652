#include "CXmlAbstractLumoFile.h"

#include "CAtomicFile.h"
#include "CMessageBoardHelper.h"
#include "CStr.h"
#include "NLumoXmlTags.h"

#include <functional>
#include <string_view>

using namespace NLumoXmlTags;

CXmlAbstractLumoFile::CXmlAbstractLumoFile(ICLogfile* logfile, QLatin1String versionAttribute)
    : mLogfile(logfile), mVersionAttribute(versionAttribute) {}

CXmlAbstractLumoFile::~CXmlAbstractLumoFile() = default;

bool CXmlAbstractLumoFile::open(const QString& fileName, const QString& rootTag,
                                const QString& version, QString& error) {
  QByteArray bytes;
  mOpenResult = CAtomicFile::read(fileName, bytes, mOpenError) ? openBytes(bytes, rootTag, version)
                                                               : ParseFailed;
  if (mOpenResult == Opened) mContentId = contentIdOf(bytes);
  error = mOpenResult == Opened ? QString() : tr("File \"%1\": %2").arg(fileName, mOpenError);
  return mOpenResult == Opened;
}

int CXmlAbstractLumoFile::open(const QByteArray& buffer, const QString& rootTag,
                               const QString& version, QString& error) {
  mOpenResult = openBytes(buffer, rootTag, version);
  error = mOpenError;
  return mOpenResult;
}

CXmlAbstractLumoFile::EOpenResult CXmlAbstractLumoFile::openBytes(const QByteArray& bytes,
                                                                  const QString& rootTag,
                                                                  const QString& version) {
  if (!mDocument.setContent(bytes, mOpenError)) return ParseFailed;
  const CDomElement root = mDocument.documentElement();
  const QString line = QString::number(root.lineNumber());
  if (root.tagName() != rootTag) {
    mOpenError = tr("Line %1: the root element is <%2>, expected is <%3>.")
                     .arg(line, root.tagName(), rootTag);
    return WrongRootTag;
  }
  const QString fileVersion = root.attribute(mVersionAttribute);
  if (fileVersion != version && !handleVersionError(fileVersion, version)) {
    mOpenError = tr("Line %1: version \"%2\" is not compatible with the expected version \"%3\".")
                     .arg(line, fileVersion, version);
    return VersionRejected;
  }
  return Opened;
}

bool CXmlAbstractLumoFile::save(const QString& fileName, QString& error) {
  return save(fileName, QStringLiteral("UTF-16"), error);
}

bool CXmlAbstractLumoFile::save(const QString& fileName, const QString& encoding, QString& error) {
  QString reason;
  QString notKept;
  const QByteArray bytes = mDocument.toByteArray(encoding, reason);
  const bool saved =
      !bytes.isEmpty() && CAtomicFile::write(fileName, bytes, mPermissions, reason, &notKept);
  if (saved) mContentId = contentIdOf(bytes);
  error = saved ? QString() : tr("File \"%1\": %2").arg(fileName, reason);
  if (!notKept.isEmpty())
    CMessageBoardHelper::setWarning(tr("File \"%1\": %2").arg(fileName, notKept), mLogfile);
  return saved;
}

bool CXmlAbstractLumoFile::save(QByteArray& buffer, QString& error) {
  QString reason;
  const QByteArray bytes = mDocument.toByteArray(QStringLiteral("UTF-16"), reason);
  error = reason;
  if (bytes.isEmpty()) return false;
  buffer = bytes;
  return true;
}

CContentId CXmlAbstractLumoFile::contentIdOf(const QByteArray& bytes) {
  const std::string_view all(bytes.constData(), static_cast<size_t>(bytes.size()));
  return {bytes.size(), std::hash<std::string_view>()(all)};
}

CXMLMetaData CXmlAbstractLumoFile::metaData() const {
  const CDomElement head = existingDomElement(TAG_HEAD, mDocument.documentElement());
  CXMLMetaData result;
  result.setDate(QDate::fromString(CDomDoc::existingSubElementAsString(TAG_DATE, head, QString()),
                                   Qt::ISODate));
  result.setAuthor(CDomDoc::existingSubElementAsString(TAG_AUTHOR, head, QString()));
  result.setComment(CDomDoc::existingSubElementAsString(TAG_COMMENT, head, QString()));
  return result;
}

bool CXmlAbstractLumoFile::setMetaData(const CXMLMetaData& metaData) {
  const CDomElement head = domElement(TAG_HEAD, mDocument.documentElement());
  CDomDoc::setSubElementValue(TAG_DATE, head, metaData.date().toString(Qt::ISODate));
  CDomDoc::setSubElementValue(TAG_AUTHOR, head, metaData.author());
  CDomDoc::setSubElementValue(TAG_COMMENT, head, metaData.comment());
  return !head.isNull();
}

CDomElement CXmlAbstractLumoFile::domElement(QLatin1String tag, CDomElement parent) {
  const CDomElement element = CDomDoc::existingSubElement(tag, parent);
  return element.isNull() ? parent.appendElement(tag) : element;
}

CDomElement CXmlAbstractLumoFile::existingDomElement(QLatin1String tag,
                                                     const CDomElement& parent) const {
  return CDomDoc::existingSubElement(tag, parent);
}

bool CXmlAbstractLumoFile::isCompatible(const QString& fileVersion,
                                        const QString& expectedVersion) {
  return fileVersion.isEmpty() || CStr::haveSameMainNumber(fileVersion, expectedVersion) == true;
}

void CXmlAbstractLumoFile::createNewDocument(const QString& rootTag, const QString& version) {
  mDocument.createRoot(rootTag).setAttribute(mVersionAttribute, version);
}

void CXmlAbstractLumoFile::setMessageBoardCritical(const QString& text) const {
  if (!mIsQuiet) CMessageBoardHelper::setCritical(text, mLogfile);
}
