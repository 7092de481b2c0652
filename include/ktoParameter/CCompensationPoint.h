#pragma once

#include "CParamVal.h"
#include "ktoParameter_export.h"

#include <QFlags>

/// A point of a compensation table: a position and the adjustment to apply there.
/// Values are the texts in the file, in the unit of the axis; initially 0.0 both.
///
/// @snippet usage.cpp ICCompensationFile
class KTOPARAMETER_EXPORT CCompensationPoint {
 public:
  /// What was amiss with a point when it was read from a file.
  enum EGap {
    NoPosition = 1,      ///< 0.0 was taken
    NoAdjustment = 2,    ///< 0.0 was taken; none in the format that the first point tells
    OtherAdjustment = 4  ///< there is an adjustment in the other format, which was not read
  };
  Q_DECLARE_FLAGS(EGaps, EGap)

  CCompensationPoint() = default;
  CCompensationPoint(const CCompensationPoint&) = default;
  CCompensationPoint& operator=(const CCompensationPoint&) = default;
  virtual ~CCompensationPoint();

  void setPosition(const CParamVal& position) { mPosition = position; }
  CParamVal position() const { return mPosition; }
  void setAdjustment(const CParamVal& adjustment) { mAdjustment = adjustment; }
  CParamVal adjustment() const { return mAdjustment; }
  /// None for a point that was not read from a file; setting a value changes nothing here.
  EGaps gaps() const { return mGaps; }
  void setGaps(EGaps gaps) { mGaps = gaps; }
  void clear() { *this = CCompensationPoint(); }

 private:
  CParamVal mPosition = 0.0;
  CParamVal mAdjustment = 0.0;
  EGaps mGaps;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(CCompensationPoint::EGaps)
