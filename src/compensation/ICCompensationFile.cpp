#include "ICCompensationFile.h"

#include "CCompensationFileImpl.h"

ICCompensationFile* ICCompensationFile::create(ICLogfile* logfile) {
  return new CCompensationFileImpl(logfile);
}

ICCompensationFile::~ICCompensationFile() = default;
