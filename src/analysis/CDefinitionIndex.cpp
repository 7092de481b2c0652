#include "CDefinitionIndex.h"

#include "ICParameterFile.h"

CDefinitionIndex::CDefinitionIndex(const ICParameterFile& file)
    : mFile(file), mNames(file.defNames()) {
  mNameById.reserve(mNames.size());
  for (const QString& name : mNames) {
    const quint32 id = file.paramDef(name).id();
    if (isId(id) && !mNameById.contains(id)) {
      mNameById.insert(id, name);
    }
  }
}

CParamDefItem CDefinitionIndex::find(const QString& name) const {
  return mFile.paramDef(name);
}

CParamDefItem CDefinitionIndex::find(quint32 id) const {
  const QString name = nameOf(id);
  return name.isEmpty() ? CParamDefItem() : find(name);
}

// The file itself is asked as well, since others may answer for it.
QString CDefinitionIndex::nameOf(quint32 id) const {
  if (!isId(id)) {
    return {};
  }
  const auto known = mNameById.find(id);
  return known != mNameById.end() ? *known : mFile.nameById(id);
}

const CDefinitionIndex::SRuled* CDefinitionIndex::ruled(const QString& name) {
  const auto known = mRuled.find(name);
  if (known != mRuled.end()) {
    return &known->second;
  }
  const CParamDefItem definition = find(name);
  if (definition.name().isEmpty()) {
    return nullptr;
  }
  const auto byId = [this](quint32 id) { return find(id); };
  return &mRuled.emplace(name, SRuled{definition, CValueRules(definition, byId)}).first->second;
}
