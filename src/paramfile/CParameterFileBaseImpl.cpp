// Construction, errors, head data and changed marks; the other operations are in the files
// CParameterFileBaseImpl<Topic>.cpp.

#include "CParameterFileBaseImpl.h"

#include "ICLogfile.h"

CParameterFileBaseImpl::CParameterFileBaseImpl(NktoGlobal::EParamFileType type, ICLogfile* logfile)
    : mFileType(type), mLogfile(logfile) {
  installOwnErrorHandler();
}

CParameterFileBaseImpl::CParameterFileBaseImpl(const CParameterFileBaseImpl& other,
                                               ICLogfile* logfile)
    : ICParameterFile(),
      mFileType(other.mFileType),
      mLogfile(logfile),
      mMetaData(other.mMetaData),
      mHardwareId(other.mHardwareId),
      mVersion(other.mVersion),
      mLoadFindings(other.mLoadFindings),
      mContentIds(other.mContentIds),
      mLabels(other.mLabels),
      mDefinitions(other.mDefinitions) {
  installOwnErrorHandler();
  for (const auto& [id, subDevices] : other.mTrees) mTrees.emplace(id, cloneOf(subDevices));
}

CParameterFileBaseImpl::~CParameterFileBaseImpl() = default;

void CParameterFileBaseImpl::installOwnErrorHandler() {
  mOwnErrorHandler = std::make_unique<CParameterFileErrorHandler>(mLogfile);
  useErrorHandler(mOwnErrorHandler.get());
}

void CParameterFileBaseImpl::setErrorHandler(CParameterFileErrorHandler* handler) {
  useErrorHandler(handler != nullptr ? handler : mOwnErrorHandler.get());
}

void CParameterFileBaseImpl::useErrorHandler(CParameterFileErrorHandler* handler) {
  mErrorHandler = handler;
  mErrorHandler->setParameterFile(this);
}

void CParameterFileBaseImpl::clear() {
  mDefinitions.clear();
  mErrorMsg.clear();
  mErrorLine = 0;
  clearRootNodes();
  mChanged = {};
  mMetaData = CXMLMetaData();
  mHardwareId.clear();
  mVersion = 0;
  mLoadFindings.clear();
  mContentIds.clear();
  mLabels = {};
  mImportResult = NParamDef::SImportResult();
}

void CParameterFileBaseImpl::clearRootNodes() {
  mTrees.clear();
}

bool CParameterFileBaseImpl::setErrorMsg(const QString& text, const QString& context,
                                         quint32 level) const {
  mErrorMsg = text;
  mErrorLine = 0;
  if (mLogfile != nullptr && mLogfile->isLevelEnabled(level))
    mLogfile->write(level, context.isEmpty() ? text : QStringLiteral("%1 : %2").arg(context, text));
  return false;
}

bool CParameterFileBaseImpl::paramChanged(const QString& hardwareId) const {
  return mChanged.contains(hardwareId);
}

void CParameterFileBaseImpl::clearChanged() {
  mDefinitions.clearChanged();
  mChanged = {};
}

void CParameterFileBaseImpl::setDefMetaData(const QString& author, const QString& comment) {
  CXMLMetaData metaData = mDefinitions.metaData();
  metaData.setAuthor(author);
  metaData.setComment(comment);
  mDefinitions.setMetaData(metaData);
}

void CParameterFileBaseImpl::setMetaData(const QString& author, const QString& comment) {
  mMetaData.setAuthor(author);
  mMetaData.setComment(comment);
}

NParamDef::ESubDeviceTypes CParameterFileBaseImpl::subDevType(quint8 subDevId) const {
  return mLabels.types.value(subDevId, NParamDef::SUB_DEV_TYPE_UNDEFINED);
}

void CParameterFileBaseImpl::labelType(quint8 subDevId, NParamDef::ESubDeviceTypes type,
                                       const QString& hardwareId) {
  if (subDevType(subDevId) != type) {
    mLabels.types.insert(subDevId, type);
    setHwIdChanged(hardwareId);
  }
}

void CParameterFileBaseImpl::labelName(quint8 subDevId, const QString& name,
                                       const QString& hardwareId) {
  if (subDevName(subDevId) != name) {
    if (name.isEmpty())  // as a load would find it, so that the next save writes the same
      mLabels.names.remove(subDevId);
    else
      mLabels.names.insert(subDevId, name);
    setHwIdChanged(hardwareId);
  }
}

bool CParameterFileBaseImpl::isReservedName(const QString& name) {
  return name == CParamNodeData::mStandardConstructedStr;
}

QString CParameterFileBaseImpl::reservedNameMessage(const QString& name) {
  return tr("The name \"%1\" is reserved.").arg(name);
}
