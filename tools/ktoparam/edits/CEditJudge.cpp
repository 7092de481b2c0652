#include "CEditJudge.h"

#include "CParameterFileChecker.h"
#include "ICParameterFile.h"

#include <algorithm>

CParamFindings CEditJudge::newFindings() {
  CParamFindings findings = CParameterFileChecker::checkValues(mAfter, mAfter.hardwareId(),
                                                               CParameterFileChecker::SkipMissing);
  const auto isOther = [this](const SParamFinding& finding) {
    return finding.code > SParamFinding::ValueUnnamedBits || !isOfTheEdit(finding);
  };
  findings.erase(std::remove_if(findings.begin(), findings.end(), isOther), findings.end());
  return findings;
}

bool CEditJudge::isOfTheEdit(const SParamFinding& finding) {
  const auto subDevId = static_cast<quint8>(finding.subDevId);
  const CParamVal old = mBefore.paramValue(finding.name, subDevId);
  if (old.isNull() || old.asStr() != finding.value) return true;
  // The sentence tells the limit, so that it is another one when the limit changed.
  const std::pair current(finding.subDevId, finding.name);
  if (mLast != current) {
    mLast = current;
    mWrongBefore.clear();
    for (const auto& violation : rulesOf(finding.name).violations(old, mBefore, subDevId))
      mWrongBefore.insert(violation.text);
  }
  return mWrongBefore.count(finding.text) == 0;
}

const CParamValueRules& CEditJudge::rulesOf(const QString& name) {
  const auto known = mRules.find(name);
  if (known != mRules.end()) return known->second;
  return mRules.emplace(name, CParamValueRules(mAfter.paramDef(name), mAfter)).first->second;
}
