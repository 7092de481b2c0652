#pragma once

#include "CParamVal.h"
#include "ktoParameter_export.h"

/// The range of positions in which a compensation table is valid, both ends included.
/// Values are the texts in the file, in the unit of the axis; initially 0.0 both.
class KTOPARAMETER_EXPORT CCompensationHeader {
 public:
  CCompensationHeader() = default;
  CCompensationHeader(const CCompensationHeader&) = default;
  CCompensationHeader& operator=(const CCompensationHeader&) = default;
  virtual ~CCompensationHeader();

  void setMinimum(const CParamVal& minimum) { mMinimum = minimum; }
  CParamVal minimum() const { return mMinimum; }
  void setMaximum(const CParamVal& maximum) { mMaximum = maximum; }
  CParamVal maximum() const { return mMaximum; }
  void clear() { *this = CCompensationHeader(); }

 private:
  CParamVal mMinimum = 0.0;
  CParamVal mMaximum = 0.0;
};
