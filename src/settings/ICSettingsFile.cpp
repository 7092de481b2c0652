#include "ICSettingsFile.h"

#include "CSettingsFileImpl.h"

ICSettingsFile* ICSettingsFile::create(ICLogfile* logfile) {
  return new CSettingsFileImpl(logfile);
}

ICSettingsFile::~ICSettingsFile() = default;
