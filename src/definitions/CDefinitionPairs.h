#pragma once

#include "CKeyedMap.h"

#include <QStringList>
#include <QVector>

class CDefinitionLookup;

/// Which definitions of two sets are the same one: those of one name, and of the names that only
/// one set has those of one id.
class CDefinitionPairs {
 public:
  struct SPair {
    QString oldName;  ///< null when only the new set has it
    QString newName;  ///< null when only the old set has it

    const QString& name() const { return newName.isNull() ? oldName : newName; }
  };

  CDefinitionPairs(const CDefinitionLookup& oldSet, const CDefinitionLookup& newSet);

  /// By name().
  const QVector<SPair>& all() const { return mPairs; }
  /// The name under which the new set has a definition of the old one; null when it has not.
  QString newNameOf(const QString& oldName) const;

 private:
  QVector<SPair> mPairs;
  CKeyedMap<QString, QString> mNewNames;  // by old name
};
