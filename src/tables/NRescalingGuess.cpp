#include "NRescalingGuess.h"

#include "CExactNumber.h"

#include <QStringList>

#include <numeric>
#include <optional>

namespace {

/// Of whole numbers, reduced, the denominator above 0.
struct SFraction {
  qint64 numerator;
  qint64 denominator;

  bool operator==(const SFraction& other) const {
    return numerator == other.numerator && denominator == other.denominator;
  }
};

SFraction reduced(qint64 numerator, qint64 denominator) {
  const qint64 divisor = std::gcd(numerator, denominator) * (denominator < 0 ? -1 : 1);
  return {numerator / divisor, denominator / divisor};
}

/// Nothing for a text that is no plain decimal number of at most nine digits: limits that people
/// give in another unit have few.
std::optional<SFraction> toFraction(const CParamVal& value, NParamDef::EParamType type) {
  const std::optional<CExactNumber> number = CExactNumber::of(value, type);
  if (!number) return {};
  const bool isInteger = CExactNumber::widthOf(type) > 0;
  QString digits = isInteger ? number->decimal() : value.asStr().trimmed();
  const int point = digits.indexOf(QLatin1Char('.'));
  const int decimals = point < 0 ? 0 : digits.size() - point - 1;
  if (point >= 0) digits.remove(point, 1);
  bool isPlain = false;
  const int whole = digits.toInt(&isPlain);
  if (!isPlain || decimals > 9) return {};
  qint64 denominator = 1;
  for (int i = 0; i < decimals; ++i) denominator *= 10;
  return reduced(whole, denominator);
}

/// What the new number is of the old one; nothing when one of them is 0.
std::optional<SFraction> ratio(const CParamVal& oldValue, const CParamDefItem& oldOne,
                               const CParamVal& newValue, const CParamDefItem& newOne) {
  const std::optional<SFraction> a = toFraction(oldValue, oldOne.type());
  const std::optional<SFraction> b = toFraction(newValue, newOne.type());
  if (!a || !b || a->numerator == 0 || b->numerator == 0) return {};
  // The products of numbers below 2^31 fit.
  return reduced(b->numerator * a->denominator, b->denominator * a->numerator);
}

bool isPlausible(const SFraction& factor) {
  constexpr qint64 kMost = 1000;
  return factor.numerator > 0 && qMin(factor.numerator, factor.denominator) <= kMost &&
         factor.numerator != factor.denominator;
}

}  // namespace

QString NRescalingGuess::factor(const CParamDefItem& oldOne, const CParamDefItem& newOne) {
  const auto maximum = ratio(oldOne.maxVal(), oldOne, newOne.maxVal(), newOne);
  const auto minimum = ratio(oldOne.minVal(), oldOne, newOne.minVal(), newOne);
  if (maximum && minimum && !(*maximum == *minimum)) return {};
  auto found = maximum ? maximum : minimum;
  if (!found) found = ratio(oldOne.defVal(), oldOne, newOne.defVal(), newOne);
  if (!found || !isPlausible(*found)) return {};
  const QString numerator = QString::number(found->numerator);
  return found->denominator == 1
             ? numerator
             : QStringLiteral("%1/%2").arg(numerator, QString::number(found->denominator));
}

bool NRescalingGuess::isPowerOfTen(const QString& factor) {
  QString power = factor;
  if (power.startsWith(QLatin1String("1/"))) power.remove(0, 2);
  return power.size() > 1 && power.startsWith(QLatin1Char('1')) &&
         power.count(QLatin1Char('0')) == power.size() - 1;
}
