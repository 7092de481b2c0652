#pragma once

#include "CDeviceElement.h"
#include "CParamFileElement.h"
#include "CTracedMutex.h"
#include "CTracedThreadEnd.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QThread>

class ICLogfile;
class ICParameterFile;

/// Reads the names of motors, so that who asks for them need not wait. The inputs are set before
/// the thread starts; the names found may be asked for at any time.
class CParameterFileMotorReaderThread final : public QThread {
  Q_OBJECT

 public:
  explicit CParameterFileMotorReaderThread(QObject* parent);
  /// Waits until run() has ended.
  ~CParameterFileMotorReaderThread() override;

  ICLogfile* logfile() const { return mLogfile; }
  void setLogfile(ICLogfile* logfile) { mLogfile = logfile; }
  /// The prefix of an active logfile; else empty.
  QString logfilePrefix() const;

  /// The device whose motor files are read, unless it is null.
  CDeviceElement deviceElement() const { return mDeviceElement; }
  void setDeviceElement(const CDeviceElement& device) { mDeviceElement = device; }
  /// The project path of those files of the device that have none.
  QString path() const { return mPath; }
  void setPath(const QString& path) { mPath = path; }
  /// What is read when the device is null.
  QList<CParamFileElement> motorParameterFiles() const { return mMotorParameterFiles; }
  void setMotorParameterFiles(const QList<CParamFileElement>& files) {
    mMotorParameterFiles = files;
  }

  /// Motor name to the file that it was found in.
  QMap<QString, CParamFileElement> motorNames() const;
  void addMotorName(const QString& name, const CParamFileElement& file);
  /// Takes no lock: not to be called while the thread runs.
  void removeMotorName(const QString& name);

 protected:
  void run() override;

 private:
  void clearMotorNames();
  QList<CParamFileElement> filesToRead() const;
  void readFiles();
  void readFile(ICParameterFile& paramFile, CParamFileElement element);

  ICLogfile* mLogfile = nullptr;
  CDeviceElement mDeviceElement;
  QString mPath;
  QList<CParamFileElement> mMotorParameterFiles;
  QMap<QString, CParamFileElement> mMotorNames;
  mutable CTracedMutex mMutex;  // guards mMotorNames
  CTracedThreadEnd mEnd{*this};
};
