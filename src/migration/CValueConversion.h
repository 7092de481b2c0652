#pragma once

#include "CParamDefItem.h"
#include "CRescaling.h"

#include <QCoreApplication>

#include <map>
#include <optional>

/// What a rule makes of the values of one parameter, or, Back, what they were.
class CValueConversion {
  Q_DECLARE_TR_FUNCTIONS(CParameterMigration)

 public:
  enum EOutcome { Kept, Converted, Rounded, Replaced, Undecided };
  struct SResult {
    EOutcome outcome = Kept;
    QString text;  ///< the new value; the old one when it is kept or nobody decided yet
    QString why;   ///< translated: what was done, or why it was not; empty when it is kept
  };

  /// The definitions before and after it: Back, the new one is the one before.
  CValueConversion(const SMigrationRule& rule, const CParamDefItem& from, const CParamDefItem& to,
                   CRescaling::EDirection direction);

  SResult convert(const QString& text) const;
  /// What it does to numbers, translated.
  const QString& description() const { return mDescription; }

 private:
  SResult rescaled(const QString& text) const;
  SResult renumbered(const QString& text) const;
  std::optional<QString> newNumber(const QString& text) const;
  quint64 newBitsOf(quint64 bits) const;
  void describe(const SMigrationRule& rule, bool isBack);

  NParamDef::EParamType mFrom;
  NParamDef::EParamType mTo;
  QString mUndecided;  // why no value is known; empty when one is
  QString mValue;      // null: none
  std::optional<CRescaling> mRescaling;
  std::map<qint64, qint64> mChoices;
  std::map<int, int> mBits;
  quint64 mInvertedBefore = 0;
  quint64 mInvertedAfter = 0;
  QString mDescription;
};
