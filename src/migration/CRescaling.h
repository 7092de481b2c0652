#pragma once

#include "NParamDef.h"
#include "SMigrationRule.h"

#include <QString>

#include <memory>

/// Computes new = old * factor + offset on decimal texts, exactly, or back from new to old: no
/// number passes through a double.
///
/// An integer type gives an integer: hexadecimal where the text was, decimal where it was, and as
/// the tool chain writes the type where the text was a floating point number. A floating point
/// number keeps the decimals of the text and those that the factor shifts: a power of ten shifts
/// the point, another factor of k decimals adds k, and the way back takes the same away; none is
/// lost that the exact number needs. A text with an exponent gives one. A result that has no end
/// is rounded to 17 significant digits, or to the decimals of the text where these are more.
class CRescaling {
 public:
  enum EDirection { Forward, Back };
  enum EOutcome {
    NoNumber,      ///< the text is no number of its type that has an end, or one of too many digits
    Exact,         ///< `text` is the result
    Rounded,       ///< likewise, rounded as the rule says
    NeedsRounding  ///< and the rule forbids it
  };
  struct SResult {
    EOutcome outcome = NoNumber;
    QString text;  ///< null without a result
  };

  /// Digits of a number in a text or a rule, and the largest exponent.
  static constexpr int kMostDigits = 1000;

  /// Whether a text is a factor or an offset: a decimal number, or a fraction of two.
  static bool isFraction(const QString& text);

  /// Texts of one type become texts of the other; Back, `from` is the new definition's type. The
  /// factor and the offset are fractions, and the factor is not 0; else nothing is a number.
  CRescaling(const SRescaling& rule, NParamDef::EParamType from, NParamDef::EParamType to,
             EDirection direction);
  ~CRescaling();
  CRescaling(CRescaling&&) noexcept;
  CRescaling& operator=(CRescaling&&) noexcept;
  Q_DISABLE_COPY(CRescaling)

  SResult convert(const QString& text) const;

 private:
  struct SData;
  std::unique_ptr<SData> d;
};
