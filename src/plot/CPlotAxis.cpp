#include "CPlotAxis.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kRoom = 0.04;         // at both ends, as a part of the range
constexpr double kResolution = 1e-11;  // smallest range, as a part of the largest amount
constexpr double kNothing = 1e-200;    // what is smaller counts as 0
constexpr int kMaxDecimals = 4;
constexpr double kMaxPlain = 1e6;

int orderOf(double amount) {
  return static_cast<int>(std::floor(std::log10(amount)));
}

// Divides where it can, since negative powers of ten are not exact.
double scaled(double number, int exponent) {
  return exponent < 0 ? number / std::pow(10, -exponent) : number * std::pow(10, exponent);
}

/// A step of 1, 2, 5 or 10 times a power of ten.
struct SStep {
  int mantissa;
  int exponent;

  double size() const { return scaled(mantissa, exponent); }

  static SStep atLeast(double size) {
    const int exponent = orderOf(size);
    for (const int mantissa : {1, 2, 5})
      if (scaled(mantissa, exponent) >= size) return {mantissa, exponent};
    return {1, exponent + 1};
  }
};

// A power of thousand that keeps the texts short.
int exponentFor(double amount, const SStep& step) {
  const bool isLong = step.exponent < -kMaxDecimals && amount < 1;
  if (!isLong && amount < kMaxPlain) return 0;
  return 3 * static_cast<int>(std::floor(orderOf(amount) / 3.0));
}

}  // namespace

CPlotAxis::CPlotAxis(double low, double high, int maxTicks) : mLow(low), mHigh(high) {
  widen();
  addTicks(maxTicks);
}

void CPlotAxis::widen() {
  const double amount = std::max(std::abs(mLow), std::abs(mHigh));
  if (mHigh - mLow < std::max(amount * kResolution, kNothing)) {
    const double around = amount < kNothing ? 1 : amount / 10;
    mLow -= around;
    mHigh += around;
  }
  const double room = (mHigh - mLow) * kRoom;
  mLow -= room;
  mHigh += room;
}

void CPlotAxis::addTicks(int maxTicks) {
  const SStep step = SStep::atLeast((mHigh - mLow) / maxTicks);
  const double first = std::ceil(mLow / step.size());
  const int count = static_cast<int>(std::floor(mHigh / step.size()) - first) + 1;
  mExponent = exponentFor(std::max(std::abs(mLow), std::abs(mHigh)), step);
  const int decimals = std::max(0, mExponent - step.exponent);
  for (int i = 0; i < count; ++i) {
    const double number = (first + i) * step.mantissa;  // of steps, so that no error adds up
    const double text = scaled(number, step.exponent - mExponent);
    mTicks.append({scaled(number, step.exponent), QString::number(text + 0.0, 'f', decimals)});
  }
}
