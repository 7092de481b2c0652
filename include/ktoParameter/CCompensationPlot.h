#pragma once

#include "ktoParameterPlot_export.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

class ICCompensationFile;

/// The picture of a compensation table: its points, the linear course between them, its range and,
/// marked, the points that are wrong. It is a page of SVG in landscape A4, with fonts, lines and
/// colours that print well. The library libktoParameterPlot holds this class and nothing else.
///
///     const std::unique_ptr<ICCompensationFile> table(ICCompensationFile::create(nullptr));
///     if (table->load(fileName, "1.0") == ICCompensationFile::Ok)
///       widget.load(CCompensationPlot(*table, {title, "mm", "µm"}).toSvg());
///
/// It is drawn at once, so the table need not live as long as the picture. Any table can be drawn,
/// one without points or with wrong ones, too.
class KTOPARAMETERPLOT_EXPORT CCompensationPlot {
  Q_DECLARE_TR_FUNCTIONS(CCompensationPlot)

 public:
  /// Texts that the file does not have. No value is converted to a unit.
  struct STexts {
    QString title;           ///< empty: the comment in the Head of the file
    QString positionUnit;    ///< printed with the axis; may be empty
    QString adjustmentUnit;  ///< the same
  };

  explicit CCompensationPlot(const ICCompensationFile& table, const STexts& texts = {});

  /// The same table and texts give the same bytes. Words are translated, numbers are not.
  QByteArray toSvg() const { return mSvg; }
  /// The number of points that are not drawn: not finite numbers, or larger than 1e100.
  int skippedPoints() const { return mSkippedPoints; }

 private:
  QByteArray mSvg;
  int mSkippedPoints = 0;
};
