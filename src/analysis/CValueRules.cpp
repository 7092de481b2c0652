#include "CValueRules.h"

namespace {

QSet<qint64> valuesOf(const QList<NParamDef::SNamedI64Value>& choices) {
  QSet<qint64> values;
  values.reserve(choices.size());
  for (const NParamDef::SNamedI64Value& choice : choices) {
    values.insert(choice.value);
  }
  return values;
}

QSet<qint64> valuesOf(const NParamDef::SCheckValues& states) {
  QSet<qint64> values{states.checked, states.unchecked};
  if (states.hasUndefined) {
    values.insert(states.undefined);
  }
  return values;
}

/// The bits of an integer type.
quint64 allBits(int width) {
  return ~0ULL >> (64 - width);
}

/// A number as it stands in the file, and in decimal when it does not stand there so.
QString shownNumber(const CParamVal& text, const CExactNumber& number) {
  const QString trimmed = text.asStr().trimmed();
  return trimmed.contains(QLatin1Char('x'), Qt::CaseInsensitive)
             ? QStringLiteral("%1 (%2)").arg(trimmed, number.decimal())
             : trimmed;
}

}  // namespace

CValueRules::CValueRules(const CParamDefItem& definition, const CDefinitionById& definitionById)
    : mType(definition.type()),
      mMinimum(limit(definition.minVal())),
      mMaximum(limit(definition.maxVal())) {
  if (!CExactNumber::isNumberType(mType)) {
    return;
  }
  mMinimumParameters = limitParameters(definition.minIds(), definitionById);
  mMaximumParameters = limitParameters(definition.maxIds(), definitionById);
  readChoices(definition);
  const int width = CExactNumber::widthOf(mType);
  if (definition.hasBitset() && width > 0) {
    mUnnamedBits = allBits(width);
    for (const NParamDef::SBitValue& bit : definition.bitset()) {
      *mUnnamedBits &= ~(1ULL << bit.pos);
    }
  }
}

CValueRules::SLimit CValueRules::limit(const CParamVal& text) const {
  const std::optional<CExactNumber> number = CExactNumber::of(text, mType);
  return number && !number->isNan() ? SLimit{text, number} : SLimit();
}

QVector<CValueRules::SLimitParameter> CValueRules::limitParameters(
    const QList<quint32>& ids, const CDefinitionById& definitionById) {
  QVector<SLimitParameter> parameters;
  for (const quint32 id : ids) {
    const CParamDefItem definition = definitionById(id);
    if (CExactNumber::isNumberType(definition.type())) {
      parameters.append({definition.name(), definition.type()});
    }
  }
  return parameters;
}

void CValueRules::readChoices(const CParamDefItem& definition) {
  if (definition.hasEnums() && !definition.isEnumEditable()) {
    mChoices.append({tr("%1 is not one of the choices."), valuesOf(definition.enums())});
  }
  if (definition.hasRadios()) {
    mChoices.append({tr("%1 is not one of the radio buttons."), valuesOf(definition.radios())});
  }
  if (definition.checkVals().isValid()) {
    mChoices.append(
        {tr("%1 is not one of the check box's states."), valuesOf(definition.checkVals())});
  }
}

bool CValueRules::hasLimits() const {
  return mMinimum.number || mMaximum.number || !mMinimumParameters.isEmpty() ||
         !mMaximumParameters.isEmpty();
}

QVector<CValueRules::SViolation> CValueRules::violations(const CParamVal& value,
                                                         const CValueByName& valueByName) const {
  if (!CExactNumber::isNumberType(mType)) {
    return {};
  }
  const std::optional<CExactNumber> number = CExactNumber::of(value, mType);
  if (!number) {
    return {{NotOfType, tr("\"%1\" is no number of the type %2.")
                            .arg(value.asStr(), CParamDefItem::typeToString(mType))}};
  }
  QVector<SViolation> found;
  if (number->isNan() && hasLimits()) {
    found.append({NotComparable, tr("%1 cannot be compared with the limits.").arg(value.asStr())});
  }
  compareWithLimits(value, *number, found);
  compareWithParameters(value, *number, valueByName, found);
  compareWithChoices(value, *number, found);
  compareWithBits(*number, found);
  return found;
}

void CValueRules::compareWithLimits(const CParamVal& value, const CExactNumber& number,
                                    QVector<SViolation>& found) const {
  if (mMinimum.number && number < *mMinimum.number) {
    found.append({BelowMinimum, tr("%1 is below the minimum %2.")
                                    .arg(shownNumber(value, number),
                                         shownNumber(mMinimum.text, *mMinimum.number))});
  }
  if (mMaximum.number && *mMaximum.number < number) {
    found.append({AboveMaximum, tr("%1 is above the maximum %2.")
                                    .arg(shownNumber(value, number),
                                         shownNumber(mMaximum.text, *mMaximum.number))});
  }
}

void CValueRules::compareWithParameters(const CParamVal& value, const CExactNumber& number,
                                        const CValueByName& valueByName,
                                        QVector<SViolation>& found) const {
  for (const SLimitParameter& parameter : mMinimumParameters) {
    const CParamVal text = valueByName(parameter.name);
    const std::optional<CExactNumber> bound = CExactNumber::of(text, parameter.type);
    if (bound && number < *bound) {
      found.append({BelowLimitParameter, tr("%1 is below %2, the value of \"%3\".")
                                             .arg(shownNumber(value, number),
                                                  shownNumber(text, *bound), parameter.name)});
    }
  }
  for (const SLimitParameter& parameter : mMaximumParameters) {
    const CParamVal text = valueByName(parameter.name);
    const std::optional<CExactNumber> bound = CExactNumber::of(text, parameter.type);
    if (bound && *bound < number) {
      found.append({AboveLimitParameter, tr("%1 is above %2, the value of \"%3\".")
                                             .arg(shownNumber(value, number),
                                                  shownNumber(text, *bound), parameter.name)});
    }
  }
}

void CValueRules::compareWithChoices(const CParamVal& value, const CExactNumber& number,
                                     QVector<SViolation>& found) const {
  const std::optional<qint64> choice = number.asI64();
  for (const SChoices& choices : mChoices) {
    if (!choice || !choices.values.contains(*choice)) {
      found.append({NotAChoice, choices.message.arg(shownNumber(value, number))});
    }
  }
}

void CValueRules::compareWithBits(const CExactNumber& number, QVector<SViolation>& found) const {
  const quint64 unnamed = mUnnamedBits ? number.bits() & *mUnnamedBits : 0;
  if (unnamed == 0) {
    return;
  }
  QStringList positions;
  for (int pos = 0; pos <= NParamDef::SBitValue::mMaxPos; ++pos) {
    if (((unnamed >> pos) & 1U) != 0) {
      positions.append(QString::number(pos));
    }
  }
  if (!positions.isEmpty()) {
    found.append(
        {UnnamedBits,
         tr("Bits are set that have no name: %1.").arg(positions.join(QLatin1String(", ")))});
  }
}
