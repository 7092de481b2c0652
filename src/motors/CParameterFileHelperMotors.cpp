// Reading the names of motors; the services that need no parameter file stand in
// CParameterFileHelper.cpp.

#include "CDeviceElement.h"
#include "CParameterFileHelper.h"
#include "CParameterFileMotorReaderThread.h"
#include "NMotorFile.h"

#include <QPointer>

CParameterFileHelper::CParameterFileHelper(QObject* parent)
    : CParameterFileHelper(nullptr, parent) {}

CParameterFileHelper::CParameterFileHelper(ICLogfile* logfile, QObject* parent)
    : QObject(parent), mLogfile(logfile) {
  qRegisterMetaType<QMap<QString, CParamFileElement>>();
}

CParameterFileHelper::~CParameterFileHelper() = default;

QStringList CParameterFileHelper::readMotorNames(const QString& fileName, ICLogfile* logfile) {
  // A definition file's name is not turned into that of its value file: it is refused by its root
  // tag and yields no names.
  if (fileName.isEmpty()) return {};
  const auto file = NMotorFile::create(logfile);
  return NMotorFile::load(*file, fileName) ? file->hardwareIds() : QStringList();
}

QMap<QString, QString> CParameterFileHelper::readMotorNames(const QStringList& fileNames,
                                                            ICLogfile* logfile) {
  QMap<QString, QString> files;
  for (const QString& fileName : fileNames) {
    const QStringList names = readMotorNames(fileName, logfile);
    for (const QString& name : names) files.insert(name, fileName);
  }
  return files;
}

QMap<QString, QString> CParameterFileHelper::readMotorNames(const QList<CParamFileElement>& files,
                                                            ICLogfile* logfile) {
  QStringList fileNames;
  for (const CParamFileElement& file : files) fileNames += file.valueFile().projectFilePath();
  return readMotorNames(fileNames, logfile);
}

QStringList CParameterFileHelper::readMotorNames(const QString& fileName) const {
  return readMotorNames(fileName, mLogfile);
}

QMap<QString, QString> CParameterFileHelper::readMotorNames(const QStringList& fileNames) const {
  return readMotorNames(fileNames, mLogfile);
}

bool CParameterFileHelper::startReadMotorNames(const CDeviceElement& device, const QString& path) {
  if (device.isEmpty() || path.isEmpty()) return false;
  if (!mMotorReader) {
    CParameterFileMotorReaderThread& reader = createMotorReader();
    reader.setDeviceElement(device);
    reader.setPath(path);
  }
  return startMotorReader();
}

bool CParameterFileHelper::startReadMotorNames(const QList<CParamFileElement>& files) {
  if (files.isEmpty()) return false;
  if (!mMotorReader) createMotorReader().setMotorParameterFiles(files);
  return startMotorReader();
}

CParameterFileMotorReaderThread& CParameterFileHelper::createMotorReader() {
  mMotorReader = std::make_unique<CParameterFileMotorReaderThread>(nullptr);
  mMotorReader->setLogfile(mLogfile);
  connect(mMotorReader.get(), &QThread::finished, this,
          &CParameterFileHelper::onReadMotorNamesFinisched);
  return *mMotorReader;
}

bool CParameterFileHelper::startMotorReader() {
  if (mMotorReader->isRunning()) return false;
  mMotorReader->start(QThread::InheritPriority);
  return mMotorReader->isRunning() || mMotorReader->isFinished();  // neither: there is no thread
}

QMap<QString, CParamFileElement> CParameterFileHelper::motorNames() const {
  return mMotorReader ? mMotorReader->motorNames() : QMap<QString, CParamFileElement>();
}

void CParameterFileHelper::onReadMotorNamesFinisched() {
  const QPointer<CParameterFileHelper> alive(this);  // who gets the names may have no further use
  Q_EMIT readMotorNamesFinisched(motorNames());
  if (alive) Q_EMIT readMotorNamesFinisched();
}
