#include "CExactNumber.h"

#include "CUtf8Text.h"

#include <cmath>
#include <iterator>
#include <limits>

namespace {

constexpr double kTwoTo64 = 18446744073709551616.0;

template <typename T>
std::optional<CExactNumber> read(std::string_view text) {
  using CWide = std::conditional_t<std::is_floating_point_v<T>, double,
                                   std::conditional_t<std::is_signed_v<T>, qint64, quint64>>;
  T number = 0;
  if (!CStr::toNumber(text, number)) return {};
  return CExactNumber(static_cast<CWide>(number));
}

/// In the order of the types of numbers.
constexpr std::optional<CExactNumber> (*kReaders[])(std::string_view) = {
    &read<unsigned char>, &read<unsigned short>, &read<unsigned int>, &read<unsigned long long>,
    &read<signed char>,   &read<short>,          &read<int>,          &read<long long>,
    &read<double>};
static_assert(std::size(kReaders) == NParamDef::PARAM_TYPE_F64);

}  // namespace

CExactNumber::CExactNumber(qint64 number) : mIsNegative(number < 0) {
  const auto magnitude = static_cast<quint64>(number);
  mMagnitude = mIsNegative ? 0 - magnitude : magnitude;
}

CExactNumber::CExactNumber(double number) {
  if (std::abs(number) < kTwoTo64 && std::trunc(number) == number) {
    mMagnitude = static_cast<quint64>(std::abs(number));
    mIsNegative = number < 0;
  } else {
    mIsReal = true;
    mReal = number;
  }
}

std::optional<CExactNumber> CExactNumber::of(const CParamVal& value, NParamDef::EParamType type) {
  return of(CUtf8Text(value.asStr()).view(), type);
}

std::optional<CExactNumber> CExactNumber::of(std::string_view utf8, NParamDef::EParamType type) {
  return isNumberType(type) ? kReaders[type - NParamDef::PARAM_TYPE_U8](utf8) : std::nullopt;
}

bool CExactNumber::isNumberType(NParamDef::EParamType type) {
  return type >= NParamDef::PARAM_TYPE_U8 && type <= NParamDef::PARAM_TYPE_F64;
}

bool CExactNumber::isUnsigned(NParamDef::EParamType type) {
  return type >= NParamDef::PARAM_TYPE_U8 && type <= NParamDef::PARAM_TYPE_U64;
}

int CExactNumber::widthOf(NParamDef::EParamType type) {
  if (isUnsigned(type)) return 8 << (type - NParamDef::PARAM_TYPE_U8);
  if (type >= NParamDef::PARAM_TYPE_I8 && type <= NParamDef::PARAM_TYPE_I64)
    return 8 << (type - NParamDef::PARAM_TYPE_I8);
  return 0;
}

quint64 CExactNumber::allBits(NParamDef::EParamType type) {
  const int width = widthOf(type);
  return width > 0 ? ~0ULL >> (64 - width) : 0;
}

bool CExactNumber::isNan() const {
  return mIsReal && std::isnan(mReal);
}

std::optional<qint64> CExactNumber::asI64() const {
  constexpr auto kMax = static_cast<quint64>(std::numeric_limits<qint64>::max());
  if (mIsReal || mMagnitude > kMax + (mIsNegative ? 1 : 0)) return {};
  return static_cast<qint64>(bits());
}

quint64 CExactNumber::bits() const {
  return mIsNegative ? 0 - mMagnitude : mMagnitude;
}

QString CExactNumber::decimal() const {
  if (mIsReal) return QString::number(mReal, 'g', std::numeric_limits<double>::max_digits10);
  return mIsNegative ? QStringLiteral("-%1").arg(mMagnitude) : QString::number(mMagnitude);
}

CParamVal CExactNumber::written(NParamDef::EParamType type) const {
  return isUnsigned(type) ? CParamVal(bits()) : CParamVal(decimal());
}

// A real that is not an integer here is a fraction of less than 53 bits, or beyond all integers.
bool CExactNumber::isBelowReal(double real) const {
  return std::abs(real) < kTwoTo64 ? !(CExactNumber(std::floor(real)) < *this) : real > 0;
}

bool CExactNumber::isAboveReal(double real) const {
  return std::abs(real) < kTwoTo64 ? CExactNumber(std::floor(real)) < *this : real < 0;
}

bool operator<(const CExactNumber& a, const CExactNumber& b) {
  if (a.mIsReal && b.mIsReal) return a.mReal < b.mReal;
  if (a.mIsReal) return b.isAboveReal(a.mReal);
  if (b.mIsReal) return a.isBelowReal(b.mReal);
  if (a.mIsNegative != b.mIsNegative) return a.mIsNegative;
  return a.mIsNegative ? b.mMagnitude < a.mMagnitude : a.mMagnitude < b.mMagnitude;
}
