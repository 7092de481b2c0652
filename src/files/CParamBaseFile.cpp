#include "CParamBaseFile.h"

#include "CParameterFileErrorHandler.h"
#include "ICLogfile.h"
#include "NClock.h"
#include "NLumoXmlTags.h"

CParamBaseFile::CParamBaseFile(ICLogfile* logfile, CParameterFileErrorHandler* handler)
    : CXmlAbstractLumoFile(logfile, NLumoXmlTags::ATTR_VERSION),
      mErrorMsg(tr("Ok")),
      mDefaultHandler(handler != nullptr ? nullptr
                                         : std::make_unique<CParameterFileErrorHandler>(logfile)),
      mErrorHandler(handler != nullptr ? handler : mDefaultHandler.get()) {
  setMetaData(QStringLiteral("RX5"), QStringLiteral("automatic generated"));
}

CParamBaseFile::~CParamBaseFile() = default;

void CParamBaseFile::setMetaData(const QString& author, const QString& comment) {
  mMetaData.setAuthor(author);
  mMetaData.setComment(comment);
  mMetaData.setDate(NClock::today());
}

bool CParamBaseFile::existingParamSubElemetStr(const CDomElement& paramElement, QLatin1String tag,
                                               unsigned int id, QString& value) {
  if (CDomDoc::fail(CDomDoc::existingSubElementAsString(tag, paramElement, value, mErrorMsg))) {
    prependToError(QCoreApplication::translate("CParamDefFile", "Parameter (Id=%1) -> ").arg(id));
    return false;
  }
  return true;
}

bool CParamBaseFile::existingParamSubElemetStr(const QDomElement& paramElement, const QString& tag,
                                               unsigned int id, QString& value) {
  const CDomDoc copy = CDomDoc::fromDom(paramElement);
  const QByteArray latin = tag.toLatin1();
  return existingParamSubElemetStr(copy.documentElement(), QLatin1String(latin), id, value);
}

bool CParamBaseFile::handleVersionError(const QString& version, const QString& otherVersion) {
  return errorHandler().handleFileVersionError(version, otherVersion);
}

bool CParamBaseFile::handleValueFileVersionError(const QString& version,
                                                 const QString& otherVersion) {
  return errorHandler().handleValueFileVersionError(version, otherVersion);
}

bool CParamBaseFile::openChecked(const QString& fileName, const QString& rootTag,
                                 const QString& version) {
  mErrorLine = 0;
  if (!open(fileName, rootTag, version, mErrorMsg)) return false;
  mMetaData = metaData();
  return true;
}

void CParamBaseFile::createDocumentWithHead(const QString& rootTag, const QString& version) {
  createNewDocument(rootTag, version);
  setMetaData(mMetaData);
}

bool CParamBaseFile::fail(const QString& message) {
  mErrorMsg = message;
  return false;
}

bool CParamBaseFile::failAt(const CDomElement& element, const QString& message) {
  mErrorLine = element.lineNumber();
  return fail(message);
}

void CParamBaseFile::logDetail(const QString& text) const {
  if (logfile() != nullptr && logfile()->isLevelEnabled(ICLogfile::kLevelDetail))
    logfile()->write(ICLogfile::kLevelDetail, text);
}
