#include "ICSimpleParamReader.h"

#include "CSimpleParamReaderImpl.h"

ICSimpleParamReader* ICSimpleParamReader::create(NktoGlobal::EParamFileType fileType,
                                                 const QString& hardwareId,
                                                 NParamDef::EAccessRight access, ICLogfile* logfile,
                                                 unsigned int paramDefFileVersion,
                                                 unsigned int paramFileVersion) {
  return new CSimpleParamReaderImpl(true, fileType, hardwareId, access, logfile,
                                    paramDefFileVersion, paramFileVersion);
}

ICSimpleParamReader* ICSimpleParamReader::createSingle(
    NktoGlobal::EParamFileType fileType, const QString& hardwareId, NParamDef::EAccessRight access,
    ICLogfile* logfile, unsigned int paramDefFileVersion, unsigned int paramFileVersion) {
  return new CSimpleParamReaderImpl(false, fileType, hardwareId, access, logfile,
                                    paramDefFileVersion, paramFileVersion);
}

ICSimpleParamReader::~ICSimpleParamReader() = default;
