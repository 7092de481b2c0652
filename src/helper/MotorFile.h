#pragma once

#include "ICParameterFile.h"

#include <memory>

/// How a file of motors is read, at once or in the background.
namespace NMotorFile {

inline std::unique_ptr<ICParameterFile> create(ICLogfile* logfile) {
  return std::unique_ptr<ICParameterFile>(
      ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_MOTOR_PARAMETERS, logfile));
}

/// Afterwards the hardware ids of the object are the motors of the file.
inline bool load(ICParameterFile& file, const QString& fileName) {
  constexpr quint32 kRevision = 0x10000;  // 1.0
  return file.loadParamFile(fileName, QString(), kRevision);
}

}  // namespace NMotorFile
