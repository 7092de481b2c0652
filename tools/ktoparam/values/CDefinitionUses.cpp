#include "CDefinitionUses.h"

#include "CLabels.h"
#include "ICParameterFile.h"

#include <set>

CDefinitionUses::CDefinitionUses(const ICParameterFile& file, const CLabels& labels) : mFile(file) {
  for (const QString& name : file.defNames()) {
    const CParamDefItem definition = file.paramDef(name);
    const QString label = labels.of(name);
    for (const unsigned int id : definition.minIds()) mById[id].minimumOf.append(label);
    for (const unsigned int id : definition.maxIds()) mById[id].maximumOf.append(label);
    if (definition.hasVisibleValues()) mById[definition.visibleId()].visibilityOf.append(label);
    if (definition.unitId() != 0) mById[definition.unitId()].unitOf.append(label);
  }
}

SDefinitionUse CDefinitionUses::of(const CParamDefItem& definition) const {
  const auto found = mById.find(definition.id());
  const bool isUsed = found != mById.end() && NParamDef::isRealId(definition.id());
  SDefinitionUse use = isUsed ? found->second : SDefinitionUse();
  if (definition.name() == NParamDef::UNIT_PARAMETER_NAME) use.unitOf += unitsNamedBy(definition);
  return use;
}

// The ids of units that are no definitions are values of this one's choices.
QStringList CDefinitionUses::unitsNamedBy(const CParamDefItem& units) const {
  std::set<qint64> values;
  for (const NParamDef::SNamedI64Value& each : units.enums()) values.insert(each.value);
  QStringList names;
  for (const auto& [id, use] : mById) {
    const bool isUnit = !use.unitOf.isEmpty() && values.count(id) != 0;
    if (isUnit && mFile.nameById(id).isEmpty()) names += use.unitOf;
  }
  return names;
}
