#include "CLoadedFile.h"

#include "CAtomicFile.h"
#include "CInvocation.h"
#include "COutput.h"
#include "CSignalShield.h"
#include "FileHints.h"
#include "LibraryMessage.h"
#include "Suggestion.h"
#include "Tool.h"

#include <QFileInfo>
#include <QTemporaryDir>

namespace {

QString wantedFile(SFileInfo::EKind kind) {
  return kind == SFileInfo::Definitions
             ? Tool::tr("A definition file (root element LumoParamDefinition) is needed here.")
             : Tool::tr("A value file is needed here.");
}

}  // namespace

CLoadedFile::CLoadedFile(COutput& out)
    : mOut(out), mFile(ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr)) {}

bool CLoadedFile::checkKind(const QString& fileName, SFileInfo::EKind wanted, SFileInfo& info) {
  const std::optional<SFileInfo> found = SFileInfo::read(fileName, mOut);
  if (!found) return false;
  info = *found;
  if (info.kind == wanted) return true;
  mOut.message(fileName, info.refusal(wantedFile(wanted)));
  return false;
}

bool CLoadedFile::loadValues(const QString& fileName) {
  mFileName = fileName;
  if (!checkKind(fileName, SFileInfo::Values, mInfo)) return false;
  mFile->setFileType(mInfo.type);
  if (mFile->loadParamFile(fileName, {}, mInfo.version)) return true;
  reportFailure(fileName);
  return false;
}

bool CLoadedFile::loadDefinitions(const QString& fileName) {
  SFileInfo found;
  if (!checkKind(fileName, SFileInfo::Definitions, found)) return false;
  if (mFileName.isEmpty()) {
    mInfo = found;
    mFileName = fileName;
  }
  mHasDefinitions = mFile->loadParamDefFile(fileName, found.version);
  if (!mHasDefinitions) reportFailure(fileName);
  return mHasDefinitions;
}

bool CLoadedFile::load(const QString& valueFile, const CInvocation& invocation) {
  if (!loadValues(valueFile)) return false;
  const bool named = invocation.isSet(CommonOptions::kDef);
  return !named || loadDefinitions(invocation.value(CommonOptions::kDef));
}

void CLoadedFile::begin(const QString& fileName, NktoGlobal::EParamFileType type, quint32 version) {
  mFileName = fileName;
  mIsNew = true;
  mInfo.kind = SFileInfo::Values;
  mInfo.type = type;
  mInfo.typeName = ICParameterFile::fileTypeToStr(type);
  mInfo.version = version;
  mFile->setFileType(type);
}

bool CLoadedFile::canSave() {
  if (mInfo.version != 0) return true;
  // Applications accept a file without a version, but would refuse it with version 0.0.
  message(
      Tool::tr("the file has no version that a save could keep. Give its root element the "
               "version that the applications expect, for example version=\"1.0\"."));
  return false;
}

bool CLoadedFile::save() {
  return mIsNew ? saveNew() : saveAs(mFileName, mInfo.version);
}

bool CLoadedFile::saveNew() {
  mOut.progress().doing(Tool::tr("Writing %1 …").arg(mFileName));
  const CSignalShield shield;
  // Another process may make a file of that name meanwhile: this one takes it only while it is
  // free.
  const QTemporaryDir folder(QFileInfo(mFileName).path() + QLatin1String("/.kto-XXXXXX"));
  const QString made = folder.filePath(QStringLiteral("new"));
  QString error = CAtomicFile::nameProblem(mFileName);
  if (error.isEmpty() && !folder.isValid())
    error = Tool::tr("the file cannot be written: %1.").arg(folder.errorString());
  else if (error.isEmpty() && !mFile->saveParamFile(made, {}, mInfo.version))
    error = LibraryMessage::withoutFileName(mFile->errorMsg(), made);
  else if (error.isEmpty() && CAtomicFile::renameToNew(made, mFileName, error))
    return true;
  message(error);
  FileHints::tellWhyUnsaved(mFileName, mOut);
  return false;
}

bool CLoadedFile::saveAs(const QString& fileName, quint32 version) {
  mOut.progress().doing(Tool::tr("Writing %1 …").arg(fileName));
  const CSignalShield shield;
  if (mFile->saveParamFile(fileName, {}, version)) {
    tellWhatSavesLose();
    return true;
  }
  reportFailure(fileName);
  FileHints::tellWhyUnsaved(fileName, mOut);
  return false;
}

void CLoadedFile::tellWhatSavesLose() const {
  for (const SParamFinding& finding : mFile->loadFindings()) {
    mOut.message(mFileName,
                 Tool::tr("sub-device %1: %2").arg(QString::number(finding.subDevId), finding.text),
                 finding.line);
  }
}

void CLoadedFile::reportFailure(const QString& fileName) const {
  mOut.message(fileName, LibraryMessage::withoutFileName(mFile->errorMsg(), fileName),
               mFile->errorLine());
}

void CLoadedFile::message(const QString& text) const {
  mOut.message(mFileName, text);
}

bool CLoadedFile::selectHardwareId(const QString& hardwareId) {
  if (mFile->selectHardwareId(hardwareId)) return true;
  const QStringList known = mFile->hardwareIds();
  const QString suggestion =
      Suggestion::listsAll(known) ? QString() : Suggestion::didYouMean(hardwareId, known);
  message(Tool::tr("there is no hardware id \"%1\".%2 The file has: %3.")
              .arg(hardwareId, suggestion, Suggestion::listed(known)));
  return false;
}

QStringList CLoadedFile::hardwareIds(const CInvocation& invocation) {
  if (!invocation.isSet(CommonOptions::kHardwareId)) return mFile->hardwareIds();
  const QString hardwareId = invocation.value(CommonOptions::kHardwareId);
  return selectHardwareId(hardwareId) ? QStringList(hardwareId) : QStringList();
}

bool CLoadedFile::selectOneHardwareId(const CInvocation& invocation, QLatin1String option) {
  if (invocation.isSet(option)) return selectHardwareId(invocation.value(option));
  const QStringList known = mFile->hardwareIds();
  if (known.size() == 1) return selectHardwareId(known.first());
  message(known.isEmpty() ? Tool::tr("the file has no hardware id.")
                          : Tool::tr("the file has several hardware ids; choose one with --%1: %2.")
                                .arg(option, Suggestion::listed(known)));
  return false;
}

bool CLoadedFile::checkSubDevice(std::optional<quint8> wanted, const QStringList& hardwareIds) {
  if (!wanted) return true;
  QMap<quint8, QString> known;
  for (const QString& hardwareId : hardwareIds) {
    mFile->selectHardwareId(hardwareId);
    if (mFile->doesSubDeviceExist(*wanted)) return true;
    for (const quint8 id : mFile->subDeviceIds()) known.insert(id, QString::number(id));
  }
  message(Tool::tr("there is no sub-device %1; there are: %2.")
              .arg(QString::number(*wanted), Suggestion::listed(known.values())));
  return false;
}
