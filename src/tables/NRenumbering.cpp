#include "NRenumbering.h"

#include "CAllowedNumbers.h"
#include "CParamValueRules.h"
#include "CParamValueText.h"

#include <algorithm>
#include <map>
#include <optional>

namespace {

/// Whether the choice is one that values can have; what limits them is not known here.
bool allows(const CParamValueRules& rules, qint64 choice) {
  const auto violations = rules.violations(CParamVal(QString::number(choice)),
                                           [](const QString&) { return CParamVal(); });
  return std::all_of(violations.begin(), violations.end(),
                     [](const auto& violation) { return violation.isWarning(); });
}

CParamValueRules rulesOf(const CParamDefItem& definition) {
  return CParamValueRules(definition, [](quint32) { return CParamDefItem(); });
}

using CBitsByName = std::map<QString, NParamDef::SBitValue>;

/// Nothing when names or positions are not unique.
std::optional<CBitsByName> bitsByName(const CParamDefItem& definition) {
  CBitsByName bits;
  quint64 positions = 0;
  for (const NParamDef::SBitValue& bit : definition.bitset()) {
    const quint64 mask = 1ULL << bit.pos;
    if ((positions & mask) != 0 || !bits.try_emplace(bit.name, bit).second) return {};
    positions |= mask;
  }
  return bits;
}

}  // namespace

NRenumbering::CNumberPairs NRenumbering::choices(const CParamDefItem& oldOne,
                                                 const CParamDefItem& newOne) {
  const CAllowedNumbers oldNumbers(oldOne);
  const CAllowedNumbers newNumbers(newOne);
  const SChoiceNames& before = oldNumbers.all();
  const SChoiceNames& after = newNumbers.all();
  const auto isUnique = [](const SChoiceNames& names, const CParamDefItem& item) {
    const auto count = static_cast<size_t>(CParamValueText::choices(item).size());
    return names.names.size() == count && names.numbers.size() == count;
  };
  if (!isUnique(before, oldOne) || !isUnique(after, newOne)) return {};
  const CParamValueRules oldRules = rulesOf(oldOne);
  const CParamValueRules newRules = rulesOf(newOne);
  CNumberPairs moved;
  for (const auto& [number, name] : before.names) {
    if (!allows(oldRules, number)) continue;
    const auto now = after.numbers.find(name);
    const bool isThere = now != after.numbers.end() && allows(newRules, now->second);
    if (!isThere && after.names.count(number) > 0) return {};
    if (isThere && now->second != number) moved.append({number, now->second});
  }
  return moved;
}

NRenumbering::CBitPairs NRenumbering::bits(const CParamDefItem& oldOne,
                                           const CParamDefItem& newOne) {
  const std::optional<CBitsByName> before = bitsByName(oldOne);
  const std::optional<CBitsByName> after = bitsByName(newOne);
  if (!before || !after) return {};
  const int width =
      qMin(CExactNumber::widthOf(oldOne.type()), CExactNumber::widthOf(newOne.type()));
  CBitPairs moved;
  for (const auto& [name, bit] : *before) {
    const auto now = after->find(name);
    if (now == after->end() || now->second.invert != bit.invert) return {};
    if (qMax(bit.pos, now->second.pos) >= width) return {};
    if (now->second.pos != bit.pos) moved.append({bit.pos, now->second.pos});
  }
  std::sort(moved.begin(), moved.end());
  return moved;
}
