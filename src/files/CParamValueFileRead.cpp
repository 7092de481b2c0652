// Reading of value files.

#include "CParamValueFile.h"
#include "CParameterFileErrorHandler.h"
#include "ICParameterFile.h"
#include "NLumoXmlTags.h"
#include "NXmlText.h"

#include <set>

using namespace NLumoXmlTags;

using EResult = CParamValueFile::EResult;

QStringList hardwareIdsOf(const CHardwareIdTrees& trees) {
  QStringList ids;
  for (const auto& entry : trees) ids.append(entry.first);
  return ids;
}

EResult CParamValueFile::load(const QString& fileName, const QString& version,
                              CHardwareIdTrees& trees, SSubDeviceLabels& labels,
                              QString& hardwareId) {
  return loadAll(fileName, version, trees, hardwareId,
                 [&](const CDomElement& data, CSubDeviceTrees& subDevices) {
                   return readSubDevices(data, subDevices, labels);
                 });
}

EResult CParamValueFile::loadAsSubDevId(const QString& fileName, const QString& version,
                                        quint8 subDevId, CHardwareIdTrees& trees,
                                        SSubDeviceLabels& labels, QString& hardwareId) {
  return loadAll(fileName, version, trees, hardwareId,
                 [&](const CDomElement& data, CSubDeviceTrees& subDevices) {
                   return readFirstSubDeviceAsSubDevId(data, subDevId, subDevices, labels);
                 });
}

EResult CParamValueFile::loadAll(const QString& fileName, const QString& version,
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

EResult CParamValueFile::load(const QString& fileName, const QString& version, QString& hardwareId,
                              CSubDeviceTrees& trees, SSubDeviceLabels& labels) {
  EResult result = openValueFile(fileName, version);
  if (result != Ok) return result;
  result = finish(fileName, readSingleDataFromDom(domDocument().documentElement(), hardwareId,
                                                  [&](const CDomElement& data, CSubDeviceTrees&) {
                                                    return readSubDevices(data, trees, labels);
                                                  }));
  if (result == Ok) {
    logDetail(tr("Parameter file \"%1\" loaded successfully. There are parameters for %2 "
                 "subdevice(s).")
                  .arg(fileName, QString::number(trees.size())));
  }
  return result;
}

EResult CParamValueFile::openValueFile(const QString& fileName, const QString& version) {
  if (openChecked(fileName, mRootTag, version)) return Ok;
  return isVersionRejected() ? VersionRejected : OpenFailed;
}

/// Reports what went wrong after the file was opened, and lets go of the document.
EResult CParamValueFile::finish(const QString& fileName, EResult result) {
  domDocument().clear();
  if (result != Ok) {
    prependToError(tr("File \"%1\" parse error: ").arg(fileName));
    setMessageBoardCritical(mErrorMsg);
  }
  return result;
}

EResult CParamValueFile::acceptHardwareId(const QString& fileName, const CHardwareIdTrees& trees,
                                          QString& hardwareId) {
  mErrorMsg.clear();
  if (errorHandler().handleHardwareIdError(hardwareId, hardwareIdsOf(trees), mErrorMsg)) return Ok;
  prependToError(tr("File \"%1\" load error: ").arg(fileName));
  setMessageBoardCritical(mErrorMsg);
  return HardwareIdRejected;
}

EResult CParamValueFile::readAllDataFromDom(const CDomElement& root, CHardwareIdTrees& trees,
                                            const CSubDeviceReader& readSubDevicesOf) {
  mErrorMsg.clear();
  CDomElement data = root.firstChildElement(TAG_DATA);
  if (data.isNull()) return failed(NoData, root, tr("There is no data section !"));
  EResult result = Ok;
  for (; result == Ok && !data.isNull(); data = data.nextSiblingElement(TAG_DATA)) {
    QString hardwareId;
    result = readHardwareId(data, hardwareId);
    if (result != Ok) return result;
    if (trees.count(hardwareId) > 0) {
      return failed(DoubledHardwareId, data,
                    tr("There are multiple data sections with hardware id %1!").arg(hardwareId));
    }
    result = readSubDevicesOf(data, trees[hardwareId]);
  }
  return result;
}

EResult CParamValueFile::readSingleDataFromDom(const CDomElement& root, QString& hardwareId,
                                               const CSubDeviceReader& readSubDevicesOf) {
  mErrorMsg.clear();
  CDomElement data = root.firstChildElement(TAG_DATA);
  if (data.isNull()) return failed(NoData, root, tr("There is no data section !"));
  for (; !data.isNull(); data = data.nextSiblingElement(TAG_DATA)) {
    QString fileId;
    const EResult result = readHardwareId(data, fileId);
    if (result != Ok) return result;
    mErrorMsg.clear();
    if (errorHandler().handleHardwareIdError(hardwareId, fileId, mErrorMsg)) {
      hardwareId = fileId;
      CSubDeviceTrees unused;
      return readSubDevicesOf(data, unused);
    }
  }
  return HardwareIdRejected;
}

EResult CParamValueFile::readHardwareId(const CDomElement& data, QString& hardwareId) {
  if (CDomDoc::fail(CDomDoc::existingAttribute(ATTR_HARDWARE_ID, data, hardwareId, mErrorMsg)))
    return failed(NoHardwareId, data);
  hardwareId = hardwareId.trimmed();
  mReadHardwareId = hardwareId;
  return Ok;
}

EResult CParamValueFile::readSubDevices(const CDomElement& data, CSubDeviceTrees& trees,
                                        SSubDeviceLabels& labels) {
  std::set<quint8> ids;
  EResult result = Ok;
  for (CDomElement element = data.firstChildElement(TAG_SUB_DEVICE);
       result == Ok && !element.isNull(); element = element.nextSiblingElement(TAG_SUB_DEVICE)) {
    quint8 id = 0;
    const CDomDoc::EResult idResult =
        CDomDoc::existingAttributeAsU8(ATTR_ID, element, id, mErrorMsg);
    if (CDomDoc::fail(idResult)) {
      result = failed(idResult == CDomDoc::Missing ? NoSubDeviceId : BadSubDeviceId, element);
    } else if (!ids.insert(id).second) {
      result = failed(DoubledSubDevice, element,
                      tr("There are multiple subdevices with subid %1!").arg(id));
    } else {
      result = readSubDevice(element, id, trees, labels);
      if (result == Ok) logDetail(tr("Parametes successfully read from sub device %1.").arg(id));
    }
  }
  // This replaces the error of a first sub-device whose id could not be read, too.
  return ids.empty()
             ? failed(NoSubDevice, data, tr("The parameter file does not contain sub devices."))
             : result;
}

EResult CParamValueFile::readFirstSubDeviceAsSubDevId(const CDomElement& data, quint8 subDevId,
                                                      CSubDeviceTrees& trees,
                                                      SSubDeviceLabels& labels) {
  const CDomElement element = data.firstChildElement(TAG_SUB_DEVICE);
  if (element.isNull())
    return failed(NoSubDevice, data, tr("The parameter file does not contain sub devices."));
  const EResult result = readSubDevice(element, subDevId, trees, labels);
  if (result == Ok) {
    logDetail(
        tr("Parametes successfully read from first sub device as subDevId %1.").arg(subDevId));
  }
  return result;
}

EResult CParamValueFile::readSubDevice(const CDomElement& element, quint8 subDevId,
                                       CSubDeviceTrees& trees, SSubDeviceLabels& labels) {
  CSubDeviceTree tree(subDevId);
  const EResult result = readGroupsAndParamsFromDom(element, tree, tree.root());
  if (result != Ok) return result;
  const auto known = trees.find(subDevId);
  if (known == trees.end())
    trees.emplace(subDevId, std::move(tree));
  else
    known->second.merge(std::move(tree));
  readTypeAndName(element, subDevId, labels);
  return Ok;
}

void CParamValueFile::readTypeAndName(const CDomElement& element, quint8 subDevId,
                                      SSubDeviceLabels& labels) {
  const CDomElement typeElement = element.firstChildElement(TAG_TYPE);
  const NParamDef::ESubDeviceTypes type = ICParameterFile::subDeviceTypeFromStr(typeElement.text());
  if (type != NParamDef::SUB_DEV_TYPE_UNDEFINED) {
    labels.types.insert(subDevId, type);
    noteGiven(SParamFinding::SubDeviceTypeReplaced, subDevId, typeElement);
  }
  const CDomElement nameElement = element.firstChildElement(TAG_NAME);
  const QString name = nameElement.text();
  if (!name.isEmpty()) {
    labels.names.insert(subDevId, name);
    noteGiven(SParamFinding::SubDeviceNameReplaced, subDevId, nameElement);
  }
}

void CParamValueFile::noteGiven(SParamFinding::ECode code, quint8 subDevId,
                                const CDomElement& given) {
  SGiven& known = mGiven[{code, subDevId}];
  const SGiven later{given.text(), given.lineNumber()};
  if (known.line > 0 && known.text != later.text) noteReplaced(code, subDevId, known, later);
  known = later;
}

/// What is replaced here is not in the file any more after the next save.
void CParamValueFile::noteReplaced(SParamFinding::ECode code, quint8 subDevId,
                                   const SGiven& earlier, const SGiven& later) {
  const QString pattern = code == SParamFinding::SubDeviceNameReplaced
                              ? tr("The name \"%1\" replaces \"%2\" of line %3: all hardware ids "
                                   "share the names of sub-devices.")
                              : tr("The type \"%1\" replaces \"%2\" of line %3: all hardware ids "
                                   "share the types of sub-devices.");
  const QString text = pattern.arg(later.text, earlier.text, QString::number(earlier.line));
  mFindings.append({SParamFinding::severityOf(code), code, mReadHardwareId, subDevId, QString(),
                    QString(), later.text, text, later.line});
  logDetail(
      tr("Line %1, sub device %2:").arg(QString::number(later.line), QString::number(subDevId)) +
      QLatin1Char(' ') + text);
}

EResult CParamValueFile::readGroupsAndParamsFromDom(const CDomElement& element,
                                                    CSubDeviceTree& tree,
                                                    CParamTreeNodeImpl* parent) {
  EResult result = Ok;
  for (CDomElement child = element.firstChildElement(); result == Ok && !child.isNull();
       child = child.nextSiblingElement()) {
    if (child.hasTag(TAG_PARAM))
      result = readParameterFromDom(child, tree, parent);
    else if (child.hasTag(TAG_GROUP))
      result = readGroupFromDom(child, tree, parent);
  }
  return result;
}

EResult CParamValueFile::readGroupFromDom(const CDomElement& element, CSubDeviceTree& tree,
                                          CParamTreeNodeImpl* parent) {
  if (!parent->isGroup()) return failed(ParentIsNoGroup, element);
  CElementText name;
  if (!readName(element, name)) return failed(NoGroupName, element);
  return readGroupsAndParamsFromDom(element, tree,
                                    tree.addGroup(parent, NXmlText::toQString(name.view())));
}

EResult CParamValueFile::readParameterFromDom(const CDomElement& element, CSubDeviceTree& tree,
                                              CParamTreeNodeImpl* parent) {
  quint32 id = 0;
  CElementText name;
  CElementText value;
  EResult result = readParameterId(element, id);
  if (result != Ok) return failed(result, element);
  if (!readName(element, name)) {
    result = NoParamName;
  } else if (CDomDoc::fail(
                 CDomDoc::existingSubElementAsUtf8(TAG_VALUE, element, value, mErrorMsg))) {
    result = NoParamValue;
  } else if (!parent->isGroup()) {
    result = ParentIsNoGroup;
  } else if (tree.addParameterUtf8(parent, name.view(), id, value.view()) == nullptr) {
    mErrorMsg = tr("A parameter with this name alrady exists !");
    result = DoubledParam;
  }
  if (result != Ok) {
    prependToError(tr("Parameter (name=%1) -> ").arg(NXmlText::toQString(name.view())));
    failed(result, element);
  }
  return result;
}

EResult CParamValueFile::readParameterId(const CDomElement& element, quint32& id) {
  const CDomDoc::EResult result = CDomDoc::existingAttributeAsU32(ATTR_ID, element, id, mErrorMsg);
  if (result == CDomDoc::Ok && id == NParamDef::NO_ID) {
    mErrorMsg =
        tr("Line %1: attribute \"%2\" of <%3> is %4, which is not an id.")
            .arg(QString::number(element.lineNumber()), ATTR_ID, TAG_PARAM, QString::number(id));
    return BadParamId;
  }
  return result == CDomDoc::Invalid ? BadParamId : Ok;
}

/// A name that marks nodes without any would make neither a group nor a parameter.
bool CParamValueFile::readName(const CDomElement& element, CElementText& name) {
  if (CDomDoc::fail(CDomDoc::existingSubElementAsUtf8(TAG_NAME, element, name, mErrorMsg)))
    return false;
  if (name.view() == CParamNodeData::kStandardConstructed) {
    return fail(tr("Line %1: the name \"%2\" is reserved.")
                    .arg(QString::number(element.lineNumber()), NXmlText::toQString(name.view())));
  }
  return true;
}

EResult CParamValueFile::failed(EResult result, const CDomElement& element) {
  mErrorLine = element.lineNumber();
  return result;
}

EResult CParamValueFile::failed(EResult result, const CDomElement& element,
                                const QString& message) {
  mErrorMsg = message;
  return failed(result, element);
}
