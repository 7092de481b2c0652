#pragma once

#include "CParamVal.h"
#include "NParamDef.h"

#include <optional>
#include <string_view>

/// A number of any parameter type, so that values and limits of different types are compared
/// exactly: no integer passes through a double, which would round it.
class CExactNumber {
 public:
  explicit CExactNumber(quint64 number) : mMagnitude(number) {}
  explicit CExactNumber(qint64 number);
  explicit CExactNumber(double number);

  /// Nothing when the text is not a number of the type, or the type has none.
  static std::optional<CExactNumber> of(const CParamVal& value, NParamDef::EParamType type);
  static std::optional<CExactNumber> of(std::string_view utf8, NParamDef::EParamType type);
  static bool isNumberType(NParamDef::EParamType type);
  static bool isUnsigned(NParamDef::EParamType type);
  /// Bits of an integer type, 0 for every other one.
  static int widthOf(NParamDef::EParamType type);
  static quint64 allBits(NParamDef::EParamType type);  ///< the same as a mask

  bool isNan() const;
  std::optional<qint64> asI64() const;  ///< nothing when it is not exactly that
  quint64 bits() const;                 ///< of an integer, a negative one as two's complement
  QString decimal() const;
  /// An integer, as the tool chain writes this type.
  CParamVal written(NParamDef::EParamType type) const;

  /// False when one of them is "nan".
  friend bool operator<(const CExactNumber& a, const CExactNumber& b);

 private:
  bool isBelowReal(double real) const;  // both of an integer
  bool isAboveReal(double real) const;

  // An integer is sign and magnitude. mReal counts for a number that is none: a fraction, one that
  // has more than 64 bits, or "nan".
  quint64 mMagnitude = 0;
  bool mIsNegative = false;
  bool mIsReal = false;
  double mReal = 0;
};
