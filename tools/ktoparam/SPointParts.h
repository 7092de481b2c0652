#pragma once

#include <QString>
#include <QVector>

/// What a point has in its file. The library reads what is missing as "0.0", and takes the
/// adjustments of the first point's format only, so a table alone does not tell.
struct SPointParts {
  bool position = false;
  bool adjustment = false;  ///< in the current format, "ADJUST"
  bool error = false;       ///< in the old format, "ERROR"

  /// Of all points of a compensation file that the library has loaded.
  static QVector<SPointParts> read(const QString& fileName);
};
