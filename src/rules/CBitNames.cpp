#include "CBitNames.h"

#include <algorithm>
#include <utility>
#include <vector>

using NParamDef::SBitValue;

namespace {

const QLatin1Char kSeparator('|');
const QLatin1String kUnnamed("bit ");

quint64 maskOf(const SBitValue& bit) {
  return 1ULL << bit.pos;
}

bool isActive(const SBitValue& bit, const CExactNumber& number) {
  const bool isSet = (number.bits() & maskOf(bit)) != 0;
  return isSet != bit.invert;
}

void setActive(const SBitValue& bit, bool isWanted, quint64& bits) {
  bits = isWanted != bit.invert ? bits | maskOf(bit) : bits & ~maskOf(bit);
}

}  // namespace

/// The bits by their names. Since these may hold a "|", a name is looked for in several pieces of a
/// text, too.
class CBitNames::CIndex {
 public:
  explicit CIndex(const QList<SBitValue>& bits);
  /// The bit that the text begins with, which is taken away; nothing when there is none.
  std::optional<SBitValue> take(QStringView& text) const;

 private:
  std::optional<SBitValue> find(QStringView name) const;

  const QList<SBitValue>& mBits;
  std::vector<std::pair<QStringView, int>> mPlaces;  // in mBits, by name
  int mMostPieces = 1;
};

CBitNames::CIndex::CIndex(const QList<SBitValue>& bits) : mBits(bits) {
  mPlaces.reserve(static_cast<size_t>(bits.size()));
  for (int i = 0; i < bits.size(); ++i) {
    const QStringView name = QStringView(bits.at(i).name).trimmed();
    mMostPieces = qMax(mMostPieces, bits.at(i).name.count(kSeparator) + 1);
    if (!name.isEmpty()) mPlaces.emplace_back(name, i);
  }
  std::sort(mPlaces.begin(), mPlaces.end());
}

std::optional<SBitValue> CBitNames::CIndex::take(QStringView& text) const {
  std::optional<SBitValue> longest;
  QStringView rest;
  qsizetype end = -1;
  for (int pieces = 0; pieces < mMostPieces && end < text.size(); ++pieces) {
    end = text.indexOf(kSeparator, end + 1);
    if (end < 0) end = text.size();
    const std::optional<SBitValue> bit = find(text.left(end).trimmed());
    if (!bit) continue;
    longest = bit;
    rest = end < text.size() ? text.mid(end + 1) : QStringView();
  }
  if (longest) text = rest;
  return longest;
}

std::optional<SBitValue> CBitNames::CIndex::find(QStringView name) const {
  const auto place = std::lower_bound(mPlaces.begin(), mPlaces.end(), std::pair(name, 0));
  if (place != mPlaces.end() && place->first == name) return mBits.at(place->second);
  unsigned char position = 0;
  const bool isNumbered =
      name.startsWith(kUnnamed) && CStr::strToU8(name.mid(kUnnamed.size()).toString(), position);
  const SBitValue bit(position, name.toString(), false);
  return isNumbered && bit.isValid() ? std::optional(bit) : std::nullopt;
}

CBitNames::CBitNames(const CParamDefItem& definition)
    : mType(definition.type()),
      mBits(definition.bitset()),
      mUnnamed(isEmpty() ? 0 : CExactNumber::allBits(mType)) {
  for (const SBitValue& bit : qAsConst(mBits)) mUnnamed &= ~maskOf(bit);
}

QStringList CBitNames::active(const CExactNumber& number) const {
  QStringList names;
  for (const SBitValue& bit : mBits)
    if (isActive(bit, number)) names.append(bit.name);
  return names;
}

QList<int> CBitNames::others(const CExactNumber& number) const {
  QList<int> positions;
  for (quint64 bits = number.bits() & mUnnamed; bits != 0; bits &= bits - 1)
    positions.append(static_cast<int>(qCountTrailingZeroBits(bits)));
  return positions;
}

QStringList CBitNames::all(const CExactNumber& number) const {
  QStringList texts = active(number);
  for (const int position : others(number)) texts.append(kUnnamed + QString::number(position));
  return texts;
}

std::optional<CExactNumber> CBitNames::read(const QString& text, QString& problem) const {
  const CIndex index(mBits);
  QList<SBitValue> wanted;
  QStringView rest = text;
  do {  // a text that ends with "|" has an empty name behind it
    const std::optional<SBitValue> bit = index.take(rest);
    if (!bit) {
      const QString name = rest.toString().section(kSeparator, 0, 0).trimmed();
      if (text.contains(kSeparator)) problem = tr("\"%1\" is not the name of a bit.").arg(name);
      return {};
    }
    wanted.append(*bit);
  } while (!rest.isNull());
  const CExactNumber number = numberOf(wanted);
  for (const SBitValue& bit : qAsConst(wanted)) {
    if (isActive(bit, number)) continue;
    problem = tr("\"%1\" does not go with the type %2 or with the other bits.")
                  .arg(bit.name, CParamDefItem::typeToString(mType));
    return {};
  }
  return number;
}

/// Where a position has several names, one that is active goes before one that is not.
CExactNumber CBitNames::numberOf(const QList<SBitValue>& active) const {
  quint64 bits = 0;
  for (const SBitValue& bit : mBits) setActive(bit, false, bits);
  for (const SBitValue& bit : active) setActive(bit, true, bits);
  const quint64 typeBits = CExactNumber::allBits(mType);
  bits &= typeBits;
  if (CExactNumber::isUnsigned(mType)) return CExactNumber(bits);
  const quint64 sign = typeBits ^ (typeBits >> 1U);
  return CExactNumber(static_cast<qint64>((bits & sign) != 0 ? bits | ~typeBits : bits));
}
