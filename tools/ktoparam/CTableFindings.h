#pragma once

#include "ICCompensationFile.h"

#include <QMap>
#include <QStringList>

/// What is wrong with a compensation table, in words: all that the library's check of the whole
/// table finds, and beyond that texts that are no numbers and points that lack something.
class CTableFindings {
 public:
  explicit CTableFindings(const ICCompensationFile& table);

  bool isEmpty() const { return mRange.isEmpty() && mPoints.isEmpty(); }
  const QStringList& ofRange() const { return mRange; }
  /// By the point's index.
  const QMap<int, QStringList>& ofPoints() const { return mPoints; }
  bool isBad(int index) const { return mPoints.contains(index); }
  QString ofPoint(int index) const;  ///< in one text; empty for a good point

 private:
  void checkRange();
  void setHighest(int index, double position);
  QStringList problems(int index);
  QStringList rangeProblems(int index) const;
  QString orderProblem(int index);
  double position(int index) const { return mTable.point(index).position().asF64(); }

  const ICCompensationFile& mTable;
  const CCompensationHeader mHeader;
  // Read and shown once, since the texts may be long and the points many.
  const double mMinimum;
  const double mMaximum;
  const QString mMinimumText;
  const QString mMaximumText;
  bool mHasNumbers = false;  // the range is made of finite numbers
  int mHighest = -1;         // the point with the highest position among those checked
  double mHighestPosition = 0;
  QString mHighestText;  // null until it is asked for
  QStringList mRange;
  QMap<int, QStringList> mPoints;
};
