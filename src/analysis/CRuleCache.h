#pragma once

#include "CKeyedMap.h"
#include "CParamValueRules.h"

#include <deque>

class CDefinitionLookup;

/// The definitions of the parameters that one sub-device after another has, with their rules, which
/// are made once. Sub-devices have the same parameters in the same order: the next one is mostly at
/// hand, and only what stands elsewhere is looked up.
class CRuleCache {
 public:
  struct SRuled {
    QString name;
    quint32 id;
    CParamValueRules rules;
  };

  explicit CRuleCache(CDefinitionLookup& definitions) : mDefinitions(definitions) {}

  /// Begins with the next sub-device, which has each name once.
  void beginSubDevice();
  const SRuled* find(const QString& name);  ///< null for an unknown name

 private:
  size_t position(const QString& name);
  size_t add(const QString& name);

  CDefinitionLookup& mDefinitions;
  std::deque<SRuled> mRuled;  // in the order in which they were asked for
  CKeyedMap<QString, size_t>
      mPositions;  // of the first mIndexed, the others follow when one is looked up
  size_t mIndexed = 0;
  size_t mEarlier = 0;  // those of earlier sub-devices
  size_t mNext = 0;     // behind the last one asked for
};
