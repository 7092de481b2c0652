#include "CParameterFileModelPrivate.h"

#include "CParamValueText.h"
#include "CParameterFileModel.h"
#include "CValueRules.h"
#include "ICParamTreeNode.h"
#include "ICParameterFile.h"

void CParameterFileModelPrivate::readSubDevices() {
  std::vector<ICParamTreeNode*> nodes;
  if (file) {
    for (const quint8 id : file->subDeviceIds()) nodes.push_back(file->rootGroup(id));
  }
  index.reset(nodes);
  units.clear();
}

CParamDefItem CParameterFileModelPrivate::definitionOf(const ICParamTreeNode& node) const {
  return node.isParam() ? file->paramDef(node.name()) : CParamDefItem();
}

CParamVal CParameterFileModelPrivate::valueOf(const ICParamTreeNode& node) const {
  return node.isParam() ? file->paramValue(node.name(), node.subDevId()) : CParamVal();
}

QString CParameterFileModelPrivate::unitOf(const ICParamTreeNode& node) {
  const CParamDefItem definition = definitionOf(node);
  if (definition.unitId() == 0) return {};
  QMap<quint8, QString>& names = units[definition.unitId()];
  if (!names.contains(node.subDevId())) {
    names.insert(node.subDevId(), CParamValueText::unitName(*file, definition, node.subDevId()));
  }
  return names.value(node.subDevId());
}

QString CParameterFileModelPrivate::problem(const ICParamTreeNode& node,
                                            const CParamVal& value) const {
  const CParamDefItem definition = definitionOf(node);
  if (definition.name().isEmpty()) {
    return CParameterFileModel::tr("The parameter is not defined.");
  }
  const CValueRules rules(definition, [this](quint32 id) { return file->paramDef(id); });
  const auto violations = rules.violations(value, [this, &node](const QString& name) {
    return file->paramValue(name, node.subDevId());
  });
  for (const CValueRules::SViolation& violation : violations) {
    if (violation.kind != CValueRules::UnnamedBits) return violation.text;
  }
  return {};
}
