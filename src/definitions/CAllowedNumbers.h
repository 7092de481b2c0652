#pragma once

#include "CExactNumber.h"
#include "CParamDefItem.h"

#include <array>
#include <map>
#include <optional>

/// Names of numbers, as values are shown and typed by them.
struct SChoiceNames {
  std::map<qint64, QString> names;    ///< the first of each number that is not empty
  std::map<QString, qint64> numbers;  ///< the first of each name

  void add(const QList<NParamDef::SNamedI64Value>& choices);
  bool isEmpty() const { return names.empty(); }
  bool operator==(const SChoiceNames& other) const {
    return names == other.names && numbers == other.numbers;
  }
};

/// The numbers that a definition allows, as CParamValueRules judges them. Parameters that limit it,
/// of which no set of definitions knows the values, can only make them fewer.
class CAllowedNumbers {
 public:
  enum EList : size_t { Enumeration, RadioButtons, States };

  explicit CAllowedNumbers(const CParamDefItem& definition);

  NParamDef::EParamType type() const { return mType; }
  const SChoiceNames& list(EList list) const { return mLists.at(list); }
  const SChoiceNames& all() const { return mAll; }
  /// Whether every number has to be in the list; of any list without one.
  bool isClosed(EList list) const;
  bool isClosed() const;
  /// Whether a closed list keeps all that is allowed among these choices.
  bool areAllIn(const SChoiceNames& choices) const;

  /// The definition's own limits; nothing for one that limits nothing.
  const std::optional<CExactNumber>& minimum() const { return mMinimum; }
  const std::optional<CExactNumber>& maximum() const { return mMaximum; }
  /// Whether a new minimum or maximum allows all of these numbers.
  bool areAllFrom(const CExactNumber& minimum) const;
  bool areAllUpTo(const CExactNumber& maximum) const;
  /// Whether all of these numbers, however they are written, are the same numbers of this type.
  bool areAllOf(NParamDef::EParamType type) const;

 private:
  struct SRange {
    CExactNumber lowest;
    CExactNumber highest;
  };
  static std::optional<SRange> rangeOf(NParamDef::EParamType type);
  SRange withinLimits(const SRange& range) const;
  std::optional<SRange> ofChoices(const SRange& range) const;

  NParamDef::EParamType mType;
  bool mIsEditable;
  std::array<SChoiceNames, 3> mLists;
  SChoiceNames mAll;
  std::optional<CExactNumber> mMinimum;
  std::optional<CExactNumber> mMaximum;
};
