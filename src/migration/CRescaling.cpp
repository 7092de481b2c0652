#include "CRescaling.h"

#include "CExactNumber.h"

// To gcc, what Boost's fractions are made of looks uninitialized.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <boost/multiprecision/cpp_int.hpp>

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>

namespace {

// Without expression templates, which keep references to what is gone.
namespace NBoost = boost::multiprecision;
using CBackend = NBoost::cpp_int_backend<>;
using CInteger = NBoost::number<CBackend, NBoost::et_off>;
using CRational = NBoost::number<NBoost::rational_adaptor<CBackend>, NBoost::et_off>;

constexpr int kSignificantDigits = 17;  // tell every double
constexpr int kTen = 10;

/// A number as a text has it: digits * 10^-decimals.
struct SDecimal {
  CInteger digits;
  int decimals = 0;
  bool isNegative = false;  // also of 0
  bool hasExponent = false;
};

CInteger powerOfTen(int exponent) {
  return NBoost::pow(CInteger(kTen), static_cast<unsigned>(exponent));
}

/// number * 10^exponent
CRational shifted(const CRational& number, int exponent) {
  return exponent < 0 ? CRational(number / powerOfTen(-exponent))
                      : CRational(number * powerOfTen(exponent));
}

CRational valueOf(const SDecimal& decimal) {
  return shifted(CRational(decimal.digits), -decimal.decimals);
}

bool takeSign(std::string_view& text) {
  if (text.empty() || (text.front() != '-' && text.front() != '+')) return false;
  const bool isMinus = text.front() == '-';
  text.remove_prefix(1);
  return isMinus;
}

/// The digits around a point, which becomes a count of decimals.
bool readMantissa(std::string_view text, SDecimal& number) {
  const size_t point = std::min(text.find('.'), text.size());
  std::string digits(text.substr(0, point));
  if (point < text.size()) digits += text.substr(point + 1);
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (digits.empty() || digits.size() > static_cast<size_t>(CRescaling::kMostDigits) ||
      !std::all_of(digits.begin(), digits.end(), isDigit)) {
    return false;
  }
  number.decimals = static_cast<int>(text.size() - std::min(point + 1, text.size()));
  // After a leading 0 it would be read as octal.
  const size_t first = std::min(digits.find_first_not_of('0'), digits.size() - 1);
  number.digits = CInteger(digits.substr(first));
  if (number.isNegative) number.digits = -number.digits;
  return true;
}

bool readExponent(std::string_view text, SDecimal& number) {
  const bool isNegative = takeSign(text);
  int exponent = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), exponent);
  if (error != std::errc() || stop != text.data() + text.size() ||
      exponent > CRescaling::kMostDigits) {
    return false;
  }
  number.hasExponent = true;
  number.decimals += isNegative ? exponent : -exponent;
  return true;
}

/// False for "inf", "nan" and other texts that are no decimal numbers.
bool readDecimal(const QString& text, SDecimal& number) {
  const std::string bytes = text.toStdString();
  std::string_view rest = bytes;
  number.isNegative = takeSign(rest);
  const size_t exponent = rest.find_first_of("eE");
  return readMantissa(rest.substr(0, exponent), number) &&
         (exponent == std::string_view::npos || readExponent(rest.substr(exponent + 1), number));
}

bool readFraction(const QString& text, CRational& fraction) {
  CRational parts[] = {0, 1};
  const QStringList texts = text.split(QLatin1Char('/'));
  for (int i = 0; i < texts.size(); ++i) {
    SDecimal number;
    if (i > 1 || !readDecimal(texts.at(i).trimmed(), number) || number.hasExponent ||
        (i == 1 && number.digits == 0)) {
      return false;
    }
    parts[i] = valueOf(number);
  }
  fraction = parts[0] / parts[1];
  return true;
}

int timesDivisible(CInteger number, int divisor) {
  int times = 0;
  for (; number != 0 && number % divisor == 0; ++times) number /= divisor;
  return times;
}

/// The fewest decimals that tell the number; below 0 for one that ends with zeros before the point.
/// Nothing for one without an end.
std::optional<int> decimalsOf(const CRational& number) {
  const CInteger below = denominator(number);
  if (below == 1) return -timesDivisible(numerator(number), kTen);
  const auto twos = static_cast<int>(lsb(below));
  const int fives = timesDivisible(below, 5);
  if (below != (NBoost::pow(CInteger(5), static_cast<unsigned>(fives)) << twos)) return {};
  return std::max(twos, fives);
}

/// How many decimals a factor adds.
int decimalsAddedBy(const CRational& factor) {
  const auto own = decimalsOf(factor);
  if (own) {
    const bool isPowerOfTen = abs(shifted(factor, *own)) == 1;
    return isPowerOfTen ? *own : std::max(*own, 0);
  }
  const auto inverse = decimalsOf(CRational(1 / factor));
  return inverse ? -std::max(*inverse, 0) : 0;
}

/// Of a number that is not 0, the decimals down to the last significant digit.
int significantDecimals(const CRational& number) {
  const CRational magnitude = abs(number);
  int exponent = static_cast<int>(numerator(magnitude).str().size()) -
                 static_cast<int>(denominator(magnitude).str().size());
  if (magnitude < shifted(1, exponent)) --exponent;
  return kSignificantDigits - 1 - exponent;
}

bool isRoundedAway(SRescaling::ERounding rounding, bool isNegative, const CInteger& quotient,
                   const CInteger& twiceRest, const CInteger& divisor) {
  switch (rounding) {
    case SRescaling::HalfEven:
      return twiceRest > divisor || (twiceRest == divisor && quotient % 2 != 0);
    case SRescaling::HalfAway:
      return twiceRest >= divisor;
    case SRescaling::Down:
      return isNegative && twiceRest != 0;
    case SRescaling::Up:
      return !isNegative && twiceRest != 0;
    default:
      return false;
  }
}

CInteger rounded(const CRational& number, SRescaling::ERounding rounding) {
  const bool isNegative = number < 0;
  const CInteger above = abs(numerator(number));
  const CInteger below = denominator(number);
  CInteger quotient;
  CInteger rest;
  divide_qr(above, below, quotient, rest);
  if (isRoundedAway(rounding, isNegative, quotient, CInteger(rest * 2), below)) ++quotient;
  return isNegative ? CInteger(-quotient) : quotient;
}

QString signedText(bool isNegative, const std::string& text) {
  return QLatin1String(isNegative ? "-" : "") + QString::fromStdString(text);
}

QString integerText(const CInteger& number, bool isHex) {
  const CInteger magnitude = abs(number);
  return signedText(number < 0,
                    isHex ? "0x" + magnitude.str(0, std::ios_base::hex) : magnitude.str());
}

/// digits * 10^-decimals, where decimals are not below 0.
std::string plainText(std::string digits, int decimals) {
  const auto behind = static_cast<size_t>(decimals);
  if (digits.size() <= behind) digits.insert(0, behind + 1 - digits.size(), '0');
  if (behind > 0) digits.insert(digits.size() - behind, ".");
  return digits;
}

/// As the tool chain writes one: "1.5e+06".
std::string exponentText(std::string digits, int decimals) {
  const int exponent = static_cast<int>(digits.size()) - 1 - decimals;
  if (digits.size() > 1) digits.insert(1, ".");
  const std::string number = std::to_string(std::abs(exponent));
  return digits + (exponent < 0 ? "e-" : "e+") + (number.size() < 2 ? "0" : "") + number;
}

}  // namespace

struct CRescaling::SData {
  CRational factor;  // 0 when the rule makes no sense
  CRational offset;
  SRescaling::ERounding rounding;
  NParamDef::EParamType from;
  NParamDef::EParamType to;
  int addedDecimals = 0;

  SResult toInteger(const QString& text, const CRational& number) const;
  SResult toReal(const SDecimal& old, const CRational& number) const;
};

CRescaling::SResult CRescaling::SData::toInteger(const QString& text,
                                                 const CRational& number) const {
  const bool isWhole = denominator(number) == 1;
  if (!isWhole && rounding == SRescaling::Exact) return {NeedsRounding, {}};
  const bool isHex = from == NParamDef::PARAM_TYPE_F64
                         ? CExactNumber::isUnsigned(to)
                         : text.contains(QLatin1Char('x'), Qt::CaseInsensitive);
  return {isWhole ? Exact : Rounded, integerText(rounded(number, rounding), isHex)};
}

CRescaling::SResult CRescaling::SData::toReal(const SDecimal& old, const CRational& number) const {
  const std::optional<int> needed = decimalsOf(number);
  if (!needed && rounding == SRescaling::Exact) return {NeedsRounding, {}};
  int decimals = old.decimals + addedDecimals;
  if (number != 0) decimals = std::max(decimals, needed ? *needed : significantDecimals(number));
  const bool hasExponent = old.hasExponent && number != 0;
  if (!hasExponent) decimals = std::max(decimals, 0);
  const CInteger digits = rounded(shifted(number, decimals), rounding);
  const bool isNegativeZero = number == 0 && old.digits == 0 && old.isNegative && factor > 0;
  const std::string magnitude = CInteger(abs(digits)).str();
  return {needed ? Exact : Rounded,
          signedText(digits < 0 || isNegativeZero, hasExponent ? exponentText(magnitude, decimals)
                                                               : plainText(magnitude, decimals))};
}

bool CRescaling::isFraction(const QString& text) {
  CRational fraction;
  return readFraction(text, fraction);
}

CRescaling::CRescaling(const SRescaling& rule, NParamDef::EParamType from, NParamDef::EParamType to,
                       EDirection direction)
    : d(std::make_unique<SData>()) {
  d->rounding = rule.rounding;
  d->from = from;
  d->to = to;
  CRational factor;
  CRational offset;
  if (!readFraction(rule.factor, factor) || !readFraction(rule.offset, offset) || factor == 0)
    return;
  const bool isBack = direction == Back;
  d->factor = isBack ? CRational(1 / factor) : factor;
  d->offset = isBack ? CRational(-offset / factor) : offset;
  d->addedDecimals = isBack ? -decimalsAddedBy(factor) : decimalsAddedBy(factor);
}

CRescaling::~CRescaling() = default;
CRescaling::CRescaling(CRescaling&&) noexcept = default;
CRescaling& CRescaling::operator=(CRescaling&&) noexcept = default;

CRescaling::SResult CRescaling::convert(const QString& text) const {
  const auto known = CExactNumber::of(CParamVal(text), d->from);
  const bool isReal = d->from == NParamDef::PARAM_TYPE_F64;
  if (!known || d->factor == 0 || !CExactNumber::isNumberType(d->to)) return {};
  SDecimal old;
  if (!readDecimal(isReal ? text.trimmed() : known->decimal(), old)) return {};
  const CRational before = valueOf(old);
  const CRational after = before * d->factor + d->offset;
  if (d->to == NParamDef::PARAM_TYPE_F64) return d->toReal(old, after);
  if (!isReal && after == before) return {Exact, text};  // however it is written
  return d->toInteger(text, after);
}
