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
