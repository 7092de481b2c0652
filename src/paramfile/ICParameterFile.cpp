// The factories; the names of file types and sub-device types are in the room of file types.

#include "ICParameterFile.h"

#include "CParameterFileImpl.h"

ICParameterFile::~ICParameterFile() = default;

ICParameterFile* ICParameterFile::create(NktoGlobal::EParamFileType type, ICLogfile* logfile) {
  return new CParameterFileImpl(type, logfile);
}

ICParameterFile* ICParameterFile::createSingle(NktoGlobal::EParamFileType type,
                                               ICLogfile* logfile) {
  return new CParameterFileBaseImpl(type, logfile);
}

ICParameterFile* ICParameterFile::createGroup(ICParameterFile* parent,
                                              NktoGlobal::EParamFileType type, ICLogfile* logfile) {
  return new CParameterFileImpl(dynamic_cast<CParameterFileImpl*>(parent), type, logfile);
}
