// Loading and saving.

#include "CAtomicFile.h"
#include "CMessageBoardHelper.h"
#include "CSimpleParamReaderImpl.h"
#include "ICLogfile.h"

#include <QFileInfo>

QString CSimpleParamReaderImpl::ensureSuffix(const QString& name, const QString& suffix) {
  return QFileInfo(name).suffix().isEmpty() ? QString(name + QLatin1Char('.') + suffix) : name;
}

bool CSimpleParamReaderImpl::load(const QString& path, QString& err) {
  const QFileInfo file(path);
  const QString base = file.absolutePath() + QLatin1Char('/') + file.completeBaseName();
  return load(base, base, err);
}

bool CSimpleParamReaderImpl::load(const QString& defFile, const QString& paramFile, QString& err) {
  mDefFile.name = ensureSuffix(defFile, QStringLiteral("xpdef"));
  mValueFile.name = ensureSuffix(paramFile, QStringLiteral("xparam"));
  mValueFile.isLoaded = false;
  mValueFile.isUnread = true;
  mDefFile.isLoaded = mFile->loadParamDefFile(mDefFile.name, mParamDefFileVersion);
  mDefFile.isUnread = !mDefFile.isLoaded;
  if (!mDefFile.isLoaded) {
    err += mFile->errorMsg() + QLatin1Char('\n');
    if (!isFullAccess()) return false;
  }
  mValueFile.isLoaded = mFile->loadParamFile(mValueFile.name, hardwareId(), mParamFileVersion);
  mValueFile.isUnread = !mValueFile.isLoaded;
  if (!mValueFile.isLoaded) err += mFile->errorMsg() + QLatin1Char('\n');
  return mValueFile.isLoaded || isFullAccess();
}

bool CSimpleParamReaderImpl::saveFiles() {
  if (!changed()) return true;
  if (!mValueFile.name.isEmpty() && CAtomicFile::isSameFile(mDefFile.name, mValueFile.name)) {
    return postFailure(mFile->setErrorMsg(
        tr("Definitions and values are not saved because \"%1\" and \"%2\" are the same file.")
            .arg(mDefFile.name, mValueFile.name)));
  }
  const bool definitionsSaved = !mFile->defChanged() || saveDefinitions();
  const bool valuesSaved = mFile->changedList().isEmpty() || saveValues();
  return definitionsSaved && valuesSaved;
}

bool CSimpleParamReaderImpl::saveDefinitions() {
  logSaving(tr("Saving changed parameter definition file \"%1\".").arg(mDefFile.name));
  if (!mDefFile.isLoaded && hasMetaData()) mFile->setDefMetaData(mAuthor, mComment);
  return postFailure(keepUnread(mDefFile) &&
                     mFile->saveParamDefFile(mDefFile.name, mParamDefFileVersion));
}

bool CSimpleParamReaderImpl::saveValues() {
  logSaving(tr("Saving changed parameter file \"%1\".").arg(mValueFile.name));
  if (!mValueFile.isLoaded && hasMetaData()) mFile->setMetaData(mAuthor, mComment);
  if (mFile->hardwareIds().isEmpty()) {
    logSaving(
        tr("Parameter file \"%1\" is not written because there are no values. Types and names "
           "of sub-devices are not saved.")
            .arg(mValueFile.name));
    return true;
  }
  return postFailure(keepUnread(mValueFile) &&
                     mFile->saveParamFile(mValueFile.name, QString(), mParamFileVersion));
}

void CSimpleParamReaderImpl::logSaving(const QString& text) const {
  if (mLogfile->isLevelEnabled(ICLogfile::kLevelSaving))
    mLogfile->write(ICLogfile::kLevelSaving, text);
}

/// Nobody knows what a file holds that could not be read, so it is not lost when it is replaced.
bool CSimpleParamReaderImpl::keepUnread(SFile& file) const {
  if (file.isUnread && QFileInfo::exists(file.name)) {
    QString backupName;
    QString reason;
    if (!CAtomicFile::keepAsBackup(file.name, backupName, reason)) {
      return mFile->setErrorMsg(
          tr("File \"%1\" was not loaded and is not replaced: %2").arg(file.name, reason));
    }
    CMessageBoardHelper::setWarning(
        tr("File \"%1\" was not loaded and is replaced. The old file is kept as \"%2\".")
            .arg(file.name, backupName),
        mLogfile);
  }
  file.isUnread = false;
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
  mDefFile = {};
  mValueFile = {};
  mAuthor.clear();
  mComment.clear();
  return saved;
}
