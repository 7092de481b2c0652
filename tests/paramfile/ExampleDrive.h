#pragma once

#include "CParameterFileBaseImpl.h"
#include "KeptMessages.h"
#include "TestFiles.h"

#include <memory>

using CParameterFilePtr = std::unique_ptr<ICParameterFile>;

inline CParameterFilePtr makeFile() {
  return CParameterFilePtr(
      ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
}

/// The two-axis drive of the examples: hardware ids KTO-2A-16 (active) and KTO-2A-32, sub-devices
/// 0 to 3. Null when it does not load.
inline CParameterFilePtr loadDrive() {
  CParameterFilePtr file = makeFile();
  const bool loaded =
      file->loadParamDefFile(NTestFiles::example("TwoAxisDrive.xpdef"), 0x10000) &&
      file->loadParamFile(NTestFiles::example("TwoAxisDrive.xparam"), QString(), 0x10000);
  return loaded ? std::move(file) : nullptr;
}

/// A small device: A with the definitions Speed (u32, id 1), Mode (i8, id 2), Name (str, id 3) and
/// Loose (f64, no id); sub-device 1 with Speed in G/Inner and Mode in the root group.
inline CParameterFilePtr makeSmall() {
  CParameterFilePtr file = makeFile();
  file->addHardwareId("A");
  file->addDef("Speed", NParamDef::PARAM_TYPE_U32, 1)->setDefVal(CParamVal(10U));
  file->addDef("Mode", NParamDef::PARAM_TYPE_I8, 2)->setDefVal(CParamVal(-1));
  file->addDef("Name", NParamDef::PARAM_TYPE_STR, 3)->setDefVal(CParamVal("none"));
  file->addDef("Loose", NParamDef::PARAM_TYPE_F64, NParamDef::NO_ID)->setDefVal(CParamVal(0.5));
  file->addParameter(file->subGroup("G/Inner", 1), "Speed");
  file->addParameter(file->rootGroup(1), "Mode");
  file->clearChanged();
  return file;
}

/// A small device with a log.
struct SLoggedSmall {
  CKeptLines log;
  CParameterFileBaseImpl file{dynamic_cast<CParameterFileBaseImpl&>(*makeSmall()), &log};
};
