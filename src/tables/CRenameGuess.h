#pragma once

#include "CParamDefItem.h"

#include <QString>

#include <map>
#include <set>
#include <utility>
#include <vector>

/// Which of the definitions that only the new set has may be one that only the old set has, under
/// another name and id: one of the same type and unit that says the same about itself, or whose
/// name is a longer or shorter form of the old one.
class CRenameGuess {
 public:
  /// Whether one name is a short form of the other.
  static bool areAlike(const QString& a, const QString& b);

  /// A definition that was added or removed, and the name of its unit.
  void addNew(const CParamDefItem& definition, const QString& unit);
  void addOld(const CParamDefItem& definition, const QString& unit);
  /// Null when none is likely, or several are. What was found is not found again.
  QString take(const CParamDefItem& removed, const QString& unit);

 private:
  using CKind = std::pair<NParamDef::EParamType, QString>;  // type and unit

  using CHint = std::pair<CKind, QString>;

  QString byHint(const CHint& hint) const;
  QString byName(const CKind& kind, const QString& name) const;

  std::map<CHint, QString> mByHint;  // null where several have the hint
  std::map<CHint, int> mOldHints;    // how many definitions have it
  struct SName {
    QString name;
    QString letters;  // in lower case
  };
  std::map<CKind, std::map<QChar, std::vector<SName>>> mByName;  // by first letter
  std::set<QString> mTaken;
};
