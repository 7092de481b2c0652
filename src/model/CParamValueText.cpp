#include "CParamValueText.h"

#include "CExactNumber.h"
#include "ICParameterFile.h"

using namespace NParamDef;

namespace {

/// The number by which a value is looked for among the choices.
std::optional<qint64> choiceNumber(const CParamDefItem& definition, const CParamVal& value) {
  if (CExactNumber::isNumberType(definition.type())) {
    const std::optional<CExactNumber> number = CExactNumber::of(value, definition.type());
    return number ? number->asI64() : std::nullopt;
  }
  long long number = 0;
  return value.value(number) ? std::optional<qint64>(number) : std::nullopt;
}

QString decimal(const CParamDefItem& definition, const CParamVal& value) {
  const std::optional<CExactNumber> number = CExactNumber::of(value, definition.type());
  const bool isInteger = CExactNumber::widthOf(definition.type()) > 0;
  return number && isInteger ? number->decimal() : value.asStr();
}

/// The value that chooses among the names of a unit.
CParamVal unitValue(const ICParameterFile& file, const CParamDefItem& unit, quint8 subDevId) {
  CParamVal value = file.paramValue(unit.name(), subDevId);
  const QList<quint8> subDevices = file.subDeviceIds();
  for (int i = 0; i < subDevices.size() && value.isNull(); ++i)
    value = file.paramValue(unit.name(), subDevices.at(i));
  return value.isNull() ? unit.defVal() : value;
}

}  // namespace

QString CParamValueText::unitName(const ICParameterFile& file, const CParamDefItem& definition,
                                  quint8 subDevId) {
  if (definition.unitId() == 0 || definition.unitId() == NO_ID) return {};
  const CParamDefItem unit = file.paramDef(definition.unitId());
  if (unit.valid()) return choiceName(unit, unitValue(file, unit, subDevId));
  return file.paramDef(UNIT_PARAMETER_NAME).enumNameOfValue(definition.unitId());
}

QList<SNamedI64Value> CParamValueText::choices(const CParamDefItem& definition,
                                               ELanguage language) {
  return definition.enums() + definition.radios() + states(definition, language);
}

QList<SNamedI64Value> CParamValueText::states(const CParamDefItem& definition, ELanguage language) {
  const SCheckValues values = definition.checkVals();
  if (!values.isValid()) return {};
  const auto name = [language](const char* english) {
    return language == English ? QString::fromLatin1(english) : tr(english);
  };
  QList<SNamedI64Value> states = {
      {values.checked, name(QT_TRANSLATE_NOOP("CParamValueText", "checked"))},
      {values.unchecked, name(QT_TRANSLATE_NOOP("CParamValueText", "unchecked"))}};
  if (values.hasUndefined)
    states.append({values.undefined, name(QT_TRANSLATE_NOOP("CParamValueText", "undefined"))});
  return states;
}

QString CParamValueText::choiceName(const CParamDefItem& definition, const CParamVal& value,
                                    ELanguage language) {
  const std::optional<qint64> number = choiceNumber(definition, value);
  if (!number) return {};
  QString name = definition.enumNameOfValue(*number);
  if (name.isEmpty()) name = definition.radioNameOfValue(*number);
  const QList<SNamedI64Value> all = states(definition, language);
  for (int i = 0; i < all.size() && name.isEmpty(); ++i)
    name = all.at(i).value == *number ? all.at(i).name : QString();
  return name;
}

std::optional<QStringList> CParamValueText::activeBits(const CParamDefItem& definition,
                                                       const CParamVal& value) {
  const QList<SBitValue> named = definition.bitset();
  const std::optional<CExactNumber> number = CExactNumber::of(value, definition.type());
  if (named.isEmpty() || !number) return {};
  QStringList names;
  for (const SBitValue& bit : named) {
    const bool isSet = ((number->bits() >> bit.pos) & 1U) != 0;
    if (isSet != bit.invert) names.append(bit.name);
  }
  return names;
}

quint64 CParamValueText::unnamedBits(const CParamDefItem& definition) {
  const QList<SBitValue> named = definition.bitset();
  quint64 bits = named.isEmpty() ? 0 : CExactNumber::allBits(definition.type());
  for (const SBitValue& bit : named) bits &= ~(1ULL << bit.pos);
  return bits;
}

QString CParamValueText::shown(const CParamDefItem& definition, const CParamVal& value) {
  const QString choice = choiceName(definition, value);
  const std::optional<QStringList> bits = activeBits(definition, value);
  if (!choice.isEmpty() || !bits) return editable(definition, value);
  const std::optional<CExactNumber> number = CExactNumber::of(value, definition.type());
  const quint64 unnamed = number->bits() & unnamedBits(definition);
  const QStringList rest =
      unnamed != 0 ? QStringList(QStringLiteral("0x%1").arg(unnamed, 0, 16)) : QStringList();
  const QStringList texts = *bits + rest;
  return texts.isEmpty() ? number->decimal() : texts.join(QLatin1String(" | "));
}

QString CParamValueText::editable(const CParamDefItem& definition, const CParamVal& value) {
  const QString choice = choiceName(definition, value);
  if (!choice.isEmpty()) return choice;
  return definition.hasBitset() ? value.asStr() : decimal(definition, value);
}
