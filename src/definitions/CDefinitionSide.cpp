#include "CDefinitionSide.h"

#include "CExactNumber.h"

CDefinitionSide::CDefinitionSide(const ICParameterFile& file)
    : mLookup(file), mAllUnits(mLookup.find(NParamDef::UNIT_PARAMETER_NAME)) {
  for (const QString& name : mLookup.names()) mUnitIds.insert(mLookup.find(name).unitId());
}

CDefinitionSide::SUnit CDefinitionSide::unitOf(const CParamDefItem& definition) {
  const quint32 id = definition.unitId();
  if (!NParamDef::isRealId(id)) return {};
  const QString parameter = mLookup.nameOf(id);
  if (!parameter.isEmpty()) return {parameter, {}};
  const QString name = mAllUnits.enumNameOfValue(id);
  return {{}, name.isEmpty() ? QString::number(id) : name};
}

QStringList CDefinitionSide::limitNames(const QList<quint32>& ids) {
  QStringList names;
  for (const quint32 id : ids) {
    const CParamDefItem parameter = mLookup.find(id);
    if (CExactNumber::isNumberType(parameter.type())) names.append(parameter.name());
  }
  names.sort();
  names.removeDuplicates();
  return names;
}

QString CDefinitionSide::visibleName(const CParamDefItem& definition) {
  const quint32 id = definition.visibleId();
  if (id == NParamDef::NO_ID) return {};
  const QString name = mLookup.nameOf(id);
  return name.isEmpty() ? QString::number(id) : name;
}
