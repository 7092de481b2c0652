#include "CParameterFileMotorReaderThread.h"

#include "ICLogfile.h"
#include "NMotorFile.h"

namespace {

// Ten times what the deepest nesting of a file takes; the default depends on the system and may be
// less than that. The rest is for what the application does in its logfile.
constexpr uint kStackSize = 2 * 1024 * 1024;

/// An exception that left a thread would end the process. They come from memory that runs out and
/// from the application's logfile.
template <typename TWork>
void guarded(const TWork& work) {
  try {
    work();
  } catch (...) {
    // What was begun contributes nothing.
  }
}

}  // namespace

CParameterFileMotorReaderThread::CParameterFileMotorReaderThread(QObject* parent)
    : QThread(parent) {
  setStackSize(kStackSize);
}

CParameterFileMotorReaderThread::~CParameterFileMotorReaderThread() {
  exit(0);
  wait();
  mEnd.await();
}

QString CParameterFileMotorReaderThread::logfilePrefix() const {
  return mLogfile != nullptr && mLogfile->isActive() ? mLogfile->prefix() : QString();
}

QMap<QString, CParamFileElement> CParameterFileMotorReaderThread::motorNames() const {
  const std::lock_guard lock(mMutex);
  QMap<QString, CParamFileElement> copy = mMotorNames;
  // A shared map is let go of outside the lock, and the thread would then go on writing where the
  // reader was: no lock orders that.
  copy.detach();
  return copy;
}

void CParameterFileMotorReaderThread::addMotorName(const QString& name,
                                                   const CParamFileElement& file) {
  const std::lock_guard lock(mMutex);
  mMotorNames.insert(name, file);
}

void CParameterFileMotorReaderThread::removeMotorName(const QString& name) {
  mMotorNames.remove(name);
}

void CParameterFileMotorReaderThread::clearMotorNames() {
  const std::lock_guard lock(mMutex);
  mMotorNames.clear();
}

void CParameterFileMotorReaderThread::run() {
  mEnd.announce();
  guarded([this] { readFiles(); });
}

void CParameterFileMotorReaderThread::readFiles() {
  const QList<CParamFileElement> files = filesToRead();
  clearMotorNames();  // its lock orders what was read before
  if (files.isEmpty()) return;
  const auto paramFile = NMotorFile::create(mLogfile);
  for (const CParamFileElement& file : files) guarded([&] { readFile(*paramFile, file); });
}

QList<CParamFileElement> CParameterFileMotorReaderThread::filesToRead() const {
  if (mDeviceElement.isNull()) return mMotorParameterFiles;
  QList<CParamFileElement> files =
      mDeviceElement.parameterFiles(NktoGlobal::FILE_TYPE_MOTOR_PARAMETERS);
  for (CParamFileElement& file : files)
    if (file.projectPath().isEmpty()) file.setProjectPath(mPath);
  return files;
}

void CParameterFileMotorReaderThread::readFile(ICParameterFile& paramFile,
                                               CParamFileElement element) {
  paramFile.clear();  // of the file before
  if (!NMotorFile::load(paramFile, element.valueFile().projectFilePath())) return;
  element.setComment(paramFile.comment());
  const QStringList names = paramFile.hardwareIds();
  for (const QString& name : names) addMotorName(name, element);
}
