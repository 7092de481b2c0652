#pragma once

#include "CDefinitionLookup.h"
#include "CKeyedMap.h"

/// A set of definitions, and what their references mean in it.
class CDefinitionSide {
 public:
  /// A unit is a parameter, whose value chooses it, or one of the names of all units.
  struct SUnit {
    QString parameter;  ///< null when it is no parameter
    QString name;       ///< when it is no parameter; of an unknown one its id, null for none

    bool operator==(const SUnit& other) const {
      return parameter == other.parameter && name == other.name;
    }
    const QString& text() const { return parameter.isNull() ? name : parameter; }
  };

  explicit CDefinitionSide(const ICParameterFile& file);

  CDefinitionLookup& lookup() { return mLookup; }
  SUnit unitOf(const CParamDefItem& definition);
  /// Whether the parameter names the unit of another one.
  bool isUnit(quint32 id) const { return NParamDef::isRealId(id) && mUnitIds.count(id) > 0; }
  /// The parameters that limit values, each once, by name; others limit nothing.
  QStringList limitNames(const QList<quint32>& ids);
  /// The parameter that decides about the visibility; of an unknown one its id, null for none.
  QString visibleName(const CParamDefItem& definition);

 private:
  CDefinitionLookup mLookup;
  CParamDefItem mAllUnits;
  CKeyedSet<quint32> mUnitIds;
};
