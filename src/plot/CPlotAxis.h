#pragma once

#include <QString>
#include <QVector>

/// One axis of a plot: a range of values with room at both ends, and ticks at steps of 1, 2 or 5.
class CPlotAxis {
 public:
  /// Values beyond this are too large for any axis; their differences could not be told.
  static constexpr double kMaxAmount = 1e100;

  struct STick {
    double value;
    QString text;  ///< in units of 10 to the power of exponent()
  };

  /// For values from `low` to `high`. Equal or hardly different ones get a range around them.
  CPlotAxis(double low, double high, int maxTicks);

  double low() const { return mLow; }
  double high() const { return mHigh; }
  /// Where the value lies, from 0 at low() to 1 at high().
  double place(double value) const { return (value - mLow) / (mHigh - mLow); }
  const QVector<STick>& ticks() const { return mTicks; }
  int exponent() const { return mExponent; }

 private:
  void widen();
  void addTicks(int maxTicks);

  double mLow;
  double mHigh;
  int mExponent = 0;
  QVector<STick> mTicks;
};
