#include "CAllowedNumbers.h"

#include "CParamValueText.h"

#include <algorithm>

using NParamDef::EParamType;
using NParamDef::SNamedI64Value;

namespace {

constexpr std::array kLists = {CAllowedNumbers::Enumeration, CAllowedNumbers::RadioButtons,
                               CAllowedNumbers::States};

std::optional<CExactNumber> limit(const CParamVal& value, EParamType type) {
  const std::optional<CExactNumber> number = CExactNumber::of(value, type);
  return number && !number->isNan() ? number : std::nullopt;
}

}  // namespace

void SChoiceNames::add(const QList<SNamedI64Value>& choices) {
  for (const SNamedI64Value& choice : choices) {
    QString& name = names[choice.value];
    if (name.isEmpty()) name = choice.name;
    if (!choice.name.isEmpty()) numbers.try_emplace(choice.name, choice.value);
  }
}

CAllowedNumbers::CAllowedNumbers(const CParamDefItem& definition)
    : mType(definition.type()),
      mIsEditable(definition.isEnumEditable()),
      mMinimum(limit(definition.minVal(), mType)),
      mMaximum(limit(definition.maxVal(), mType)) {
  mLists[Enumeration].add(definition.enums());
  mLists[RadioButtons].add(definition.radios());
  mLists[States].add(CParamValueText::states(definition));
  mAll.add(CParamValueText::choices(definition));
}

bool CAllowedNumbers::isClosed(EList list) const {
  return !mLists.at(list).isEmpty() && !(list == Enumeration && mIsEditable);
}

bool CAllowedNumbers::isClosed() const {
  return std::any_of(kLists.begin(), kLists.end(), [this](EList list) { return isClosed(list); });
}

bool CAllowedNumbers::areAllIn(const SChoiceNames& choices) const {
  return std::any_of(kLists.begin(), kLists.end(), [this, &choices](EList list) {
    const auto& names = mLists.at(list).names;
    return isClosed(list) && std::all_of(names.begin(), names.end(), [&choices](const auto& each) {
             return choices.names.count(each.first) > 0;
           });
  });
}

// Without a limit of its own an integer ends where its type does.
bool CAllowedNumbers::areAllFrom(const CExactNumber& minimum) const {
  if (isClosed() || !CExactNumber::isNumberType(mType)) return true;
  if (const auto range = rangeOf(mType)) return !(withinLimits(*range).lowest < minimum);
  return mMinimum && !(*mMinimum < minimum);
}

bool CAllowedNumbers::areAllUpTo(const CExactNumber& maximum) const {
  if (isClosed() || !CExactNumber::isNumberType(mType)) return true;
  if (const auto range = rangeOf(mType)) return !(maximum < withinLimits(*range).highest);
  return mMaximum && !(maximum < *mMaximum);
}

// Integers may be written with "0x", which no floating point number has, and those have decimals. A
// zero with a sign is a number of a signed type only.
bool CAllowedNumbers::areAllOf(EParamType type) const {
  if (type == mType) return true;
  const auto own = rangeOf(mType);
  const auto other = rangeOf(type);
  if (!own || !other) return false;
  const bool losesSign = CExactNumber::isUnsigned(type) && !CExactNumber::isUnsigned(mType);
  const CExactNumber lowest = losesSign ? CExactNumber(quint64(1)) : other->lowest;
  const auto fits = [&lowest, &other](const SRange& range) {
    return !(range.lowest < lowest) && !(other->highest < range.highest);
  };
  const std::optional<SRange> chosen = ofChoices(*own);
  return (!chosen || fits(*chosen)) && (isClosed() || fits(withinLimits(*own)));
}

std::optional<CAllowedNumbers::SRange> CAllowedNumbers::rangeOf(EParamType type) {
  if (CExactNumber::widthOf(type) == 0) return {};
  const quint64 bits = CExactNumber::allBits(type);
  if (CExactNumber::isUnsigned(type)) return SRange{CExactNumber(quint64(0)), CExactNumber(bits)};
  const auto highest = static_cast<qint64>(bits >> 1U);
  return SRange{CExactNumber(-highest - 1), CExactNumber(highest)};
}

CAllowedNumbers::SRange CAllowedNumbers::withinLimits(const SRange& range) const {
  return {mMinimum && range.lowest < *mMinimum ? *mMinimum : range.lowest,
          mMaximum && *mMaximum < range.highest ? *mMaximum : range.highest};
}

/// The lowest and the highest choice that are numbers of the type; limits do not count for them.
std::optional<CAllowedNumbers::SRange> CAllowedNumbers::ofChoices(const SRange& range) const {
  std::optional<SRange> found;
  for (const auto& [value, name] : mAll.names) {
    const CExactNumber number(value);
    if (number < range.lowest || range.highest < number) continue;
    found = SRange{found ? found->lowest : number, number};
  }
  return found;
}
