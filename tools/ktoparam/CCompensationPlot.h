#pragma once

#include "CPlotFrame.h"
#include "CTableFindings.h"

#include <QByteArray>

#include <optional>
#include <vector>

class CSvgWriter;
class QPointF;

/// The picture of a compensation table: a page of SVG in landscape A4.
class CCompensationPlot {
 public:
  struct STexts {
    QString title;  ///< empty: the comment in the table's Head
    QString positionUnit;
    QString adjustmentUnit;
  };

  CCompensationPlot(const ICCompensationFile& table, const CTableFindings& findings,
                    const STexts& texts);

  /// The same table gives the same bytes.
  QByteArray toSvg() const;
  /// How many points no picture can show, since they are not finite numbers or too large.
  int skipped() const { return mSkipped.size(); }

 private:
  struct SPoint {
    int index;
    double position;
    double adjustment;
    bool isBad;
  };

  static std::vector<SPoint> drawablePoints(const ICCompensationFile& table,
                                            const CTableFindings& findings, QStringList& skipped);
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
  const CTableFindings& mFindings;
  const STexts mTexts;
  QStringList mSkipped;               // numbers of the points that cannot be drawn
  const std::vector<SPoint> mPoints;  // all others
  const std::optional<double> mMinimum;
  const std::optional<double> mMaximum;
  const CPlotFrame mFrame;
};
