#pragma once

#include "CPlotAxis.h"

/// The field of a plot on its page, in points: where a position and an adjustment lie.
class CPlotFrame {
 public:
  static constexpr double kPageWidthMm = 297;  // A4 across
  static constexpr double kPageHeightMm = 210;
  static constexpr double kTickFont = 11;

  /// For values between these. The left border is as wide as the texts at the ticks need.
  CPlotFrame(double lowX, double highX, double lowY, double highY);

  const CPlotAxis& xAxis() const { return mXAxis; }
  const CPlotAxis& yAxis() const { return mYAxis; }
  double x(double value) const { return mLeft + mXAxis.place(value) * width(); }
  double y(double value) const { return bottom() - mYAxis.place(value) * height(); }

  double left() const { return mLeft; }
  double right() const { return 806; }
  double top() const { return 104; }
  double bottom() const { return 490; }
  double width() const { return right() - left(); }
  double height() const { return bottom() - top(); }

 private:
  CPlotAxis mYAxis;
  double mLeft;
  CPlotAxis mXAxis;
};
