// Construction, loading and saving, and what is forwarded to the parameter file; the other
// operations stand in the files CSimpleParamReaderImpl<Topic>.cpp.

#include "CSimpleParamReaderImpl.h"

#include "CAtomicFile.h"
#include "CMessageBoardHelper.h"
#include "CParameterFileImpl.h"
#include "ICLogfile.h"

#include <QFileInfo>

CSimpleParamReaderImpl::CSimpleParamReaderImpl(bool useCreate, NktoGlobal::EParamFileType fileType,
                                               const QString& hardwareId,
                                               NParamDef::EAccessRight access, ICLogfile* logfile,
                                               unsigned int paramDefFileVersion,
                                               unsigned int paramFileVersion)
    : mOwnLogfile(logfile != nullptr ? nullptr
                                     : ICLogfile::createLogfile(ICLogfile::LogFile, QString(), 0)),
      mLogfile(logfile != nullptr ? logfile : mOwnLogfile.get()),
      mAccess(access),
      mFile(useCreate ? std::make_unique<CParameterFileImpl>(fileType, mLogfile)
                      : std::make_unique<CParameterFileBaseImpl>(fileType, mLogfile)),
      mParamDefFileVersion(paramDefFileVersion),
      mParamFileVersion(paramFileVersion) {
  mFile->addHardwareId(hardwareId);
  mFile->setMetaData(mAuthor, mComment);
}

CSimpleParamReaderImpl::~CSimpleParamReaderImpl() {
  saveFiles();
}

QString CSimpleParamReaderImpl::ensureSuffix(const QString& name, const QString& suffix) {
  return QFileInfo(name).suffix().isEmpty() ? QString(name + QLatin1Char('.') + suffix) : name;
}

bool CSimpleParamReaderImpl::load(const QString& path, QString& err) {
  const QFileInfo file(path);
  const QString base = file.absolutePath() + QLatin1Char('/') + file.completeBaseName();
  return load(base, base, err);
}

bool CSimpleParamReaderImpl::load(const QString& defFile, const QString& paramFile, QString& err) {
  mParamDefFileName = ensureSuffix(defFile, QStringLiteral("xpdef"));
  mParamFileName = ensureSuffix(paramFile, QStringLiteral("xparam"));
  mParamFileLoaded = false;
  mParamFileUnread = true;
  mParamDefFileLoaded = mFile->loadParamDefFile(mParamDefFileName, mParamDefFileVersion);
  mParamDefFileUnread = !mParamDefFileLoaded;
  if (!mParamDefFileLoaded) {
    err += mFile->errorMsg() + QLatin1Char('\n');
    if (!isFullAccess()) return false;
  }
  mParamFileLoaded = mFile->loadParamFile(mParamFileName, hardwareId(), mParamFileVersion);
  mParamFileUnread = !mParamFileLoaded;
  if (!mParamFileLoaded) err += mFile->errorMsg() + QLatin1Char('\n');
  return mParamFileLoaded || isFullAccess();
}

void CSimpleParamReaderImpl::setMetaData(const QString& author, const QString& comment) {
  mAuthor = author;
  mComment = comment;
}

bool CSimpleParamReaderImpl::saveFiles() {
  if (!changed()) return true;
  if (!mParamFileName.isEmpty() && CAtomicFile::isSameFile(mParamDefFileName, mParamFileName)) {
    return postFailure(mFile->setErrorMsg(
        tr("Definitions and values are not saved because \"%1\" and \"%2\" are the same file.")
            .arg(mParamDefFileName, mParamFileName)));
  }
  const bool definitionsSaved = !mFile->defChanged() || saveDefinitions();
  const bool valuesSaved = mFile->changedList().isEmpty() || saveValues();
  return definitionsSaved && valuesSaved;
}

bool CSimpleParamReaderImpl::saveDefinitions() {
  logSaving(tr("Saving changed parameter definition file \"%1\".").arg(mParamDefFileName));
  if (!mParamDefFileLoaded && hasMetaData()) mFile->setDefMetaData(mAuthor, mComment);
  return postFailure(keepUnread(mParamDefFileName, mParamDefFileUnread) &&
                     mFile->saveParamDefFile(mParamDefFileName, mParamDefFileVersion));
}

bool CSimpleParamReaderImpl::saveValues() {
  logSaving(tr("Saving changed parameter file \"%1\".").arg(mParamFileName));
  if (!mParamFileLoaded && hasMetaData()) mFile->setMetaData(mAuthor, mComment);
  if (mFile->hardwareIds().isEmpty()) {
    logSaving(
        tr("Parameter file \"%1\" is not written because there are no values. Types and names "
           "of sub-devices are not saved.")
            .arg(mParamFileName));
    return true;
  }
  return postFailure(keepUnread(mParamFileName, mParamFileUnread) &&
                     mFile->saveParamFile(mParamFileName, QString(), mParamFileVersion));
}

void CSimpleParamReaderImpl::logSaving(const QString& text) const {
  if (mLogfile->isLevelEnabled(ICLogfile::kLevelSaving))
    mLogfile->write(ICLogfile::kLevelSaving, text);
}

/// Nobody knows what a file holds that could not be read, so it is not lost when it is replaced.
bool CSimpleParamReaderImpl::keepUnread(const QString& fileName, bool& unread) const {
  if (unread && QFileInfo::exists(fileName)) {
    QString backupName;
    QString reason;
    if (!CAtomicFile::keepAsBackup(fileName, backupName, reason)) {
      return mFile->setErrorMsg(
          tr("File \"%1\" was not loaded and is not replaced: %2").arg(fileName, reason));
    }
    CMessageBoardHelper::setWarning(
        tr("File \"%1\" was not loaded and is replaced. The old file is kept as \"%2\".")
            .arg(fileName, backupName),
        mLogfile);
  }
  unread = false;
  return true;
}

/// Nothing else tells why saving failed after the reader is closed or deleted; the file has logged
/// it already.
bool CSimpleParamReaderImpl::postFailure(bool saved) const {
  if (!saved) CMessageBoardHelper::setCritical(mFile->errorMsg());
  return saved;
}

bool CSimpleParamReaderImpl::closeFiles(bool save) {
  const bool saved = !save || saveFiles();
  mFile->clear();
  mParamDefFileName.clear();
  mParamFileName.clear();
  mAuthor.clear();
  mComment.clear();
  mParamDefFileLoaded = false;
  mParamFileLoaded = false;
  mParamDefFileUnread = false;
  mParamFileUnread = false;
  return saved;
}

bool CSimpleParamReaderImpl::selectHardwareId(const QString& hardwareId) {
  return mFile->selectHardwareId(hardwareId) ||
         (isFullAccess() && mFile->addHardwareId(hardwareId));
}

bool CSimpleParamReaderImpl::containsVal(const QString& name, unsigned char subDevId) const {
  return !mFile->paramValue(name, subDevId).isNull();
}

CParamDefItem* CSimpleParamReaderImpl::paramDefPtr(const QString& name, QString& err) {
  CParamDefItem* definition = mFile->paramDefPtr(name);
  if (definition == nullptr) err += mFile->errorMsg() + QLatin1Char('\n');
  return definition;
}

QList<unsigned char> CSimpleParamReaderImpl::subDeviceIds(NParamDef::ESubDeviceTypes type) const {
  return mFile->subDeviceIds(type);
}

NParamDef::ESubDeviceTypes CSimpleParamReaderImpl::subDevType(unsigned char subDevId) const {
  return mFile->subDevType(subDevId);
}

void CSimpleParamReaderImpl::setSubDevType(unsigned char subDevId,
                                           NParamDef::ESubDeviceTypes type) {
  if (!isReadOnly()) mFile->setSubDevType(subDevId, type);
}

void CSimpleParamReaderImpl::setSubDevName(unsigned char subDevId, const QString& name) {
  if (!isReadOnly()) mFile->setSubDevName(subDevId, name);
}

CParamDefItem* CSimpleParamReaderImpl::addDef(const CParamDefItem& definition) {
  return mFile->addDef(definition);
}

CParamDefItem* CSimpleParamReaderImpl::addDef(const QString& name, NParamDef::EParamType type,
                                              unsigned int id) {
  return mFile->addDef(name, type, id);
}
