#include "CRuleCache.h"

#include "CDefinitionLookup.h"

void CRuleCache::beginSubDevice() {
  mEarlier = mRuled.size();
  mNext = 0;
}

const CRuleCache::SRuled* CRuleCache::find(const QString& name) {
  if (mNext >= mRuled.size() || mRuled[mNext].name != name) mNext = position(name);
  return mNext < mRuled.size() ? &mRuled[mNext++] : nullptr;
}

// Only earlier sub-devices can have had the name, so that the first one needs no look-up.
size_t CRuleCache::position(const QString& name) {
  for (; mIndexed < mEarlier; ++mIndexed) mPositions.emplace(mRuled[mIndexed].name, mIndexed);
  const auto known = mPositions.find(name);
  return known != mPositions.end() ? known->second : add(name);
}

// The position of the new one, behind all for an unknown name.
size_t CRuleCache::add(const QString& name) {
  const size_t behindAll = mRuled.size();
  const CParamDefItem definition = mDefinitions.find(name);
  if (!definition.name().isEmpty())
    mRuled.push_back({name, definition.id(), mDefinitions.rulesOf(definition)});
  return behindAll;
}
