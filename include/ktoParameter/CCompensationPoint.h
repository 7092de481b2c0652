#pragma once

#include "CParamVal.h"
#include "ktoParameter_export.h"

/// A point of a compensation table: a position and the adjustment to apply there.
/// Values are the texts in the file, in the unit of the axis; initially 0.0 both.
class KTOPARAMETER_EXPORT CCompensationPoint {
 public:
  CCompensationPoint() = default;
  CCompensationPoint(const CCompensationPoint&) = default;
  CCompensationPoint& operator=(const CCompensationPoint&) = default;
  virtual ~CCompensationPoint();

  void setPosition(const CParamVal& position) { mPosition = position; }
  CParamVal position() const { return mPosition; }
  void setAdjustment(const CParamVal& adjustment) { mAdjustment = adjustment; }
  CParamVal adjustment() const { return mAdjustment; }
  void clear() { *this = CCompensationPoint(); }

 private:
  CParamVal mPosition = 0.0;
  CParamVal mAdjustment = 0.0;
};
