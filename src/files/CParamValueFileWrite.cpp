// Writing of value files.

#include "CParamValueFile.h"
#include "ICParameterFile.h"
#include "NLumoXmlTags.h"

#include <map>

using namespace NLumoXmlTags;

bool CParamValueFile::save(const QString& fileName, const QString& version,
                           const CHardwareIdTrees& trees, const SSubDeviceLabels& labels) {
  if (trees.empty()) return true;
  if (!idsStayApart(trees)) return false;
  createDocumentWithHead(mRootTag, version);
  for (const auto& [hardwareId, subDevices] : trees) {
    CDomElement data = domDocument().documentElement().appendElement(TAG_DATA);
    data.setAttribute(ATTR_HARDWARE_ID, hardwareId);
    for (const auto& entry : subDevices) appendSubDeviceToDom(data, entry.second, labels);
  }
  return CXmlAbstractLumoFile::save(fileName, mErrorMsg);
}

/// Reading ignores blanks around a hardware id, so two that differ only in these would be one id
/// twice.
bool CParamValueFile::idsStayApart(const CHardwareIdTrees& trees) {
  std::map<QString, QString> idByTrimmed;
  for (const auto& entry : trees) {
    const auto [known, isNew] = idByTrimmed.emplace(entry.first.trimmed(), entry.first);
    if (!isNew) {
      return fail(tr("The hardware ids \"%1\" and \"%2\" differ only in blanks around them.")
                      .arg(known->second, entry.first));
    }
  }
  return true;
}

bool CParamValueFile::save(const QString& fileName, const CSubDeviceTrees& trees,
                           const SSubDeviceLabels& labels, const QString& hardwareId,
                           const QString& version) {
  createDocumentWithHead(mRootTag, version);
  CDomElement data = domElement(TAG_DATA, domDocument().documentElement());
  data.setAttribute(ATTR_HARDWARE_ID, hardwareId);
  for (const auto& entry : trees) appendSubDeviceToDom(data, entry.second, labels);
  return CXmlAbstractLumoFile::save(fileName, mErrorMsg);
}

void CParamValueFile::appendSubDeviceToDom(CDomElement data, const CSubDeviceTree& tree,
                                           const SSubDeviceLabels& labels) {
  const quint8 id = tree.subDevId();
  CDomElement element = data.appendElement(TAG_SUB_DEVICE);
  element.setAttribute(ATTR_ID, id);
  const NParamDef::ESubDeviceTypes type = labels.types.value(id, NParamDef::SUB_DEV_TYPE_UNDEFINED);
  if (type != NParamDef::SUB_DEV_TYPE_UNDEFINED)
    element.appendElement(TAG_TYPE).setText(ICParameterFile::subDeviceTypeToStr(type));
  if (labels.names.contains(id)) element.appendElement(TAG_NAME).setText(labels.names.value(id));
  appendGroupsAndParamsToDom(element, *tree.root());
}

void CParamValueFile::appendGroupsAndParamsToDom(CDomElement element,
                                                 const CParamTreeNodeImpl& group) {
  for (int i = 0; i < group.childCount(); ++i) {
    const CParamTreeNodeImpl& child = *group.childNode(i);
    if (child.isParam())
      appendParameterToDom(element, child);
    else if (child.isGroup())
      appendGroupToDom(element, child);
  }
}

void CParamValueFile::appendGroupToDom(CDomElement element, const CParamTreeNodeImpl& group) {
  CDomElement groupElement = element.appendElement(TAG_GROUP);
  groupElement.appendElement(TAG_NAME).setTextUtf8(group.nameUtf8());
  appendGroupsAndParamsToDom(groupElement, group);
}

void CParamValueFile::appendParameterToDom(CDomElement element,
                                           const CParamTreeNodeImpl& parameter) {
  CDomElement param = element.appendElement(TAG_PARAM);
  if (parameter.id() != 0) param.setAttribute(ATTR_ID, parameter.id());
  param.appendElement(TAG_NAME).setTextUtf8(parameter.nameUtf8());
  param.appendElement(TAG_VALUE).setTextUtf8(parameter.valueUtf8());
}
