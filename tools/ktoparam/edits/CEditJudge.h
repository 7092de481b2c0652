#pragma once

#include "CParamValueRules.h"
#include "SParamFinding.h"

#include <map>
#include <set>
#include <utility>

/// Judges what an edit made of the active hardware id of a file.
class CEditJudge {
 public:
  /// The file before the edit, which needs no definitions, and the edited one, with the same active
  /// hardware id.
  CEditJudge(const ICParameterFile& before, ICParameterFile& after)
      : mBefore(before), mAfter(after) {}

  /// What CParameterFileChecker finds wrong with values that the edit wrote, or with others because
  /// of a limit parameter that it wrote. What was wrong before is left out.
  CParamFindings newFindings();

 private:
  bool isOfTheEdit(const SParamFinding& finding);
  const CParamValueRules& rulesOf(const QString& name);

  const ICParameterFile& mBefore;
  ICParameterFile& mAfter;
  std::map<QString, CParamValueRules> mRules;  // by name of the definition
  // The parameter that was asked for last, and what was wrong with its value before the edit.
  std::pair<int, QString> mLast;
  std::set<QString> mWrongBefore;
};
