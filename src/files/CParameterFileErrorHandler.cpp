#include "CParameterFileErrorHandler.h"

#include "CStr.h"

CParameterFileErrorHandler::CParameterFileErrorHandler(ICLogfile* logfile) : mLogfile(logfile) {}

CParameterFileErrorHandler::~CParameterFileErrorHandler() = default;

bool CParameterFileErrorHandler::handleHardwareIdError(const QString& expectedId,
                                                       const QString& fileId, QString& errorMsg) {
  if (expectedId.isEmpty() || fileId == expectedId) return true;
  errorMsg = tr("Hardware id '%1' is wrong. Expected was '%2'.").arg(fileId, expectedId);
  return false;
}

bool CParameterFileErrorHandler::handleHardwareIdError(QString& hardwareId,
                                                       const QStringList& availableIds,
                                                       QString& errorMsg) {
  for (const QString& candidate : availableIds) {
    if (hardwareId.isEmpty() || hardwareId == candidate) {
      hardwareId = candidate;
      return true;
    }
  }
  errorMsg = tr("There is no matching hardware id for '%1'.").arg(hardwareId);
  return false;
}

bool CParameterFileErrorHandler::handleFileVersionError(const QString& version,
                                                        const QString& otherVersion) {
  return CStr::haveSameMainNumber(version, otherVersion).value_or(true);
}

bool CParameterFileErrorHandler::handleDefFileVersionError(const QString& version,
                                                           const QString& otherVersion) {
  return handleFileVersionError(version, otherVersion);
}

bool CParameterFileErrorHandler::handleValueFileVersionError(const QString& version,
                                                             const QString& otherVersion) {
  return handleFileVersionError(version, otherVersion);
}
