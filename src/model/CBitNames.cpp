#include "CBitNames.h"

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

CBitNames::CBitNames(const CParamDefItem& definition)
    : mType(definition.type()), mBits(definition.bitset()) {
  if (!isEmpty()) mUnnamed = CExactNumber::allBits(mType);
  for (int i = 0; i < mBits.size(); ++i) {
    const QString name = mBits.at(i).name.trimmed();
    mUnnamed &= ~maskOf(mBits.at(i));
    mMostPieces = qMax(mMostPieces, name.count(kSeparator) + 1);
    if (!name.isEmpty()) mPlaces.try_emplace(name, i);
  }
}

QStringList CBitNames::active(const CExactNumber& number) const {
  QStringList names;
  for (const SBit& bit : mBits)
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
  const std::optional<QList<SBit>> wanted = readBits(text, problem);
  if (!wanted) return {};
  const CExactNumber number = numberOf(*wanted);
  for (const SBit& bit : *wanted) {
    if (isActive(bit, number)) continue;
    problem = tr("\"%1\" does not go with the type %2 or with the other bits.")
                  .arg(bit.name, CParamDefItem::typeToString(mType));
    return {};
  }
  return number;
}

std::optional<QList<SBitValue>> CBitNames::readBits(const QString& text, QString& problem) const {
  const QStringList pieces = text.split(kSeparator);
  QList<SBit> found;
  for (int i = 0, count = 0; i < pieces.size(); i += count) {
    std::optional<SBit> bit;
    for (count = mMostPieces; count > 0; --count) {
      bit = find(QStringList(pieces.mid(i, count)).join(kSeparator).trimmed());
      if (bit) break;
    }
    if (!bit) {
      const bool mayBeOther = pieces.size() == 1;
      if (!mayBeOther) problem = tr("\"%1\" is not the name of a bit.").arg(pieces.at(i).trimmed());
      return {};
    }
    found.append(*bit);
  }
  return found;
}

std::optional<SBitValue> CBitNames::find(const QString& name) const {
  const auto place = mPlaces.find(name);
  if (place != mPlaces.end()) return mBits.at(place->second);
  unsigned char position = 0;
  const bool isNumbered =
      name.startsWith(kUnnamed) && CStr::strToU8(name.mid(kUnnamed.size()), position);
  const SBit bit(position, name, false);
  return isNumbered && bit.isValid() ? std::optional<SBit>(bit) : std::nullopt;
}

/// Where a position has several names, one that is active goes before one that is not.
CExactNumber CBitNames::numberOf(const QList<SBit>& active) const {
  quint64 bits = 0;
  for (const SBit& bit : mBits) setActive(bit, false, bits);
  for (const SBit& bit : active) setActive(bit, true, bits);
  const quint64 all = CExactNumber::allBits(mType);
  bits &= all;
  if (CExactNumber::isUnsigned(mType)) return CExactNumber(bits);
  const quint64 sign = all ^ (all >> 1U);
  return CExactNumber(static_cast<qint64>((bits & sign) != 0 ? bits | ~all : bits));
}
