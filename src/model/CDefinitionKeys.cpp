#include "CDefinitionKeys.h"

#include "CParamDefItem.h"

void CDefinitionKeys::add(CParamDefItem* definition) {
  definition->mKeys = this;
  mByName.add(definition->name(), definition);
  if (NParamDef::isRealId(definition->id())) mById.add(definition->id(), definition);
}

void CDefinitionKeys::update(CParamDefItem* definition, const QString& oldName, quint32 oldId) {
  mByName.remove(oldName, definition);
  if (NParamDef::isRealId(oldId)) mById.remove(oldId, definition);
  add(definition);
}

void CDefinitionKeys::reserve(size_t count) {
  mByName.reserve(count);
  mById.reserve(count);
}

void CDefinitionKeys::clear() {
  mByName.clear();
  mById.clear();
}
