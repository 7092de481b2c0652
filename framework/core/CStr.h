#pragma once

#include "ktoFramework_export.h"

#include <QString>

#include <optional>
#include <string_view>

/// Numbers and revisions from text and back. Nothing here depends on the process locale.
///
/// Every conversion ignores blanks (space, tab, CR, LF) around the text, takes the whole rest or
/// fails, and leaves its output untouched when it fails. All functions are thread-safe.
class KTOFRAMEWORK_EXPORT CStr {
 public:
  CStr() = delete;

  /// Integers of exactly the width of `value`; a number that does not fit fails. One leading "+"
  /// is accepted, a leading "-" only by the signed ones. In base 0 a "0x" or "0X" after the sign
  /// means hexadecimal ("-0x10" is -16) and everything else is decimal ("010" is 10). Base 16
  /// accepts the prefix too. Other bases are 2 to 36; any further one fails.
  static bool strToU8(const QString& text, unsigned char& value, int base = 0);
  static bool strToU16(const QString& text, unsigned short& value, int base = 0);
  static bool strToU32(const QString& text, unsigned int& value, int base = 0);
  static bool strToU64(const QString& text, unsigned long long& value, int base = 0);
  static bool strToI8(const QString& text, signed char& value, int base = 0);
  static bool strToI16(const QString& text, short& value, int base = 0);
  static bool strToI32(const QString& text, int& value, int base = 0);
  static bool strToI64(const QString& text, long long& value, int base = 0);

  /// A decimal floating point number with one optional sign, or "inf" or "nan" in any case.
  /// Denormal numbers are read. Out of range fails in both directions: "1e400", and "1e-400",
  /// which is not 0 and would become 0. Only up to 1.79769313486232e308, which the largest number
  /// is when it is written with 15 digits, it is read as the largest number.
  static bool strToF64(const QString& text, double& value);

  /// The same from UTF-8 in base 0, for all types above.
  template <class T>
  static bool toNumber(std::string_view utf8, T& value);

  /// "major.minor" or "major", each a decimal number from 0 to 65535 without a sign. The result
  /// holds major in its upper and minor in its lower 16 bits; "08.15" is 8.15.
  static bool stringToRevision(const QString& text, unsigned int& revision);
  /// Whether two revisions have the same major number; nothing when a text is not a revision.
  static std::optional<bool> haveSameMainNumber(const QString& a, const QString& b);
  /// The text "major.minor" of a revision, which stringToRevision() reads back.
  static QString revisionToString(unsigned int revision);

  /// The file name of the logfile called `name`: "name.log", where "_" replaces every character
  /// other than a letter, a digit, "-", "_" and ".". Empty for an empty name.
  static QString createLogFileName(const QString& name);
};
