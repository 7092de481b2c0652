#include "CParamValueText.h"

#include "CBitNames.h"
#include "CExactNumber.h"
#include "CParamValueRules.h"
#include "ICParameterFile.h"

using namespace NParamDef;

namespace {

const QLatin1String kBetweenBits(" | ");

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

/// The number of a value that has named bits; nothing when it has none.
std::optional<CExactNumber> numberWithBits(const CParamDefItem& definition,
                                           const CParamVal& value) {
  return definition.hasBitset() ? CExactNumber::of(value, definition.type()) : std::nullopt;
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

std::optional<qint64> CParamValueText::choiceValue(const CParamDefItem& definition,
                                                   const QString& name) {
  if (name.isEmpty()) return {};
  bool isFound = false;
  qint64 value = definition.enumValueOfName(name, isFound);
  if (!isFound) value = definition.radioValueOfName(name, isFound);
  if (isFound) return value;
  for (const ELanguage language : {Translated, English}) {
    for (const SNamedI64Value& state : states(definition, language))
      if (state.name == name) return state.value;
  }
  return {};
}

std::optional<QStringList> CParamValueText::activeBits(const CParamDefItem& definition,
                                                       const CParamVal& value) {
  const std::optional<CExactNumber> number = numberWithBits(definition, value);
  return number ? std::optional(CBitNames(definition).active(*number)) : std::nullopt;
}

std::optional<QList<int>> CParamValueText::otherBits(const CParamDefItem& definition,
                                                     const CParamVal& value) {
  const std::optional<CExactNumber> number = numberWithBits(definition, value);
  return number ? std::optional(CBitNames(definition).others(*number)) : std::nullopt;
}

QStringList CParamValueText::bits(const CParamDefItem& definition, const CParamVal& value) {
  const std::optional<CExactNumber> number = numberWithBits(definition, value);
  if (!number) return {};
  const CBitNames names(definition);
  const QStringList texts = names.all(*number);
  const QString joined = texts.join(kBetweenBits);
  QString problem;
  const std::optional<CExactNumber> again = names.read(joined, problem);
  const bool isRead =
      again && !choiceValue(definition, joined) &&
      CParamValueRules::areEqual(value, again->written(definition.type()), definition);
  return isRead ? texts : QStringList();
}

quint64 CParamValueText::unnamedBits(const CParamDefItem& definition) {
  return CBitNames(definition).unnamed();
}

QString CParamValueText::shown(const CParamDefItem& definition, const CParamVal& value) {
  const QString choice = choiceName(definition, value);
  if (!choice.isEmpty()) return choice;
  const QStringList texts = bits(definition, value);
  return texts.isEmpty() ? decimal(definition, value) : texts.join(kBetweenBits);
}

QString CParamValueText::editable(const CParamDefItem& definition, const CParamVal& value) {
  const QString choice = choiceName(definition, value);
  if (!choice.isEmpty()) return choice;
  return definition.hasBitset() ? value.asStr() : decimal(definition, value);
}
