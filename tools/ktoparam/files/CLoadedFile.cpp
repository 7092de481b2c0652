#include "CLoadedFile.h"

#include "CAtomicFile.h"
#include "CInvocation.h"
#include "COutput.h"
#include "NDefinitionFile.h"
#include "NFileMessage.h"
#include "NSafeWrite.h"
#include "NSuggestion.h"
#include "Tool.h"

#include <QFileInfo>
#include <QTemporaryDir>

CLoadedFile::CLoadedFile(COutput& out)
    : mOut(out), mFile(ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr)) {}

// --- Loading

bool CLoadedFile::lock(const QString& fileName, const CInvocation& invocation) {
  constexpr int kWaitMs = 10000;
  if (invocation.isDryRun()) return true;
  const int wait = invocation.isSet(NOptions::kNoWait) ? 0 : kWaitMs;
  // Where nothing can be locked it goes on: if the folder is no good, the load or the save tells.
  if (mLock.lock({fileName}, wait) != CFolderLock::Busy) return true;
  mOut.message(fileName, Tool::tr("another program is changing a file in the same folder; nothing "
                                  "was done. \"lslocks\" tells which program it is."));
  return false;
}

bool CLoadedFile::load(const QString& fileName, SFileInfo::EKind wanted) {
  const std::optional<SFileInfo> found = SFileInfo::read(fileName, mOut);
  if (!found) return false;
  const bool isWanted = found->kind == wanted || wanted == SFileInfo::Unknown;
  const std::optional<SLoadProblem> problem =
      isWanted && found->kind != SFileInfo::Unknown
          ? tryLoad(fileName, *found)
          : SLoadProblem{found->refusal(SFileInfo::needed(wanted)), 0};
  if (problem) mOut.message(fileName, problem->text, problem->line);
  return !problem;
}

std::optional<SLoadProblem> CLoadedFile::tryLoad(const QString& fileName, const SFileInfo& info) {
  if (mFileName.isEmpty()) {
    mInfo = info;
    mFileName = fileName;
  }
  bool isLoaded = false;
  if (info.kind == SFileInfo::Definitions) {
    isLoaded = mFile->loadParamDefFile(fileName, info.version);
    if (isLoaded) mDefinitionFile = fileName;
  } else if (info.kind == SFileInfo::Values) {
    mFile->setFileType(info.type);
    isLoaded = mFile->loadParamFile(fileName, {}, info.version);
  } else if (info.kind == SFileInfo::Settings) {
    mSettings.reset(ICSettingsFile::create(nullptr));
    isLoaded = mSettings->load(fileName, info.writtenVersion) == ICSettingsFile::NoError;
  } else {
    mCompensation.reset(ICCompensationFile::create(nullptr));
    isLoaded = mCompensation->load(fileName, info.writtenVersion) == ICCompensationFile::Ok;
  }
  if (isLoaded) return {};
  return SLoadProblem{NFileMessage::withoutFile(errorMsg(), fileName), mFile->errorLine()};
}

bool CLoadedFile::loadValues(const QString& fileName, const CInvocation& invocation,
                             const QString& other) {
  if (!load(fileName, SFileInfo::Values)) return false;
  if (invocation.findsDefinitions()) findDefinitions({fileName, other});
  return !invocation.isSet(NOptions::kDef) ||
         load(invocation.value(NOptions::kDef), SFileInfo::Definitions);
}

void CLoadedFile::findDefinitions(const QStringList& valueFiles) {
  const QString found = NDefinitionFile::find(valueFiles);
  mAreDefinitionsFound = !found.isEmpty();
  if (mAreDefinitionsFound && load(found, SFileInfo::Definitions))
    message(Tool::tr("the definitions are those of %1.").arg(found));
}

EExitStatus CLoadedFile::openToRead(const CInvocation& invocation) {
  if (!loadValues(invocation.argument(0), invocation)) return ExitFile;
  mChosenSubDevice = invocation.subDevice();
  mChosenIds = hardwareIds(invocation);
  const bool isThere = !mChosenIds.isEmpty() && checkSubDevice(mChosenSubDevice, mChosenIds);
  return isThere ? ExitDone : ExitFindings;
}

EExitStatus CLoadedFile::openToEdit(const CInvocation& invocation, const QString& meant) {
  if (!lock(invocation.argument(0), invocation) ||
      !loadValues(invocation.argument(0), invocation) || !canSave()) {
    return ExitFile;
  }
  mChosenSubDevice = invocation.subDevice();
  const bool isMeant = !invocation.isSet(NOptions::kHardwareId) && !meant.isEmpty() &&
                       mFile->selectHardwareId(meant);
  const bool isThere = (isMeant || selectOneHardwareId(invocation)) &&
                       checkSubDevice(mChosenSubDevice, {mFile->hardwareId()});
  return isThere ? ExitDone : ExitFindings;
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

QString CLoadedFile::errorMsg() const {
  if (mSettings) return mSettings->errorMsg();
  return mCompensation ? mCompensation->errorMsg() : mFile->errorMsg();
}

SHead CLoadedFile::head() const {
  if (mInfo.kind == SFileInfo::Definitions)
    return {mFile->defDate(), mFile->defAuthor(), mFile->defComment()};
  if (mInfo.kind == SFileInfo::Values) return {mFile->date(), mFile->author(), mFile->comment()};
  const CXMLMetaData data = mCompensation ? mCompensation->metaData() : CXMLMetaData();
  return {data.date(), data.author(), data.comment()};
}

// --- Saving

bool CLoadedFile::canSave() const {
  if (mInfo.version != 0) return true;
  // Applications accept a file without a version, but would refuse it with version 0.0.
  message(
      Tool::tr("the file has no version that a save could keep. Give its root element the "
               "version that the applications expect, for example version=\"1.0\"."));
  return false;
}

bool CLoadedFile::save() {
  if (!mIsNew) return saveAs(mFileName, mInfo.version);
  return write(mFileName, [this] { return saveNew(); });
}

// A pager that shows what is printed then must not hold the lock.
bool CLoadedFile::write(const QString& fileName, const std::function<QString()>& save) {
  const bool isWritten = NSafeWrite::run(fileName, mOut, save);
  unlock();
  return isWritten;
}

// Another process may make a file of that name meanwhile: this one takes it only while it is free.
QString CLoadedFile::saveNew() {
  QString error = CAtomicFile::nameProblem(mFileName);
  if (!error.isEmpty()) return error;
  const QTemporaryDir folder(QFileInfo(mFileName).path() + QLatin1String("/.kto-XXXXXX"));
  if (!folder.isValid())
    return Tool::tr("the file cannot be written: %1.").arg(folder.errorString());
  const QString made = folder.filePath("new");
  if (!mFile->saveParamFile(made, {}, mInfo.version))
    return NFileMessage::withoutFile(mFile->errorMsg(), made);
  return CAtomicFile::renameToNew(made, mFileName, error) ? QString() : error;
}

bool CLoadedFile::saveAs(const QString& fileName, quint32 version) {
  const bool isSaved = write(fileName, [&]() -> QString {
    return mFile->saveParamFile(fileName, {}, version) ? QString() : mFile->errorMsg();
  });
  if (isSaved) tellWhatSavesLose();
  return isSaved;
}

bool CLoadedFile::saveDefinitionsAs(const QString& fileName, quint32 version) {
  return write(fileName, [&]() -> QString {
    return mFile->saveParamDefFile(fileName, version) ? QString() : mFile->errorMsg();
  });
}

bool CLoadedFile::saveCompensation(const QString& fileName) {
  return write(fileName, [&]() -> QString {
    const int result = mCompensation->save(fileName, mInfo.writtenVersion);
    return result == ICCompensationFile::Ok ? QString() : mCompensation->errorMsg();
  });
}

void CLoadedFile::tellWhatSavesLose() const {
  for (const SParamFinding& finding : mFile->loadFindings()) {
    mOut.message(mFileName,
                 Tool::tr("sub-device %1: %2").arg(QString::number(finding.subDevId), finding.text),
                 finding.line);
  }
}

void CLoadedFile::message(const QString& text) const {
  mOut.message(mFileName, text);
}

// --- Hardware ids and sub-devices

bool CLoadedFile::selectHardwareId(const QString& hardwareId) {
  if (mFile->selectHardwareId(hardwareId)) return true;
  const QStringList known = mFile->hardwareIds();
  const QString suggestion =
      NSuggestion::listsAll(known) ? QString() : NSuggestion::didYouMean(hardwareId, known);
  message(Tool::tr("there is no hardware id \"%1\".%2 The file has: %3.")
              .arg(hardwareId, suggestion, NSuggestion::listed(known)));
  return false;
}

QStringList CLoadedFile::hardwareIds(const CInvocation& invocation) {
  if (!invocation.isSet(NOptions::kHardwareId)) return mFile->hardwareIds();
  const QString hardwareId = invocation.value(NOptions::kHardwareId);
  return selectHardwareId(hardwareId) ? QStringList(hardwareId) : QStringList();
}

bool CLoadedFile::selectOneHardwareId(const CInvocation& invocation, QLatin1String option) {
  if (invocation.isSet(option)) return selectHardwareId(invocation.value(option));
  const QStringList known = mFile->hardwareIds();
  if (known.size() == 1) return selectHardwareId(known.first());
  message(known.isEmpty() ? Tool::tr("the file has no hardware id.")
                          : Tool::tr("the file has several hardware ids; choose one with --%1: %2.")
                                .arg(option, NSuggestion::listed(known)));
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
              .arg(QString::number(*wanted), NSuggestion::listed(known.values())));
  return false;
}

QList<quint8> CLoadedFile::chosenSubDevices() const {
  if (!mChosenSubDevice) return mFile->subDeviceIds();
  return mFile->doesSubDeviceExist(*mChosenSubDevice) ? QList<quint8>{*mChosenSubDevice}
                                                      : QList<quint8>();
}
