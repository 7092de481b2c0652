#pragma once

#include "CCompensationFindings.h"
#include "CCompensationPlot.h"
#include "CPlotFrame.h"

#include <QByteArray>
#include <QStringList>

#include <optional>
#include <vector>

class CSvgWriter;
class ICCompensationFile;
class QPointF;

/// Draws a compensation table, which must live as long as this.
class CPlotDrawing {
 public:
  CPlotDrawing(const ICCompensationFile& table, const CCompensationPlot::STexts& texts);

  QByteArray toSvg() const;
  int skippedPoints() const { return mSkipped.size(); }

 private:
  struct SPoint {
    int index;
    double position;
    double adjustment;
    bool isBad;
  };

  std::vector<SPoint> drawablePoints();
  CPlotFrame frame() const;
  int badCount() const;
  double spacing() const;
  QString title() const;
  QString subtitle() const;
  QString coursePath(bool throughBad) const;

  void writeHeading(CSvgWriter& svg) const;
  void writeOutside(CSvgWriter& svg) const;
  void writeGrid(CSvgWriter& svg) const;
  void writeTickTexts(CSvgWriter& svg) const;
  void writeAxisNames(CSvgWriter& svg) const;
  void writeRange(CSvgWriter& svg) const;
  void writeCourse(CSvgWriter& svg) const;
  void writeGoodPoints(CSvgWriter& svg) const;
  void writeBadPoints(CSvgWriter& svg) const;
  void writeBadNumbers(CSvgWriter& svg) const;
  void writeBadNumber(CSvgWriter& svg, const QPointF& place, int number) const;
  void writeLegend(CSvgWriter& svg) const;
  void writeNotes(CSvgWriter& svg) const;

  const ICCompensationFile& mTable;
  const CCompensationFindings mFindings;
  const CCompensationPlot::STexts mTexts;
  QStringList mSkipped;               // numbers of the points that cannot be drawn
  const std::vector<SPoint> mPoints;  // all others
  const std::optional<double> mMinimum;
  const std::optional<double> mMaximum;
  const CPlotFrame mFrame;
};
