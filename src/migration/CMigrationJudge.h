#pragma once

#include "CDefinitionLookup.h"
#include "CRuleCache.h"

class CSubDeviceTree;

/// Tells whether the definitions after a migration allow a value where those before it did. It
/// keeps their rules for all hardware ids.
class CMigrationJudge {
 public:
  CMigrationJudge(const ICParameterFile& before, const ICParameterFile& after)
      : mBefore(before), mAfter(after), mRulesBefore(mBefore), mRulesAfter(mAfter) {}

  /// Begins with the next sub-device.
  void beginSubDevice();
  /// What is wrong with a value in its tree, translated; empty when nothing is.
  QString problemAfter(std::string_view name, std::string_view value, const CSubDeviceTree& tree) {
    return problem(mRulesAfter.find(name), value, tree);
  }
  bool wasAllowed(std::string_view name, std::string_view value, const CSubDeviceTree& tree) {
    return problem(mRulesBefore.find(name), value, tree).isEmpty();
  }

 private:
  static QString problem(const CRuleCache::SRuled* ruled, std::string_view value,
                         const CSubDeviceTree& tree);

  CDefinitionLookup mBefore;
  CDefinitionLookup mAfter;
  CRuleCache mRulesBefore;
  CRuleCache mRulesAfter;
};
