#include "CDefinitionKeys.h"

#include "CParamDefItem.h"

void CDefinitionKeys::add(CParamDefItem* definition) {
  definition->mKeys = this;
  mByName.add(definition->name(), definition);
  if (NParamDef::isRealId(definition->id())) mById.add(definition->id(), definition);
}

void CDefinitionKeys::nameChanged(CParamDefItem* definition, const QString& oldName) {
  mByName.remove(oldName, definition);
  mByName.add(definition->name(), definition);
}

void CDefinitionKeys::idChanged(CParamDefItem* definition, quint32 oldId) {
  if (NParamDef::isRealId(oldId)) mById.remove(oldId, definition);
  if (NParamDef::isRealId(definition->id())) mById.add(definition->id(), definition);
}

void CDefinitionKeys::reserve(size_t count) {
  mByName.reserve(count);
  mById.reserve(count);
}

void CDefinitionKeys::clear() {
  mByName.clear();
  mById.clear();
}
