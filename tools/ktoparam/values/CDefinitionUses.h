#pragma once

#include <QStringList>

#include <map>

class CLabels;
class CParamDefItem;
class ICParameterFile;

/// Names of the definitions that refer to one, in the order of the file, as CLabels writes them.
struct SDefinitionUse {
  QStringList minimumOf;     ///< its value is a minimum of theirs
  QStringList maximumOf;     ///< likewise
  QStringList visibilityOf;  ///< its value tells whether they are visible
  QStringList unitOf;        ///< its choices are the names of their unit
};

/// Tells of all definitions of a file who refers to them. Made once, in time that grows with the
/// references.
class CDefinitionUses {
 public:
  /// Both must live as long as this.
  CDefinitionUses(const ICParameterFile& file, const CLabels& labels);

  SDefinitionUse of(const CParamDefItem& definition) const;

 private:
  QStringList unitsNamedBy(const CParamDefItem& units) const;

  const ICParameterFile& mFile;
  std::map<unsigned int, SDefinitionUse> mById;  // of all ids that are referred to
};
