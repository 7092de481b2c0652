#pragma once

#include "CExactNumber.h"
#include "CParamDefItem.h"

#include <QCoreApplication>
#include <QStringList>

#include <optional>

/// The named bits of a definition, as values are shown and typed by them: "DI4 | bit 7". "bit 7" is
/// a bit that is set, with a name or without one.
class CBitNames {
  Q_DECLARE_TR_FUNCTIONS(CBitNames)

 public:
  explicit CBitNames(const CParamDefItem& definition);

  bool isEmpty() const { return mBits.isEmpty(); }
  /// The names of the active bits.
  QStringList active(const CExactNumber& number) const;
  /// The positions of the set bits without a name, ascending.
  QList<int> others(const CExactNumber& number) const;
  /// Both, as they are joined in one text.
  QStringList all(const CExactNumber& number) const;
  /// The bits of the type that have no name; 0 without named bits.
  quint64 unnamed() const { return mUnnamed; }

  /// The number in which these bits are active and other named ones are not; nothing when there is
  /// none, with the reason unless the text may be something else than bits. Blanks around a name do
  /// not count, and the first bit of a name is the one that is meant.
  std::optional<CExactNumber> read(const QString& text, QString& problem) const;

 private:
  class CIndex;

  CExactNumber numberOf(const QList<NParamDef::SBitValue>& active) const;

  NParamDef::EParamType mType;
  QList<NParamDef::SBitValue> mBits;
  quint64 mUnnamed;
};
