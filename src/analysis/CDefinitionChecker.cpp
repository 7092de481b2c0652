#include "CDefinitionChecker.h"

#include "CKeyedMap.h"

#include <set>

CDefinitionChecker::CDefinitionChecker(CDefinitionLookup& index)
    : mIndex(index), mUnits(index.find(NParamDef::UNIT_PARAMETER_NAME)) {}

CParamFindings CDefinitionChecker::run() {
  for (const QString& name : mIndex.names()) {
    const CParamDefItem definition = mIndex.find(name);
    check(definition, mIndex.rulesOf(definition));
  }
  return mFindings;
}

void CDefinitionChecker::check(const CParamDefItem& definition, const CParamValueRules& rules) {
  checkId(definition);
  const std::optional<CExactNumber> minimum = checkLimit(definition, definition.minVal());
  const std::optional<CExactNumber> maximum = checkLimit(definition, definition.maxVal());
  if (minimum && maximum && *maximum < *minimum) {
    add(SParamFinding::MinimumAboveMaximum, definition, definition.minVal().asStr(),
        tr("The minimum %1 is above the maximum %2.")
            .arg(definition.minVal().asStr(), definition.maxVal().asStr()));
  }
  checkReferences(definition);
  checkDefault(definition, rules);
  checkChoices(definition, definition.enums());
  checkChoices(definition, definition.radios());
  checkBits(definition);
  const NParamDef::SCheckValues states = definition.checkVals();
  if (states != NParamDef::SCheckValues() && !states.isValid()) {
    add(SParamFinding::CheckValuesNotValid, definition, QString::number(states.checked),
        tr("Two states of the check box have the same value."));
  }
}

void CDefinitionChecker::checkId(const CParamDefItem& definition) {
  const QString owner = mIndex.nameOf(definition.id());
  if (!owner.isEmpty() && owner != definition.name()) {
    add(SParamFinding::DefinitionIdDoubled, definition, QString::number(definition.id()),
        tr("The id %1 is already used by \"%2\".")
            .arg(QString::number(definition.id()), mIndex.shortNameOf(definition.id())));
  }
}

std::optional<CExactNumber> CDefinitionChecker::checkLimit(const CParamDefItem& definition,
                                                           const CParamVal& limit) {
  if (limit.isEmpty() || !CExactNumber::isNumberType(definition.type())) return {};
  const std::optional<CExactNumber> number = CExactNumber::of(limit, definition.type());
  if (!number || number->isNan()) {
    add(SParamFinding::LimitNotOfType, definition, limit.asStr(),
        tr("The limit \"%1\" is not a number of the type %2 that can be compared.")
            .arg(limit.asStr(), definition.typeStr()));
    return {};
  }
  return number;
}

void CDefinitionChecker::checkLimitIds(const CParamDefItem& definition, const QList<quint32>& ids) {
  for (const quint32 id : ids) {
    const CParamDefItem limit = mIndex.find(id);
    if (limit.name().isEmpty()) {
      add(SParamFinding::LimitDangling, definition, QString::number(id),
          tr("The limit parameter %1 is not defined.").arg(id));
    } else if (!CExactNumber::isNumberType(limit.type())) {
      add(SParamFinding::LimitParameterNoNumber, definition, QString::number(id),
          tr("The limit parameter \"%1\" is not a number.").arg(mIndex.shortNameOf(id)));
    }
  }
}

void CDefinitionChecker::checkReferences(const CParamDefItem& definition) {
  checkLimitIds(definition, definition.minIds());
  checkLimitIds(definition, definition.maxIds());
  const quint32 visibleId = definition.visibleId();
  if (visibleId != NParamDef::NO_ID && mIndex.nameOf(visibleId).isEmpty()) {
    add(SParamFinding::VisibilityDangling, definition, QString::number(visibleId),
        tr("The parameter %1, on which the visibility depends, is not defined.").arg(visibleId));
  }
  const quint32 unitId = definition.unitId();
  if (unitId != 0 && mIndex.nameOf(unitId).isEmpty() && mUnits.enumNameOfValue(unitId).isEmpty()) {
    add(SParamFinding::UnitDangling, definition, QString::number(unitId),
        tr("The unit %1 is not defined.").arg(unitId));
  }
}

void CDefinitionChecker::checkDefault(const CParamDefItem& definition,
                                      const CParamValueRules& rules) {
  const CParamVal value = definition.defVal();
  if (value.isEmpty()) return;
  const auto defaultOf = [this](const QString& name) { return mIndex.find(name).defVal(); };
  for (const auto& violation : rules.violations(value, defaultOf)) {
    add(static_cast<SParamFinding::ECode>(SParamFinding::DefaultNotOfType + violation.kind),
        definition, value.asStr(), tr("Default: %1").arg(violation.text));
  }
}

void CDefinitionChecker::checkChoices(const CParamDefItem& definition,
                                      const CNamedValues& choices) {
  CKeyedSet<qint64> values;
  CKeyedSet<QString> names;
  for (const NParamDef::SNamedI64Value& choice : choices) {
    const QString value = QString::number(choice.value);
    if (!values.insert(choice.value).second) {
      add(SParamFinding::ChoiceValueDoubled, definition, value,
          tr("Another choice has the value %1 of \"%2\", too.").arg(value, choice.name));
    }
    if (!names.insert(choice.name).second) {
      add(SParamFinding::ChoiceNameDoubled, definition, value,
          tr("Another choice than %1 has the name \"%2\", too.").arg(value, choice.name));
    }
    if (CExactNumber::isNumberType(definition.type()) &&
        !CExactNumber::of(CParamVal(choice.value), definition.type())) {
      add(SParamFinding::ChoiceNotOfType, definition, value,
          tr("The choice %1 is not a number of the type %2.").arg(value, definition.typeStr()));
    }
  }
}

void CDefinitionChecker::checkBits(const CParamDefItem& definition) {
  const int width = CExactNumber::widthOf(definition.type());
  std::set<int> positions;
  for (const NParamDef::SBitValue& bit : definition.bitset()) {
    const QString position = QString::number(bit.pos);
    if (!positions.insert(bit.pos).second) {
      add(SParamFinding::BitDoubled, definition, position,
          tr("The bit %1 has another name than \"%2\", too.").arg(position, bit.name));
    }
    if (bit.pos >= width) {
      add(SParamFinding::BitNotOfType, definition, position,
          tr("The type %1 has no bit %2.").arg(definition.typeStr(), position));
    }
  }
}

void CDefinitionChecker::add(SParamFinding::ECode code, const CParamDefItem& definition,
                             const QString& value, const QString& text) {
  mFindings.append({SParamFinding::severityOf(code), code, QString(), SParamFinding::kNoSubDevice,
                    QString(), definition.name(), value, text});
}
