#pragma once

#include "CKeyedMap.h"
#include "CParamValueRules.h"

#include <deque>
#include <string>

class CDefinitionLookup;

/// Caches the rules of each definition across sub-devices, which mostly list the same parameters in
/// the same order: the next one is then at hand, and only what is elsewhere is looked up by its
/// name.
class CRuleCache {
 public:
  struct SRuled {
    std::string name;  // in UTF-8
    quint32 id;
    CParamValueRules rules;
  };

  explicit CRuleCache(CDefinitionLookup& definitions) : mDefinitions(definitions) {}

  /// Begins with the next sub-device, which has each name once.
  void beginSubDevice();
  const SRuled* find(std::string_view name);  ///< null for an unknown name

 private:
  size_t position(std::string_view name);
  size_t add(std::string_view name);

  CDefinitionLookup& mDefinitions;
  std::deque<SRuled> mRuled;  // in the order in which they were asked for
  CKeyedMap<std::string_view, size_t>
      mPositions;  // of the first mIndexed, the others follow when one is looked up
  size_t mIndexed = 0;
  size_t mEarlier = 0;  // those of earlier sub-devices
  size_t mNext = 0;     // after the last one asked for
};
