#pragma once

#include "ICParameterFile.h"

#include <memory>

namespace NAnalysisFiles {

using CFilePtr = std::unique_ptr<ICParameterFile>;

inline CFilePtr makeFile(const QString& hardwareId = QStringLiteral("A")) {
  CFilePtr file(ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
  file->addHardwareId(hardwareId);
  return file;
}

/// Adds a value, and a definition without limits when there is none.
inline void set(ICParameterFile& file, const QString& path, const QString& name,
                const QString& value, quint8 subDevId = 1) {
  if (file.paramDef(name).name().isEmpty()) {
    file.addDef(name, NParamDef::PARAM_TYPE_I32, 0);
  }
  if (!file.setParamValue(name, CParamVal(value), subDevId)) {
    file.addParameter(file.subGroup(path, subDevId), name, CParamVal(value));
  }
}

}  // namespace NAnalysisFiles
