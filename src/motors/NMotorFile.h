#pragma once

#include "CParameterFileBaseImpl.h"

#include <memory>

/// How a file of motors is read, at once or in the background.
namespace NMotorFile {

/// Quiet, since files that cannot be read are passed over in silence.
inline std::unique_ptr<ICParameterFile> create(ICLogfile* logfile) {
  auto file =
      std::make_unique<CParameterFileBaseImpl>(NktoGlobal::FILE_TYPE_MOTOR_PARAMETERS, logfile);
  file->setQuiet(true);
  return file;
}

/// Afterwards the hardware ids of the object are the motors of the file.
inline bool load(ICParameterFile& file, const QString& fileName) {
  constexpr quint32 kRevision = 0x10000;  // 1.0
  return file.loadParamFile(fileName, QString(), kRevision);
}

}  // namespace NMotorFile
