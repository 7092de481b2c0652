#include "CDefinitionIndex.h"

#include "ICParameterFile.h"

CDefinitionIndex::CDefinitionIndex(const ICParameterFile& file)
    : mFile(file), mNames(file.defNames()) {
  mNameById.reserve(mNames.size());
  mPositions.reserve(mNames.size());
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
  if (mNext >= mRuled.size() || mRuled[mNext].name != name) {
    const auto known = mPositions.constFind(name);
    mNext = known != mPositions.cend() ? *known : addRuled(name);
  }
  return mNext < mRuled.size() ? &mRuled[mNext++] : nullptr;
}

// The position of the new one, behind all for an unknown name.
size_t CDefinitionIndex::addRuled(const QString& name) {
  const size_t position = mRuled.size();
  const CParamDefItem definition = find(name);
  if (!definition.name().isEmpty()) {
    const auto byId = [this](quint32 id) { return find(id); };
    mRuled.push_back({name, definition.id(), CValueRules(definition, byId)});
    mPositions.insert(name, position);
  }
  return position;
}
