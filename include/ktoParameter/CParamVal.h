#pragma once

#include "CStr.h"
#include "ktoParameter_export.h"

#include <QString>

/// The value of a parameter, kept as the text that is in the file.
///
/// Unsigned numbers are written with "0x" and lowercase hexadecimal digits, signed ones in decimal,
/// floating point numbers with 15 significant digits; a value made from a text keeps it unchanged.
/// Numbers are read from the text when they are asked for; blanks around the number are ignored.
/// For integers "0x" means hexadecimal and everything else is decimal. Floating point numbers are
/// decimal, "inf" or "nan": "0x10" is not one. So an unsigned value has no number as a double.
/// Copies share the text.
///
/// @snippet usage.cpp CParamVal
class KTOPARAMETER_EXPORT CParamVal {
 public:
  CParamVal() = default;  ///< a null text
  CParamVal(const QString& text);
  CParamVal(const char* latin1);  ///< null gives a null text
  CParamVal(unsigned char number);
  CParamVal(unsigned short number);
  CParamVal(unsigned int number);
  CParamVal(unsigned long long number);
  CParamVal(signed char number);
  CParamVal(short number);
  CParamVal(int number);
  CParamVal(long long number);
  CParamVal(double number);  ///< of more digits than 15 the rest is lost

  bool isEmpty() const { return mText.isEmpty(); }  ///< null or without a character
  bool isNull() const { return mText.isNull(); }    ///< no value at all; "" is not null
  QString asStr() const { return mText; }

  /// Each reads a number of exactly its type. False when the text is not a number or does not fit;
  /// the output is then untouched.
  bool value(unsigned char& number) const { return CStr::strToU8(mText, number); }
  bool value(unsigned short& number) const { return CStr::strToU16(mText, number); }
  bool value(unsigned int& number) const { return CStr::strToU32(mText, number); }
  bool value(unsigned long long& number) const { return CStr::strToU64(mText, number); }
  bool value(signed char& number) const { return CStr::strToI8(mText, number); }
  bool value(short& number) const { return CStr::strToI16(mText, number); }
  bool value(int& number) const { return CStr::strToI32(mText, number); }
  bool value(long long& number) const { return CStr::strToI64(mText, number); }
  bool value(double& number) const { return CStr::strToF64(mText, number); }

  /// The number, or 0 when value() would fail.
  unsigned char asU8() const { return numberOrZero<unsigned char>(); }
  unsigned short asU16() const { return numberOrZero<unsigned short>(); }
  unsigned int asU32() const { return numberOrZero<unsigned int>(); }
  unsigned long long asU64() const { return numberOrZero<unsigned long long>(); }
  signed char asI8() const { return numberOrZero<signed char>(); }
  short asI16() const { return numberOrZero<short>(); }
  int asI32() const { return numberOrZero<int>(); }
  long long asI64() const { return numberOrZero<long long>(); }
  double asF64() const { return numberOrZero<double>(); }

  operator QString() const { return mText; }
  operator unsigned char() const { return asU8(); }
  operator unsigned short() const { return asU16(); }
  operator unsigned int() const { return asU32(); }
  operator unsigned long long() const { return asU64(); }
  operator signed char() const { return asI8(); }
  operator short() const { return asI16(); }
  operator int() const { return asI32(); }
  /// Converts as asI8() does, on purpose: 0 outside -128 to 127. Use asI64() for the whole range.
  operator long long() const { return asI8(); }
  operator double() const { return asF64(); }

  /// Compares the texts: "0x10" and "16" differ; a null and an empty text are equal.
  bool operator==(const CParamVal& other) const { return mText == other.mText; }
  bool operator!=(const CParamVal& other) const { return mText != other.mText; }

 private:
  template <typename T>
  T numberOrZero() const {
    T number = 0;
    value(number);
    return number;
  }

  QString mText;
};

Q_DECLARE_TYPEINFO(CParamVal, Q_MOVABLE_TYPE);
