// The names of file types and sub-device types, which the file formats need.

#include "CParameterFileHelper.h"
#include "ICParameterFile.h"

const QStringList ICParameterFile::mSubDevTypeStrings{
    QStringLiteral("Undefined"), QStringLiteral("Device"), QStringLiteral("PowerSupply"),
    QStringLiteral("Drive")};

QString ICParameterFile::fileTypeToStr(NktoGlobal::EParamFileType type) {
  return CParameterFileHelper::fileTypeToStr(type);
}

NktoGlobal::EParamFileType ICParameterFile::fileTypeFromStr(const QString& text) {
  return CParameterFileHelper::fileTypeFromStr(text);
}

QString ICParameterFile::subDeviceTypeToStr(NParamDef::ESubDeviceTypes type) {
  return mSubDevTypeStrings.value(type, mSubDevTypeStrings.first());
}

NParamDef::ESubDeviceTypes ICParameterFile::subDeviceTypeFromStr(const QString& text) {
  return static_cast<NParamDef::ESubDeviceTypes>(qMax(0, mSubDevTypeStrings.indexOf(text)));
}
