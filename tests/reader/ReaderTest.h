#pragma once

#include "CKeptLines.h"
#include "ICParameterFile.h"
#include "ICSimpleParamReader.h"
#include "KeptMessages.h"

#include <memory>

inline std::unique_ptr<ICSimpleParamReader> makeReader(NParamDef::EAccessRight access,
                                                       const QString& hardwareId = "HW",
                                                       ICLogfile* logfile = nullptr) {
  return std::unique_ptr<ICSimpleParamReader>(ICSimpleParamReader::createSingle(
      NktoGlobal::FILE_TYPE_PARAMETERS, hardwareId, access, logfile, 0x10000, 0x10000));
}
