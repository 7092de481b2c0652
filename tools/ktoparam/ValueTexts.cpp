#include "ValueTexts.h"

#include "CLabels.h"
#include "DisplayText.h"
#include "ShortText.h"

namespace {

// The value that chooses among the names of a unit, from wherever it can be known.
CParamVal unitValue(const ICParameterFile& file, const CParamDefItem& unit, quint8 subDevId) {
  CParamVal value = file.paramValue(unit.name(), subDevId);
  const QList<quint8> subDevices = file.subDeviceIds();
  for (int i = 0; i < subDevices.size() && value.isNull(); ++i) {
    value = file.paramValue(unit.name(), subDevices.at(i));
  }
  return value.isNull() ? unit.defVal() : value;
}

QString checkName(const NParamDef::SCheckValues& states, qint64 number) {
  if (!states.isValid()) return {};
  if (number == states.checked) return ValueTexts::kChecked;
  if (number == states.unchecked) return ValueTexts::kUnchecked;
  return states.hasUndefined && number == states.undefined ? QString(ValueTexts::kUndefined)
                                                           : QString();
}

// All bits of the number, negative ones included.
bool bitsOf(const CParamVal& value, quint64& bits) {
  unsigned long long number = 0;
  if (!value.value(number)) {
    long long signedNumber = 0;
    if (!value.value(signedNumber)) return false;
    number = static_cast<unsigned long long>(signedNumber);
  }
  bits = number;
  return true;
}

// In decimal when it stands there in hexadecimal and that makes a difference.
QString decimal(const CParamDefItem& definition, const CParamVal& value) {
  unsigned long long number = 0;
  const bool isNumber = definition.type() != NParamDef::PARAM_TYPE_STR &&
                        definition.type() != NParamDef::PARAM_TYPE_UNDEF && value.value(number);
  const bool isHexadecimal = value.asStr().contains(QLatin1Char('x'), Qt::CaseInsensitive);
  return isNumber && isHexadecimal && number > 9 ? QString::number(number) : QString();
}

}  // namespace

QString ValueTexts::unitName(const ICParameterFile& file, const CParamDefItem& definition,
                             quint8 subDevId) {
  if (definition.unitId() == 0 || definition.unitId() == NParamDef::NO_ID) return {};
  const CParamDefItem unit = file.paramDef(definition.unitId());
  if (unit.valid()) return choiceName(unit, unitValue(file, unit, subDevId));
  return file.paramDef(NParamDef::UNIT_PARAMETER_NAME).enumNameOfValue(definition.unitId());
}

QString ValueTexts::choiceName(const CParamDefItem& definition, const CParamVal& value) {
  long long number = 0;
  if (!value.value(number)) return {};
  QString name = definition.enumNameOfValue(number);
  if (name.isEmpty()) name = definition.radioNameOfValue(number);
  return name.isEmpty() ? checkName(definition.checkVals(), number) : name;
}

std::optional<QStringList> ValueTexts::activeBits(const CParamDefItem& definition,
                                                  const CParamVal& value) {
  quint64 bits = 0;
  if (!definition.hasBitset() || !bitsOf(value, bits)) return {};
  QStringList names;
  for (const NParamDef::SBitValue& bit : definition.bitset()) {
    const bool isSet = ((bits >> bit.pos) & 1U) != 0;
    if (isSet != bit.invert) names.append(bit.name);
  }
  return names;
}

QString ValueTexts::meaning(const CParamDefItem& definition, const CParamVal& value,
                            const CLabels& labels) {
  const QString choice = choiceName(definition, value);
  const std::optional<QStringList> bits = activeBits(definition, value);
  QStringList parts;
  for (const QString& name :
       (choice.isEmpty() ? QStringList() : QStringList(choice)) + bits.value_or(QStringList())) {
    parts.append(labels.shown(name));
  }
  if (parts.isEmpty() && !bits) return decimal(definition, value);
  const QString joined = parts.join(QLatin1String(" | "));
  return joined.size() > NShortText::kLongest ? NShortText::of(joined) : joined;
}

QString ValueTexts::change(const CParamDefItem& definition, const CParamVal& oldValue,
                           const CParamVal& newValue, const CLabels& labels) {
  const QString from = meaning(definition, oldValue, labels);
  const QString to = meaning(definition, newValue, labels);
  if (from == to) return {};
  return QStringLiteral("%1 → %2").arg(from.isEmpty() ? DisplayText::shown(oldValue.asStr()) : from,
                                       to.isEmpty() ? DisplayText::shown(newValue.asStr()) : to);
}
