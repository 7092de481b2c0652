#include "CParamValueText.h"

#include "CExactNumber.h"
#include "ICParameterFile.h"

using namespace NParamDef;

namespace {

QList<SNamedI64Value> statesOf(const CParamDefItem& definition) {
  const SCheckValues values = definition.checkVals();
  QList<SNamedI64Value> states;
  if (!values.isValid()) return states;
  states.append({values.checked, CParamValueText::tr("checked")});
  states.append({values.unchecked, CParamValueText::tr("unchecked")});
  if (values.hasUndefined) states.append({values.undefined, CParamValueText::tr("undefined")});
  return states;
}

QString decimal(const CParamDefItem& definition, const CParamVal& value) {
  const std::optional<CExactNumber> number = CExactNumber::of(value, definition.type());
  const bool isInteger = CExactNumber::widthOf(definition.type()) > 0;
  return number && isInteger ? number->decimal() : value.asStr();
}

/// The bits of the type that have no name.
quint64 unnamedBits(const CParamDefItem& definition) {
  const int width = CExactNumber::widthOf(definition.type());
  quint64 bits = width > 0 ? ~0ULL >> (64 - width) : 0;
  const QList<SBitValue> named = definition.bitset();
  for (const SBitValue& bit : named) bits &= ~(1ULL << bit.pos);
  return bits;
}

/// The names of the active bits, then the bits without a name.
QString shownBits(const CParamDefItem& definition, const CParamVal& value) {
  const std::optional<CExactNumber> number = CExactNumber::of(value, definition.type());
  if (!number) return value.asStr();
  QStringList texts = CParamValueText::activeBits(definition, value);
  const quint64 unnamed = number->bits() & unnamedBits(definition);
  if (unnamed != 0) texts.append(QStringLiteral("0x%1").arg(unnamed, 0, 16));
  return texts.isEmpty() ? number->decimal() : texts.join(QLatin1String(" | "));
}

/// The value that chooses among the names of a unit.
CParamVal unitValue(const ICParameterFile& file, const CParamDefItem& unit, quint8 subDevId) {
  CParamVal value = file.paramValue(unit.name(), subDevId);
  const QList<quint8> subDevices = file.subDeviceIds();
  for (int i = 0; i < subDevices.size() && value.isNull(); ++i) {
    value = file.paramValue(unit.name(), subDevices.at(i));
  }
  return value.isNull() ? unit.defVal() : value;
}

bool valueOfName(const CParamDefItem& definition, const QString& name, qint64& value) {
  bool isFound = false;
  value = definition.enumValueOfName(name, isFound);
  if (!isFound) value = definition.radioValueOfName(name, isFound);
  if (isFound) return true;
  const QList<SNamedI64Value> states = statesOf(definition);
  for (const SNamedI64Value& state : states) {
    value = state.value;
    if (state.name == name) return true;
  }
  return false;
}

template <typename T>
bool readAs(const QString& text, CParamVal& value) {
  T number = 0;
  if (!CParamVal(text).value(number)) return false;
  value = CParamVal(number);
  return true;
}

bool readNumber(EParamType type, const QString& text, CParamVal& value) {
  double real = 0;
  switch (type) {
    case PARAM_TYPE_U8:
      return readAs<unsigned char>(text, value);
    case PARAM_TYPE_U16:
      return readAs<unsigned short>(text, value);
    case PARAM_TYPE_U32:
      return readAs<unsigned int>(text, value);
    case PARAM_TYPE_U64:
      return readAs<unsigned long long>(text, value);
    case PARAM_TYPE_I8:
      return readAs<signed char>(text, value);
    case PARAM_TYPE_I16:
      return readAs<short>(text, value);
    case PARAM_TYPE_I32:
      return readAs<int>(text, value);
    case PARAM_TYPE_I64:
      return readAs<long long>(text, value);
    case PARAM_TYPE_F64:
      if (!CParamVal(text).value(real)) return false;
      value = CParamVal(text.trimmed());  // every digit that was typed
      return true;
    default:
      value = CParamVal(text);
      return true;
  }
}

}  // namespace

QString CParamValueText::unitName(const ICParameterFile& file, const CParamDefItem& definition,
                                  quint8 subDevId) {
  if (definition.unitId() == 0 || definition.unitId() == NO_ID) return {};
  const CParamDefItem unit = file.paramDef(definition.unitId());
  if (unit.valid()) return choiceName(unit, unitValue(file, unit, subDevId));
  return file.paramDef(UNIT_PARAMETER_NAME).enumNameOfValue(definition.unitId());
}

QStringList CParamValueText::choices(const CParamDefItem& definition) {
  const QList<SNamedI64Value> all = definition.enums() + definition.radios() + statesOf(definition);
  QStringList names;
  names.reserve(all.size());
  for (const SNamedI64Value& each : all) names.append(each.name);
  return names;
}

QString CParamValueText::choiceName(const CParamDefItem& definition, const CParamVal& value) {
  long long number = 0;
  if (!value.value(number)) return {};
  QString name = definition.enumNameOfValue(number);
  if (name.isEmpty()) name = definition.radioNameOfValue(number);
  const QList<SNamedI64Value> states = statesOf(definition);
  for (int i = 0; i < states.size() && name.isEmpty(); ++i) {
    if (states.at(i).value == number) name = states.at(i).name;
  }
  return name;
}

QStringList CParamValueText::activeBits(const CParamDefItem& definition, const CParamVal& value) {
  QStringList names;
  const std::optional<CExactNumber> number = CExactNumber::of(value, definition.type());
  if (!number) return names;
  const QList<SBitValue> named = definition.bitset();
  for (const SBitValue& bit : named) {
    const bool isSet = ((number->bits() >> bit.pos) & 1U) != 0;
    if (isSet != bit.invert) names.append(bit.name);
  }
  return names;
}

QString CParamValueText::shown(const CParamDefItem& definition, const CParamVal& value) {
  const QString choice = choiceName(definition, value);
  if (!choice.isEmpty() || !definition.hasBitset()) return editable(definition, value);
  return shownBits(definition, value);
}

QString CParamValueText::editable(const CParamDefItem& definition, const CParamVal& value) {
  const QString choice = choiceName(definition, value);
  if (!choice.isEmpty()) return choice;
  return definition.hasBitset() ? value.asStr() : decimal(definition, value);
}

bool CParamValueText::read(const CParamDefItem& definition, const QString& text, CParamVal& value) {
  qint64 number = 0;
  const bool isName = valueOfName(definition, text, number);
  return readNumber(definition.type(), isName ? QString::number(number) : text, value);
}
