#pragma once

#include "ktoParameter_export.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

class ICLogfile;
class ICParameterFile;

/// Decides what happens when a file does not match what was asked for: its version, or its
/// hardware id. An application derives from it to ask its user or to log, and installs it with
/// ICParameterFile::setErrorHandler(). Every decision is true to accept and go on, false to reject;
/// a rejection fails the load.
///
/// The decisions here log nothing and post nothing; a reason is only returned.
///
/// @snippet usage.cpp CParameterFileErrorHandler
class KTOPARAMETER_EXPORT CParameterFileErrorHandler {
  Q_DECLARE_TR_FUNCTIONS(CParameterFileErrorHandler)

 public:
  /// The logfile may be null and is not owned.
  explicit CParameterFileErrorHandler(ICLogfile* logfile);
  virtual ~CParameterFileErrorHandler();

  /// Whether one hardware id of a file is the expected one. Accepts an empty expected id and an
  /// equal one. ICParameterFile loads all ids of a file and never asks this; it asks the next.
  virtual bool handleHardwareIdError(const QString& expectedId, const QString& fileId,
                                     QString& errorMsg);
  /// Chooses among the ids of a file, which are in ascending order, at every load and import of a
  /// file of values: the one equal to hardwareId, or the first when hardwareId is empty; the choice
  /// is stored in hardwareId. Accepted with one that the file does not have, a load goes on and
  /// makes it the active one; an import fails.
  virtual bool handleHardwareIdError(QString& hardwareId, const QStringList& availableIds,
                                     QString& errorMsg);

  // Of two versions the first is the file's, empty when it has none, and the second the expected
  // one. They differ as texts; equal ones are not asked about.

  /// Accepts versions "major.minor" of the same major number, and any two of which one is not such
  /// a text.
  virtual bool handleFileVersionError(const QString& version, const QString& otherVersion);
  /// For applications; the library itself never asks. Forwards to handleFileVersionError().
  virtual bool handleDefFileVersionError(const QString& version, const QString& otherVersion);
  /// Asked for value and definition files. Forwards to handleFileVersionError().
  virtual bool handleValueFileVersionError(const QString& version, const QString& otherVersion);

  void setLogfile(ICLogfile* logfile) { mLogfile = logfile; }
  ICLogfile* logfile() const { return mLogfile; }
  /// The parameter file that this handler serves; not owned.
  void setParameterFile(ICParameterFile* file) { mParameterFile = file; }
  ICParameterFile* parameterfile() const { return mParameterFile; }

 private:
  Q_DISABLE_COPY(CParameterFileErrorHandler)

  ICLogfile* mLogfile;
  ICParameterFile* mParameterFile = nullptr;
};
