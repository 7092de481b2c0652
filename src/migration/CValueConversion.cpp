#include "CValueConversion.h"

#include "CExactNumber.h"

namespace {

constexpr int kHexBase = 16;

template <typename T>
std::map<T, T> numbersOf(const QVector<QPair<T, T>>& pairs, bool isBack) {
  std::map<T, T> numbers;
  for (const auto& [from, to] : pairs) numbers.emplace(isBack ? to : from, isBack ? from : to);
  return numbers;
}

/// A number of 64 bits in the base of another one.
QString likeText(const QString& model, bool isNegative, quint64 magnitude) {
  const bool isHex = model.contains(QLatin1Char('x'), Qt::CaseInsensitive);
  const QString digits = isHex ? QLatin1String("0x") + QString::number(magnitude, kHexBase)
                               : QString::number(magnitude);
  return isNegative ? QLatin1Char('-') + digits : digits;
}

/// Bits of a type as a number of that type.
QString bitsText(const QString& model, quint64 bits, NParamDef::EParamType type) {
  const quint64 all = CExactNumber::allBits(type);
  const quint64 sign = all - all / 2;
  const bool isNegative = !CExactNumber::isUnsigned(type) && (bits & sign) != 0 && bits <= all;
  return likeText(model, isNegative, isNegative ? (0 - bits) & all : bits);
}

quint64 invertedBits(const CParamDefItem& definition) {
  quint64 bits = 0;
  for (const NParamDef::SBitValue& bit : definition.bitset())
    if (bit.invert && bit.isValid()) bits |= 1ULL << bit.pos;
  return bits;
}

}  // namespace

CValueConversion::CValueConversion(const SMigrationRule& rule, const CParamDefItem& from,
                                   const CParamDefItem& to, CRescaling::EDirection direction)
    : mFrom(from.type()), mTo(to.type()) {
  const bool isBack = direction == CRescaling::Back;
  if (!rule.question.isNull()) {
    mUndecided =
        isBack ? tr("A human decided about it, so the value before is not known.") : rule.question;
  } else if (!rule.value.isNull() && isBack) {
    mUndecided = tr("The table replaced it, so the value before is not known.");
  }
  mValue = rule.value;
  if (rule.rescaling) mRescaling.emplace(*rule.rescaling, mFrom, mTo, direction);
  mChoices = numbersOf(rule.choices, isBack);
  mBits = numbersOf(rule.bits, isBack);
  mInvertedBefore = invertedBits(from);
  mInvertedAfter = invertedBits(to);
  describe(rule, isBack);
}

void CValueConversion::describe(const SMigrationRule& rule, bool isBack) {
  if (rule.rescaling) {
    const QString& factor = rule.rescaling->factor;
    const QString& offset = rule.rescaling->offset;
    if (offset == QLatin1String("0"))
      mDescription = (isBack ? tr("divided by %1") : tr("times %1")).arg(factor);
    else
      mDescription =
          (isBack ? tr("minus %2, divided by %1") : tr("times %1, plus %2")).arg(factor, offset);
  } else if (!mChoices.empty()) {
    mDescription = tr("another number of the choice");
  } else if (!mBits.empty()) {
    mDescription = tr("bits at other places");
  }
}

CValueConversion::SResult CValueConversion::convert(const QString& text) const {
  if (!mUndecided.isNull()) return {Undecided, text, mUndecided};
  if (!mValue.isNull()) {
    if (mValue == text) return {Kept, text, {}};
    return {Replaced, mValue, tr("the value of the table")};
  }
  if (mRescaling) return rescaled(text);
  return mChoices.empty() && mBits.empty() ? SResult{Kept, text, {}} : renumbered(text);
}

CValueConversion::SResult CValueConversion::rescaled(const QString& text) const {
  const CRescaling::SResult result = mRescaling->convert(text);
  if (result.outcome == CRescaling::NoNumber) {
    return {Undecided, text,
            tr("\"%1\" is not a number of the type %2 that can be converted.")
                .arg(text, CParamDefItem::typeToString(mFrom))};
  }
  if (result.outcome == CRescaling::NeedsRounding) {
    return {
        Undecided, text,
        tr("%1 (%2) cannot be told exactly, and the rule does not round.").arg(text, mDescription)};
  }
  if (result.outcome == CRescaling::Rounded)
    return {Rounded, result.text, tr("%1, rounded").arg(mDescription)};
  if (result.text == text) return {Kept, text, {}};
  return {Converted, result.text, mDescription};
}

CValueConversion::SResult CValueConversion::renumbered(const QString& text) const {
  const std::optional<QString> number = newNumber(text);
  if (!number) {
    return {Undecided, text,
            tr("\"%1\" is not a number of the type %2 that can be converted.")
                .arg(text, CParamDefItem::typeToString(mFrom))};
  }
  if (*number == text) return {Kept, text, {}};
  return {Converted, *number, mDescription};
}

/// The text itself when no rule is about its number.
std::optional<QString> CValueConversion::newNumber(const QString& text) const {
  const std::optional<CExactNumber> number = CExactNumber::of(CParamVal(text), mFrom);
  if (!number) return {};
  const std::optional<qint64> choice = number->asI64();
  const auto found = choice ? mChoices.find(*choice) : mChoices.end();
  if (found != mChoices.end()) {
    const bool isNegative = found->second < 0;
    const auto bits = static_cast<quint64>(found->second);
    return found->first == found->second ? text
                                         : likeText(text, isNegative, isNegative ? 0 - bits : bits);
  }
  const quint64 bits = number->bits() & CExactNumber::allBits(mFrom);
  const quint64 newBits = newBitsOf(bits);
  return newBits == bits ? text : bitsText(text, newBits, mTo);
}

/// What was active is active.
quint64 CValueConversion::newBitsOf(quint64 bits) const {
  quint64 result = bits;
  for (const auto& place : mBits) result &= ~(1ULL << place.first);
  for (const auto& [from, to] : mBits) {
    const quint64 active = (bits ^ mInvertedBefore) >> from & 1U;
    const quint64 inverted = mInvertedAfter >> to & 1U;
    if (active != inverted)
      result |= 1ULL << to;
    else
      result &= ~(1ULL << to);
  }
  return result;
}
