#include "NBitChange.h"

#include "CDefinitionComparison.h"
#include "NShortText.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <tuple>
#include <vector>

namespace {

using NParamDef::SBitValue;
using S = SDefinitionDifference;

bool isBefore(const SBitValue& a, const SBitValue& b) {
  return std::tie(a.pos, a.name, a.invert) < std::tie(b.pos, b.name, b.invert);
}

using CBits = std::vector<SBitValue>;

CBits sorted(const QList<SBitValue>& list) {
  CBits bits(list.begin(), list.end());
  std::sort(bits.begin(), bits.end(), isBefore);
  return bits;
}

CBits without(const CBits& bits, const CBits& others) {
  CBits rest;
  std::set_difference(bits.begin(), bits.end(), others.begin(), others.end(),
                      std::back_inserter(rest), isBefore);
  return rest;
}

QString textOf(const CBits& bits) {
  QStringList texts;
  for (const SBitValue& bit : bits) {
    texts.append(QStringLiteral("%1 %2 %3")
                     .arg(bit.invert ? QStringLiteral("not bit") : QStringLiteral("bit"),
                          QString::number(bit.pos), NShortText::of(bit.name)));
  }
  return SDefinitionChange::listed(texts);
}

/// Names and positions of bits.
struct SKnown {
  explicit SKnown(const CBits& bits) {
    for (const SBitValue& bit : bits) {
      names.insert(bit.name);
      positions.insert(bit.pos);
    }
  }

  std::set<QString> names;
  std::set<int> positions;
};

void judge(const CBits& removed, const CBits& added, const CBits& oldBits,
           SDefinitionChange& change) {
  const SKnown newOnes(added);
  for (const SBitValue& bit : removed) {
    const QString name = NShortText::of(bit.name);
    if (newOnes.names.count(bit.name) > 0) {
      change.judge(S::MeaningChanged,
                   CDefinitionComparison::tr("\"%1\" is another bit now, or inverted.").arg(name));
    } else if (newOnes.positions.count(bit.pos) > 0) {
      change.judge(S::MeaningChanged, CDefinitionComparison::tr("The bit %1 had the name \"%2\".")
                                          .arg(QString::number(bit.pos), name));
    } else {
      change.judge(S::ValuesMayBreak, CDefinitionComparison::tr("The bit %1 has no name any more.")
                                          .arg(QString::number(bit.pos)));
    }
  }
  const SKnown oldOnes(oldBits);
  for (const SBitValue& bit : added) {
    if (oldOnes.positions.count(bit.pos) > 0 || oldOnes.names.count(bit.name) > 0) {
      change.judge(S::MeaningChanged,
                   CDefinitionComparison::tr("The bit %1 or its name \"%2\" had a meaning already.")
                       .arg(QString::number(bit.pos), NShortText::of(bit.name)));
    }
  }
}

}  // namespace

std::optional<SDefinitionChange> NBitChange::of(const CParamDefItem& oldOne,
                                                const CParamDefItem& newOne) {
  const CBits oldBits = sorted(oldOne.bitset());
  const CBits newBits = sorted(newOne.bitset());
  const CBits removed = without(oldBits, newBits);
  const CBits added = without(newBits, oldBits);
  if (removed.empty() && added.empty()) return {};
  SDefinitionChange change;
  change.oldText = textOf(removed);
  change.newText = textOf(added);
  judge(removed, added, oldBits, change);
  change.judge(S::Safe, CDefinitionComparison::tr("Only bits without a name got one."));
  return change;
}
