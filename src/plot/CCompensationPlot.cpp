#include "CCompensationPlot.h"

#include "CPlotDrawing.h"

CCompensationPlot::CCompensationPlot(const ICCompensationFile& table, const STexts& texts) {
  const CPlotDrawing drawing(table, texts);
  mSvg = drawing.toSvg();
  mSkippedPoints = drawing.skippedPoints();
}
