// Access to definitions and values.

#include "CParameterFileBaseImpl.h"
#include "CParameterFileHelper.h"

CParamDefItem CParameterFileBaseImpl::paramDef(const QString& name) const {
  const CParamDefItem* definition = mDefinitions.find(name);
  return definition != nullptr ? *definition : CParamDefItem();
}

QString CParameterFileBaseImpl::ownNameById(quint32 id) const {
  const CParamDefItem* definition = mDefinitions.findById(id);
  return definition != nullptr ? definition->name() : QString();
}

CParamVal CParameterFileBaseImpl::ownParamValue(const QString& hardwareId, const QString& name,
                                                quint8 subDevId) const {
  const CSubDeviceTree* tree = treeOf(hardwareId, subDevId);
  return tree != nullptr ? tree->value(name) : CParamVal();
}

quint32 CParameterFileBaseImpl::idByName(const QString& name) const {
  const CParamDefItem definition = paramDef(name);
  if (definition.name().isEmpty()) {
    setErrorMsg(tr("There is no parameter defined with name \"%1\".").arg(name),
                tr("Parameter file idByName() failed"));
  }
  return definition.id();
}

QString CParameterFileBaseImpl::nameById(quint32 id) const {
  const QString name = ownNameById(id);
  if (name.isEmpty()) {
    setErrorMsg(tr("There is no parameter defined with id %1.").arg(id),
                tr("Parameter file nameById() failed"));
  }
  return name;
}

QStringList CParameterFileBaseImpl::paramNames(const QString& hardwareId, quint8 subDevId) const {
  const CSubDeviceTree* tree = treeOf(hardwareId, subDevId);
  return tree != nullptr ? tree->names() : QStringList();
}

CParamDefItem* CParameterFileBaseImpl::paramDefPtr(const QString& name) {
  CParamDefItem* definition = mDefinitions.findForEdit(name);
  if (definition == nullptr) {
    setErrorMsg(tr("There is no parameter defined with name %1.").arg(name),
                tr("Parameter file paramDefPtr() failed"));
  }
  return definition;
}

CParamVal CParameterFileBaseImpl::paramValue(const QString& name, quint8 subDevId) const {
  return ownParamValue(name, subDevId);
}

CParamVal CParameterFileBaseImpl::paramValue(const QString& hardwareId, const QString& name,
                                             quint8 subDevId) const {
  return ownParamValue(hardwareId, name, subDevId);
}

// By an id that no definition has, nothing is found: not even what has an empty name.

CParamDefItem CParameterFileBaseImpl::paramDef(quint32 id) const {
  const QString name = nameById(id);
  return name.isEmpty() ? CParamDefItem() : paramDef(name);
}

CParamVal CParameterFileBaseImpl::paramValue(quint32 id, quint8 subDevId) const {
  const QString name = nameById(id);
  return name.isEmpty() ? CParamVal() : paramValue(name, subDevId);
}

bool CParameterFileBaseImpl::isReferenced(const QString& name) const {
  const quint32 id = paramDef(name).id();
  return NParamDef::isRealId(id) && isReferenced(id);
}

QList<quint32> CParameterFileBaseImpl::referencedBy(const QString& name) const {
  const quint32 id = paramDef(name).id();
  return NParamDef::isRealId(id) ? referencedBy(id) : QList<quint32>();
}

bool CParameterFileBaseImpl::setParamValue(const QString& hardwareId, const QString& name,
                                           const CParamVal& value, quint8 subDevId) {
  CSubDeviceTree* tree = treeOf(hardwareId, subDevId);
  if (tree == nullptr) {
    return setErrorMsg(tr("setParamValue() failed because there is no parameter list for hardware "
                          "id \"%1\" and sub device %2")
                           .arg(hardwareId, QString::number(subDevId)));
  }
  if (!tree->setValue(name, value)) {
    return setErrorMsg(tr("setParamValue() failed because there is no parameter value for sub "
                          "device %1 and name \"%2\"")
                           .arg(QString::number(subDevId), name));
  }
  setHwIdChanged(hardwareId);
  return true;
}

bool CParameterFileBaseImpl::setParamValue(quint32 id, const CParamVal& value, quint8 subDevId) {
  const QString name = nameById(id);
  return !name.isEmpty() && setParamValue(name, value, subDevId);
}

bool CParameterFileBaseImpl::setAndMarkParamValue(const QString& hardwareId, const QString& name,
                                                  const CParamVal& value, quint8 subDevId) {
  CSubDeviceTree* tree = treeOf(hardwareId, subDevId);
  CParamTreeNodeImpl* parameter = tree != nullptr ? tree->node(name) : nullptr;
  if (parameter == nullptr) return false;
  if (CParameterFileHelper::compareValues(parameter->value(), value, paramDef(name))) return true;
  parameter->setValue(value);
  parameter->setProperty(NParamDef::PROPERTY_CHANGED, true);
  setHwIdChanged(hardwareId);
  return true;
}

bool CParameterFileBaseImpl::setAndMarkParamValue(quint32 id, const CParamVal& value,
                                                  quint8 subDevId) {
  const QString name = nameById(id);
  return !name.isEmpty() && setAndMarkParamValue(name, value, subDevId);
}

CParamDefItem* CParameterFileBaseImpl::addDef(const CParamDefItem& definition) {
  return checkNewDefinition(definition) ? mDefinitions.add(definition) : nullptr;
}

CParamDefItem* CParameterFileBaseImpl::addDef(const QString& name, NParamDef::EParamType type,
                                              quint32 id) {
  return addDef(CParamDefItem(name, type, id));
}

bool CParameterFileBaseImpl::checkNewDefinition(const CParamDefItem& definition) const {
  const QString name = definition.name();
  const QString context = tr("Parameter file addDef() failed");
  if (name.isEmpty()) return setErrorMsg(tr("A parameter definition needs a name."), context);
  if (isReservedName(name)) return setErrorMsg(reservedNameMessage(name), context);
  if (mDefinitions.find(name) != nullptr) {
    return setErrorMsg(tr("There is already a parameter defined with name \"%1\".").arg(name),
                       context);
  }
  const CParamDefItem* owner = mDefinitions.findById(definition.id());
  if (owner != nullptr) {
    return setErrorMsg(tr("Parameter \"%1\" cannot have the id %2, which belongs to parameter "
                          "\"%3\".")
                           .arg(name, QString::number(definition.id()), owner->name()),
                       context);
  }
  return true;
}

QStringList CParameterFileBaseImpl::defNames() const {
  const QVector<const CParamDefItem*> definitions = mDefinitions.sorted();
  QStringList names;
  names.reserve(definitions.size());
  for (const CParamDefItem* definition : definitions) names.append(definition->name());
  return names;
}
