#pragma once

#include "CDefinitionLookup.h"
#include "CExactNumber.h"
#include "SParamFinding.h"

#include <QCoreApplication>

/// Checks definitions in themselves and against each other.
class CDefinitionChecker {
  Q_DECLARE_TR_FUNCTIONS(CParameterFileChecker)

 public:
  explicit CDefinitionChecker(CDefinitionLookup& index);

  CParamFindings run();

 private:
  using CNamedValues = QList<NParamDef::SNamedI64Value>;

  void check(const CParamDefItem& definition, const CParamValueRules& rules);
  void checkId(const CParamDefItem& definition);
  /// The limit as a number, nothing when it limits nothing.
  std::optional<CExactNumber> checkLimit(const CParamDefItem& definition, const CParamVal& limit);
  void checkLimitIds(const CParamDefItem& definition, const QList<quint32>& ids);
  void checkReferences(const CParamDefItem& definition);
  void checkDefault(const CParamDefItem& definition, const CParamValueRules& rules);
  void checkChoices(const CParamDefItem& definition, const CNamedValues& choices);
  void checkBits(const CParamDefItem& definition);
  void add(SParamFinding::ECode code, const CParamDefItem& definition, const QString& value,
           const QString& text);

  CDefinitionLookup& mIndex;
  const CParamDefItem mUnits;
  CParamFindings mFindings;
};
