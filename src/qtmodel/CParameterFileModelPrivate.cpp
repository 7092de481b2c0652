#include "CParameterFileModelPrivate.h"

#include "CParamValueRules.h"
#include "CParamValueText.h"
#include "CParameterFileModel.h"
#include "ICParamTreeNode.h"
#include "ICParameterFile.h"

void CParameterFileModelPrivate::readSubDevices() {
  std::vector<ICParamTreeNode*> nodes;
  if (file)
    for (const quint8 id : file->subDeviceIds()) nodes.push_back(file->rootGroup(id));
  index.reset(nodes);
  units.clear();
}

CParamDefItem CParameterFileModelPrivate::definitionOf(const ICParamTreeNode& node) const {
  return node.isParam() ? file->paramDef(node.name()) : CParamDefItem();
}

QString CParameterFileModelPrivate::unitOf(const ICParamTreeNode& node) {
  const CParamDefItem definition = definitionOf(node);
  if (definition.unitId() == 0) return {};
  QMap<quint8, QString>& names = units[definition.unitId()];
  if (!names.contains(node.subDevId()))
    names.insert(node.subDevId(), CParamValueText::unitName(*file, definition, node.subDevId()));
  return names.value(node.subDevId());
}

QString CParameterFileModelPrivate::problem(const ICParamTreeNode& node,
                                            const CParamVal& value) const {
  const CParamDefItem definition = definitionOf(node);
  if (definition.name().isEmpty()) return CParameterFileModel::tr("The parameter is not defined.");
  const CParamValueRules rules(definition, *file);
  for (const auto& violation : rules.violations(value, *file, node.subDevId()))
    if (!violation.isWarning()) return violation.text;
  return {};
}
