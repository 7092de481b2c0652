// Loading of value files; CParamValueFileElements.cpp reads and writes their elements.

#include "CParamValueFile.h"

#include "CParameterFileErrorHandler.h"
#include "ICParameterFile.h"
#include "NLumoXmlTags.h"

using namespace NLumoXmlTags;

namespace {

QStringList keysOf(const CHardwareIdTrees& trees) {
  QStringList keys;
  for (const auto& entry : trees) keys.append(entry.first);
  return keys;
}

}  // namespace

CParamValueFile::CParamValueFile(NktoGlobal::EParamFileType type, ICLogfile* logfile,
                                 CParameterFileErrorHandler* errorHandler)
    : CParamBaseFile(logfile, errorHandler), mRootTag(ICParameterFile::fileTypeToStr(type)) {
  if (mRootTag.isEmpty()) mRootTag = TAG_ROOT_PARAMETERS;
}

CParamValueFile::EResult CParamValueFile::load(const QString& fileName, const QString& version,
                                               CHardwareIdTrees& trees, CSubDeviceTypes& types,
                                               CSubDeviceNames& names, QString& hardwareId) {
  return loadAll(fileName, version, trees, hardwareId,
                 [&](const CDomElement& data, CSubDeviceTrees& subDevices) {
                   return readSubDevices(data, subDevices, types, names);
                 });
}

CParamValueFile::EResult CParamValueFile::loadAsSubDevId(
    const QString& fileName, const QString& version, quint8 subDevId, CHardwareIdTrees& trees,
    CSubDeviceTypes& types, CSubDeviceNames& names, QString& hardwareId) {
  return loadAll(fileName, version, trees, hardwareId,
                 [&](const CDomElement& data, CSubDeviceTrees& subDevices) {
                   return readFirstSubDeviceAsSubDevId(data, subDevId, subDevices, types, names);
                 });
}

CParamValueFile::EResult CParamValueFile::loadAll(const QString& fileName, const QString& version,
                                                  CHardwareIdTrees& trees, QString& hardwareId,
                                                  const CSubDeviceReader& readSubDevicesOf) {
  EResult result = openValueFile(fileName, version);
  if (result != Ok) return result;
  result = finish(fileName,
                  readAllDataFromDom(domDocument().documentElement(), trees, readSubDevicesOf));
  if (result == Ok) result = acceptHardwareId(fileName, trees, hardwareId);
  if (result == Ok) {
    logDetail(tr("Parameter file \"%1\" loaded successfully. There are parameters for %2 hardware "
                 "id(s).")
                  .arg(fileName, QString::number(trees.size())));
  }
  return result;
}

CParamValueFile::EResult CParamValueFile::load(const QString& fileName, const QString& version,
                                               QString& hardwareId, CSubDeviceTrees& trees,
                                               CSubDeviceTypes& types, CSubDeviceNames& names) {
  EResult result = openValueFile(fileName, version);
  if (result != Ok) return result;
  result =
      finish(fileName, readSingleDataFromDom(domDocument().documentElement(), hardwareId,
                                             [&](const CDomElement& data, CSubDeviceTrees&) {
                                               return readSubDevices(data, trees, types, names);
                                             }));
  if (result == Ok) {
    logDetail(tr("Parameter file \"%1\" loaded successfully. There are parameters for %2 "
                 "subdevice(s).")
                  .arg(fileName, QString::number(trees.size())));
  }
  return result;
}

CParamValueFile::EResult CParamValueFile::openValueFile(const QString& fileName,
                                                        const QString& version) {
  if (openChecked(fileName, mRootTag, version)) return Ok;
  return mVersionError ? VersionRejected : OpenFailed;
}

/// Reports what went wrong after the file was opened, and lets go of the document.
CParamValueFile::EResult CParamValueFile::finish(const QString& fileName, EResult result) {
  domDocument().clear();
  if (result != Ok) {
    prependToError(tr("File \"%1\" parse error: ").arg(fileName));
    setMessageBoardCritical(mErrorMsg);
  }
  return result;
}

CParamValueFile::EResult CParamValueFile::acceptHardwareId(const QString& fileName,
                                                           const CHardwareIdTrees& trees,
                                                           QString& hardwareId) {
  mErrorMsg.clear();
  if (errorHandler().handleHardwareIdError(hardwareId, keysOf(trees), mErrorMsg)) return Ok;
  prependToError(tr("File \"%1\" load error: ").arg(fileName));
  setMessageBoardCritical(mErrorMsg);
  return HardwareIdRejected;
}

bool CParamValueFile::save(const QString& fileName, const QString& version,
                           const CHardwareIdTrees& trees, const CSubDeviceTypes& types,
                           const CSubDeviceNames& names) {
  if (trees.empty()) return true;
  if (!idsStayApart(trees)) return false;
  createDocumentWithHead(mRootTag, version);
  for (const auto& [hardwareId, subDevices] : trees) {
    CDomElement data = domDocument().documentElement().appendElement(TAG_DATA);
    data.setAttribute(ATTR_HARDWARE_ID, hardwareId);
    for (const auto& entry : subDevices) appendSubDeviceToDom(data, entry.second, types, names);
  }
  return CXmlAbstractLumoFile::save(fileName, mErrorMsg);
}

/// Reading ignores blanks round a hardware id; of two that differ in nothing else it would find one
/// twice.
bool CParamValueFile::idsStayApart(const CHardwareIdTrees& trees) {
  std::map<QString, QString> idByTrimmed;
  for (const auto& entry : trees) {
    const auto [known, isNew] = idByTrimmed.emplace(entry.first.trimmed(), entry.first);
    if (!isNew) {
      mErrorMsg = tr("The hardware ids \"%1\" and \"%2\" differ in nothing but blanks around them.")
                      .arg(known->second, entry.first);
      return false;
    }
  }
  return true;
}

bool CParamValueFile::save(const QString& fileName, const CSubDeviceTrees& trees,
                           const CSubDeviceTypes& types, const CSubDeviceNames& names,
                           const QString& hardwareId, const QString& version) {
  createDocumentWithHead(mRootTag, version);
  CDomElement data = domElement(TAG_DATA, domDocument().documentElement());
  data.setAttribute(ATTR_HARDWARE_ID, hardwareId);
  for (const auto& entry : trees) appendSubDeviceToDom(data, entry.second, types, names);
  return CXmlAbstractLumoFile::save(fileName, mErrorMsg);
}

bool CParamValueFile::handleVersionError(const QString& version, const QString& otherVersion) {
  return handleValueFileVersionError(version, otherVersion);
}
