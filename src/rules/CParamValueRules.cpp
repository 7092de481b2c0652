#include "CParamValueRules.h"

#include "CBitNames.h"
#include "CExactNumber.h"
#include "CKeyedMap.h"
#include "CParamValueText.h"
#include "CUtf8Text.h"
#include "ICParameterFile.h"

#include <optional>

using namespace NParamDef;

namespace {

using Rules = CParamValueRules;
using CViolations = QVector<Rules::SViolation>;

/// The lists that name values, as bits.
using CLists = unsigned int;
constexpr CLists kEnumeration = 1;
constexpr CLists kRadios = 2;
constexpr CLists kStates = 4;

struct SBound {
  CParamVal text;
  std::optional<CExactNumber> number;  // nothing when it limits nothing
};

/// The definition's own limit, or that of a parameter, whose value is asked for each time.
struct SLimit {
  QString parameter;  // empty for the definition's own
  EParamType type;
  SBound own;

  SBound bound(const Rules::CValueByName& valueByName) const {
    if (parameter.isEmpty()) return own;
    const CParamVal text = valueByName(parameter);
    return {text, CExactNumber::of(text, type)};
  }
};

/// A number as written in the file, and in decimal when the file has it in hexadecimal.
QString shownNumber(const CParamVal& text, const CExactNumber& number) {
  const QString trimmed = text.asStr().trimmed();
  return trimmed.contains(QLatin1Char('x'), Qt::CaseInsensitive)
             ? QStringLiteral("%1 (%2)").arg(trimmed, number.decimal())
             : trimmed;
}

QString rangeOf(EParamType type) {
  const bool isUnsigned = CExactNumber::isUnsigned(type);
  const quint64 largest = CExactNumber::allBits(type) >> (isUnsigned ? 0 : 1);
  const QString smallest =
      isUnsigned ? QStringLiteral("0") : QStringLiteral("-%1").arg(largest + 1);
  return CParamValueRules::tr("%1 to %2").arg(smallest, QString::number(largest));
}

QString noRealProblem(const QString& text) {
  QString withPoint = text;
  withPoint.replace(QLatin1Char(','), QLatin1Char('.'));
  return CExactNumber::of(withPoint, PARAM_TYPE_F64)
             ? CParamValueRules::tr("\"%1\" is not a number; write decimals after a point: %2.")
                   .arg(text, withPoint)
             : CParamValueRules::tr("\"%1\" is not a number of the type %2.")
                   .arg(text, CParamDefItem::typeToString(PARAM_TYPE_F64));
}

QString noNumberProblem(const QString& text, EParamType type) {
  return type == PARAM_TYPE_F64
             ? noRealProblem(text)
             : CParamValueRules::tr("\"%1\" is not a number of the type %2 (%3).")
                   .arg(text, CParamDefItem::typeToString(type), rangeOf(type));
}

QString notInListProblem(CLists list, const QString& value) {
  switch (list) {
    case kEnumeration:
      return CParamValueRules::tr("%1 is not one of the choices.").arg(value);
    case kRadios:
      return CParamValueRules::tr("%1 is not one of the radio buttons.").arg(value);
    default:
      return CParamValueRules::tr("%1 is not one of the check box's states.").arg(value);
  }
}

Rules::SViolation below(const QString& value, const SLimit& limit, const SBound& bound) {
  const QString minimum = shownNumber(bound.text, *bound.number);
  if (limit.parameter.isEmpty()) {
    return {Rules::BelowMinimum,
            CParamValueRules::tr("%1 is below the minimum %2.").arg(value, minimum)};
  }
  return {Rules::BelowLimitParameter, CParamValueRules::tr("%1 is below %2, the value of \"%3\".")
                                          .arg(value, minimum, limit.parameter)};
}

Rules::SViolation above(const QString& value, const SLimit& limit, const SBound& bound) {
  const QString maximum = shownNumber(bound.text, *bound.number);
  if (limit.parameter.isEmpty()) {
    return {Rules::AboveMaximum,
            CParamValueRules::tr("%1 is above the maximum %2.").arg(value, maximum)};
  }
  return {Rules::AboveLimitParameter, CParamValueRules::tr("%1 is above %2, the value of \"%3\".")
                                          .arg(value, maximum, limit.parameter)};
}

CLists first(CLists lists) {
  return lists & ~(lists - 1);
}

}  // namespace

class CParamValueRulesData : public QSharedData {
 public:
  CParamValueRulesData(const CParamDefItem& item, const Rules::CDefinitionById& definitionById);

  /// The first of the lists in which a number has to be; 0 when there is none.
  CLists firstBinding() const { return first(mBinding); }
  CViolations violations(std::string_view value, const Rules::CValueByName& valueByName) const;

  const CParamDefItem definition;
  const EParamType type;
  const CBitNames bits;

 private:
  void addLimits(const CParamVal& own, const QList<quint32>& ids,
                 const Rules::CDefinitionById& definitionById, QVector<SLimit>& limits) const;
  void addChoices(CLists list, const QList<SNamedI64Value>& choices, bool isBinding);
  CLists listsOf(const CExactNumber& number) const;
  void compareWithLimits(std::string_view value, const CExactNumber& number,
                         const Rules::CValueByName& valueByName, CViolations& found) const;
  void compareWithChoices(std::string_view value, const CExactNumber& number, CLists lists,
                          CViolations& found) const;
  void compareWithBits(const CExactNumber& number, CViolations& found) const;

  QVector<SLimit> mMinima;
  QVector<SLimit> mMaxima;
  CKeyedMap<qint64, CLists> mLists;  // the lists that name a number
  CLists mBinding = 0;               // the lists in which a number has to be
};

CParamValueRulesData::CParamValueRulesData(const CParamDefItem& item,
                                           const Rules::CDefinitionById& definitionById)
    : definition(item), type(item.type()), bits(item) {
  if (!CExactNumber::isNumberType(type)) return;
  addLimits(item.minVal(), item.minIds(), definitionById, mMinima);
  addLimits(item.maxVal(), item.maxIds(), definitionById, mMaxima);
  addChoices(kEnumeration, item.enums(), !item.isEnumEditable());
  addChoices(kRadios, item.radios(), true);
  addChoices(kStates, CParamValueText::states(item), true);
}

void CParamValueRulesData::addLimits(const CParamVal& own, const QList<quint32>& ids,
                                     const Rules::CDefinitionById& definitionById,
                                     QVector<SLimit>& limits) const {
  const std::optional<CExactNumber> number = CExactNumber::of(own, type);
  if (number && !number->isNan()) limits.append({{}, type, {own, number}});
  for (const quint32 id : ids) {
    const CParamDefItem parameter = definitionById(id);
    if (CExactNumber::isNumberType(parameter.type()))
      limits.append({parameter.name(), parameter.type(), {}});
  }
}

void CParamValueRulesData::addChoices(CLists list, const QList<SNamedI64Value>& choices,
                                      bool isBinding) {
  for (const SNamedI64Value& choice : choices) mLists[choice.value] |= list;
  if (isBinding && !choices.isEmpty()) mBinding |= list;
}

CLists CParamValueRulesData::listsOf(const CExactNumber& number) const {
  const std::optional<qint64> choice = number.asI64();
  const auto lists = choice ? mLists.find(*choice) : mLists.end();
  return lists != mLists.end() ? lists->second : 0;
}

CViolations CParamValueRulesData::violations(std::string_view value,
                                             const Rules::CValueByName& valueByName) const {
  if (!CExactNumber::isNumberType(type)) return {};
  const std::optional<CExactNumber> number = CExactNumber::of(value, type);
  if (!number) return {{Rules::NotOfType, noNumberProblem(NXmlText::toQString(value), type)}};
  CViolations found;
  const CLists lists = listsOf(*number);
  if (lists == 0) compareWithLimits(value, *number, valueByName, found);
  compareWithChoices(value, *number, lists, found);
  compareWithBits(*number, found);
  return found;
}

void CParamValueRulesData::compareWithLimits(std::string_view value, const CExactNumber& number,
                                             const Rules::CValueByName& valueByName,
                                             CViolations& found) const {
  if (number.isNan() && !(mMinima.isEmpty() && mMaxima.isEmpty())) {
    found.append(
        {Rules::NotComparable, CParamValueRules::tr("%1 cannot be compared with the limits.")
                                   .arg(NXmlText::toQString(value))});
  }
  for (const SLimit& limit : mMinima) {
    const SBound bound = limit.bound(valueByName);
    if (bound.number && number < *bound.number)
      found.append(below(shownNumber(NXmlText::toQString(value), number), limit, bound));
  }
  for (const SLimit& limit : mMaxima) {
    const SBound bound = limit.bound(valueByName);
    if (bound.number && *bound.number < number)
      found.append(above(shownNumber(NXmlText::toQString(value), number), limit, bound));
  }
}

void CParamValueRulesData::compareWithChoices(std::string_view value, const CExactNumber& number,
                                              CLists lists, CViolations& found) const {
  for (CLists missing = mBinding & ~lists; missing != 0; missing &= missing - 1)
    found.append(
        {Rules::NotAChoice,
         notInListProblem(first(missing), shownNumber(NXmlText::toQString(value), number))});
}

void CParamValueRulesData::compareWithBits(const CExactNumber& number, CViolations& found) const {
  QStringList positions;
  for (const int position : bits.others(number)) positions.append(QString::number(position));
  if (!positions.isEmpty()) {
    found.append({Rules::UnnamedBits, CParamValueRules::tr("Bits are set that have no name: %1.")
                                          .arg(positions.join(QLatin1String(", ")))});
  }
}

CParamValueRules::CParamValueRules(const CParamDefItem& definition,
                                   const CDefinitionById& definitionById)
    : d(new CParamValueRulesData(definition, definitionById)) {}

CParamValueRules::CParamValueRules(const CParamDefItem& definition, const ICParameterFile& file)
    : CParamValueRules(definition, [&file](quint32 id) { return file.paramDef(id); }) {}

CParamValueRules::CParamValueRules(const CParamValueRules& other) = default;
CParamValueRules& CParamValueRules::operator=(const CParamValueRules& other) = default;
CParamValueRules::~CParamValueRules() = default;

bool CParamValueRules::read(const QString& text, CParamVal& value, QString& problem) const {
  const std::optional<qint64> chosen = CParamValueText::choiceValue(d->definition, text);
  const QString written = chosen ? QString::number(*chosen) : text;
  if (!CExactNumber::isNumberType(d->type)) {
    value = CParamVal(written);
    return true;
  }
  QString bitProblem;
  const bool mayBeBits = !chosen && !d->bits.isEmpty();
  const auto bits = mayBeBits ? d->bits.read(text, bitProblem) : std::optional<CExactNumber>();
  const auto number = bits ? bits : CExactNumber::of(written, d->type);
  if (number) {
    const bool isAsTyped = d->type == PARAM_TYPE_F64 && !bits;
    value = isAsTyped ? CParamVal(written.trimmed()) : number->written(d->type);
    return true;
  }
  const CLists list = d->firstBinding();
  if (list != 0 && !chosen)
    problem = notInListProblem(list, QStringLiteral("\"%1\"").arg(text));
  else
    problem = bitProblem.isEmpty() ? noNumberProblem(written, d->type) : bitProblem;
  return false;
}

CViolations CParamValueRules::violations(const CParamVal& value,
                                         const CValueByName& valueByName) const {
  return violationsOfUtf8(CUtf8Text(value.asStr()).view(), valueByName);
}

CViolations CParamValueRules::violationsOfUtf8(std::string_view value,
                                               const CValueByName& valueByName) const {
  return d->violations(value, valueByName);
}

CViolations CParamValueRules::violations(const CParamVal& value, const ICParameterFile& file,
                                         quint8 subDevId) const {
  return violations(
      value, [&file, subDevId](const QString& name) { return file.paramValue(name, subDevId); });
}

bool CParamValueRules::allowsOtherValues() const {
  return d->firstBinding() == 0;
}

bool CParamValueRules::areEqual(const CParamVal& a, const CParamVal& b,
                                const CParamDefItem& definition) {
  if (a == b) return true;
  const std::optional<CExactNumber> x = CExactNumber::of(a, definition.type());
  const std::optional<CExactNumber> y = CExactNumber::of(b, definition.type());
  return x && y && !x->isNan() && !y->isNan() && !(*x < *y) && !(*y < *x);
}

bool CParamValueRules::mayStay(const CParamVal& value, const CParamVal& newValue,
                               const CParamDefItem& definition) {
  return CExactNumber::isUnsigned(definition.type()) ? areEqual(value, newValue, definition)
                                                     : value == newValue;
}
