#include "CPlotFrame.h"

#include "CSvgWriter.h"

#include <algorithm>

namespace {

constexpr int kMaxXTicks = 12;
constexpr int kMinXTicks = 4;  // with less, steps of 1, 2 and 5 may leave an axis without any
constexpr int kMaxYTicks = 9;
constexpr double kNameWidth = 48;  // of the axis' name, which is turned, with its gaps
constexpr double kTextGap = 14;

double widestTick(const CPlotAxis& axis) {
  double widest = 0;
  for (const CPlotAxis::STick& tick : axis.ticks())
    widest = std::max(widest, CSvgWriter::textWidth(tick.text, CPlotFrame::kTickFont));
  return widest;
}

// As many ticks as have room for their texts side by side.
CPlotAxis xAxisFor(double low, double high, double width) {
  for (int maxTicks = kMaxXTicks; maxTicks > kMinXTicks; maxTicks -= 2) {
    const CPlotAxis axis(low, high, maxTicks);
    if ((widestTick(axis) + kTextGap) * axis.ticks().size() <= width) return axis;
  }
  return {low, high, kMinXTicks};
}

}  // namespace

CPlotFrame::CPlotFrame(double lowX, double highX, double lowY, double highY)
    : mYAxis(lowY, highY, kMaxYTicks),
      mLeft(kNameWidth + widestTick(mYAxis)),
      mXAxis(xAxisFor(lowX, highX, width())) {}
