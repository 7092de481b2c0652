#include "ValueInput.h"

#include "Suggestion.h"
#include "Tool.h"
#include "ValueTexts.h"

#include <limits>
#include <optional>

namespace {

using NParamDef::SCheckValues;
using NParamDef::SNamedI64Value;

// Wide enough to hold every 64-bit integer and every double exactly where the machine allows it.
using CNumber = long double;

template <typename T>
bool writeAs(const QString& text, CParamVal& value) {
  T number = 0;
  if (!CParamVal(text).value(number)) return false;
  value = CParamVal(number);
  return true;
}

// A floating point number keeps its typed digits; 15 of them might not be all.
bool keepAsF64(const QString& text, CParamVal& value) {
  double number = 0;
  if (!CParamVal(text).value(number)) return false;
  value = CParamVal(text.trimmed());
  return true;
}

bool writeAsType(NParamDef::EParamType type, const QString& text, CParamVal& value) {
  switch (type) {
    case NParamDef::PARAM_TYPE_U8:
      return writeAs<unsigned char>(text, value);
    case NParamDef::PARAM_TYPE_U16:
      return writeAs<unsigned short>(text, value);
    case NParamDef::PARAM_TYPE_U32:
      return writeAs<unsigned int>(text, value);
    case NParamDef::PARAM_TYPE_U64:
      return writeAs<unsigned long long>(text, value);
    case NParamDef::PARAM_TYPE_I8:
      return writeAs<signed char>(text, value);
    case NParamDef::PARAM_TYPE_I16:
      return writeAs<short>(text, value);
    case NParamDef::PARAM_TYPE_I32:
      return writeAs<int>(text, value);
    case NParamDef::PARAM_TYPE_I64:
      return writeAs<long long>(text, value);
    case NParamDef::PARAM_TYPE_F64:
      return keepAsF64(text, value);
    default:
      value = CParamVal(text);
      return true;
  }
}

QString rangeOf(NParamDef::EParamType type) {
  const bool isUnsigned = type <= NParamDef::PARAM_TYPE_U64;
  const int bits = 8 << (type - (isUnsigned ? NParamDef::PARAM_TYPE_U8 : NParamDef::PARAM_TYPE_I8));
  const quint64 largest = std::numeric_limits<quint64>::max() >> (64 - bits + (isUnsigned ? 0 : 1));
  const QString smallest =
      isUnsigned ? QStringLiteral("0") : QStringLiteral("-%1").arg(largest + 1);
  return Tool::tr("%1 to %2").arg(smallest, QString::number(largest));
}

QString realProblem(const QString& text) {
  QString withPoint = text;
  withPoint.replace(QLatin1Char(','), QLatin1Char('.'));
  double number = 0;
  if (!CParamVal(withPoint).value(number)) return Tool::tr("\"%1\" is no number.").arg(text);
  return Tool::tr("\"%1\" is no number; decimals stand behind a point: %2.").arg(text, withPoint);
}

QString typeProblem(NParamDef::EParamType type, const QString& text) {
  if (type == NParamDef::PARAM_TYPE_F64) return realProblem(text);
  return Tool::tr("\"%1\" is no number of the type %2 (%3).")
      .arg(text, CParamDefItem::typeToString(type), rangeOf(type));
}

QList<SNamedI64Value> checkChoices(const SCheckValues& states) {
  QList<SNamedI64Value> choices;
  if (!states.isValid()) return choices;
  choices.append({states.checked, ValueTexts::kChecked});
  choices.append({states.unchecked, ValueTexts::kUnchecked});
  if (states.hasUndefined) choices.append({states.undefined, ValueTexts::kUndefined});
  return choices;
}

std::optional<qint64> valueOfName(const CParamDefItem& definition, const QString& name) {
  bool isFound = false;
  qint64 value = definition.enumValueOfName(name, isFound);
  if (!isFound) value = definition.radioValueOfName(name, isFound);
  if (isFound) return value;
  for (const SNamedI64Value& each : checkChoices(definition.checkVals())) {
    if (each.name == name) return each.value;
  }
  return {};
}

bool allowsOtherValues(const CParamDefItem& definition) {
  if (definition.hasEnums()) return definition.isEnumEditable();
  return !definition.hasRadios() && !definition.checkVals().isValid();
}

QList<SNamedI64Value> choicesOf(const CParamDefItem& definition) {
  return definition.enums() + definition.radios() + checkChoices(definition.checkVals());
}

bool isChoice(const CParamDefItem& definition, const CParamVal& value) {
  long long number = 0;
  if (!value.value(number)) return false;
  for (const SNamedI64Value& each : choicesOf(definition)) {
    if (each.value == number) return true;
  }
  return false;
}

QString typeOrChoiceProblem(const CParamDefItem& definition, const QString& text) {
  QStringList choices;
  for (const SNamedI64Value& each : choicesOf(definition)) {
    choices.append(QStringLiteral("%1 (%2)").arg(QString::number(each.value), each.name));
  }
  const QString suggestion = Suggestion::didYouMean(text, ValueInput::choiceNames(definition));
  if (allowsOtherValues(definition)) return typeProblem(definition.type(), text) + suggestion;
  return Tool::tr("\"%1\" is none of the choices.%2 They are: %3.")
      .arg(text, suggestion, Suggestion::listed(choices));
}

std::optional<CNumber> numberOf(const CParamVal& value) {
  unsigned long long positive = 0;
  long long integer = 0;
  double real = 0;
  if (value.value(positive)) return static_cast<CNumber>(positive);
  if (value.value(integer)) return static_cast<CNumber>(integer);
  if (value.value(real)) return static_cast<CNumber>(real);
  return {};
}

// Unsigned values stand in the file in hexadecimal, which few people read.
QString decimal(const CParamVal& value) {
  unsigned long long number = 0;
  return value.value(number) ? QString::number(number) : value.asStr();
}

QString limitText(const ValueInput::SLimit& limit) {
  const QString text = decimal(limit.value);
  return limit.name.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, limit.name);
}

}  // namespace

bool ValueInput::isNumber(NParamDef::EParamType type) {
  return type != NParamDef::PARAM_TYPE_UNDEF && type != NParamDef::PARAM_TYPE_STR;
}

QStringList ValueInput::choiceNames(const CParamDefItem& definition) {
  QStringList names;
  for (const SNamedI64Value& each : choicesOf(definition)) names.append(each.name);
  return names;
}

QString ValueInput::valueOf(const CParamDefItem& definition, const QString& text,
                            CParamVal& value) {
  const NParamDef::EParamType type = definition.type();
  const bool isWritten = writeAsType(type, text, value);
  if (!isNumber(type) ||
      (isWritten && (allowsOtherValues(definition) || isChoice(definition, value)))) {
    return {};
  }
  const std::optional<qint64> chosen = valueOfName(definition, text);
  if (!chosen) return typeOrChoiceProblem(definition, text);
  const QString number = QString::number(*chosen);
  return writeAsType(type, number, value) ? QString() : typeProblem(type, number);
}

QString ValueInput::rangeProblem(const CParamVal& value, const QList<SLimit>& minima,
                                 const QList<SLimit>& maxima) {
  const std::optional<CNumber> number = numberOf(value);
  if (!number) return {};
  // Written so that "nan" is outside of every limit.
  for (const SLimit& limit : minima) {
    const std::optional<CNumber> minimum = numberOf(limit.value);
    if (minimum && !(*number >= *minimum)) {
      return Tool::tr("%1 is below the minimum %2.").arg(decimal(value), limitText(limit));
    }
  }
  for (const SLimit& limit : maxima) {
    const std::optional<CNumber> maximum = numberOf(limit.value);
    if (maximum && !(*number <= *maximum)) {
      return Tool::tr("%1 is above the maximum %2.").arg(decimal(value), limitText(limit));
    }
  }
  return {};
}
