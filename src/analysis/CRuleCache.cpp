#include "CRuleCache.h"

#include "CDefinitionLookup.h"
#include "NXmlText.h"

void CRuleCache::beginSubDevice() {
  mEarlier = mRuled.size();
  mNext = 0;
}

const CRuleCache::SRuled* CRuleCache::find(std::string_view name) {
  if (mNext >= mRuled.size() || mRuled[mNext].name != name) mNext = position(name);
  return mNext < mRuled.size() ? &mRuled[mNext++] : nullptr;
}

// Only earlier sub-devices can have had the name, so that the first one needs no look-up.
size_t CRuleCache::position(std::string_view name) {
  for (; mIndexed < mEarlier; ++mIndexed) mPositions.emplace(mRuled[mIndexed].name, mIndexed);
  const auto known = mPositions.find(name);
  return known != mPositions.end() ? known->second : add(name);
}

// The position of the new one, the end for an unknown name.
size_t CRuleCache::add(std::string_view name) {
  const size_t behindAll = mRuled.size();
  const CParamDefItem definition = mDefinitions.find(NXmlText::toQString(name));
  if (!definition.name().isEmpty())
    mRuled.push_back({std::string(name), definition.id(), mDefinitions.rulesOf(definition)});
  return behindAll;
}
