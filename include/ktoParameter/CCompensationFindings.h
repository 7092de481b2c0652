#pragma once

#include "ktoParameter_export.h"

#include <QCoreApplication>
#include <QMap>
#include <QStringList>

class ICCompensationFile;

/// What is wrong with a compensation table, in words to show to a user: all that
/// ICCompensationFile::checkAll() finds, and also texts that are not numbers and points that lack a
/// position or an adjustment.
///
///     const CCompensationFindings findings(*table);
///     for (const QString& problem : findings.ofRange()) warn(problem);
///
/// The table is read once, when the object is made.
class KTOPARAMETER_EXPORT CCompensationFindings {
  Q_DECLARE_TR_FUNCTIONS(CCompensationFindings)

 public:
  explicit CCompensationFindings(const ICCompensationFile& table);

  bool isEmpty() const { return mRange.isEmpty() && mPoints.isEmpty(); }
  /// Problems of the range in the header; translated, without a full stop.
  const QStringList& ofRange() const { return mRange; }
  /// The same for each wrong point, by its index from 0.
  const QMap<int, QStringList>& ofPoints() const { return mPoints; }
  bool isBad(int index) const { return mPoints.contains(index); }

 private:
  QStringList mRange;
  QMap<int, QStringList> mPoints;
};
