#pragma once

#include "CKeyedMap.h"
#include "CParamValueRules.h"

#include <QStringList>

#include <utility>
#include <vector>

class ICParameterFile;

/// The definitions of a file by name and by id, and what they demand.
class CDefinitionLookup {
 public:
  explicit CDefinitionLookup(const ICParameterFile& file) : mFile(file) {}

  QStringList names() const;                      ///< by id, then by name
  CParamDefItem find(const QString& name) const;  ///< nameless for an unknown one
  /// Likewise; none has "no id". The same one may be the limit of thousands, and its name long.
  CParamDefItem find(quint32 id);
  /// The first name of an id that is one.
  QString nameOf(quint32 id);
  QString shortNameOf(quint32 id);  ///< as a message quotes it
  CParamValueRules rulesOf(const CParamDefItem& definition);

  static bool isId(quint32 id) { return id != 0 && id != NParamDef::NO_ID; }

 private:
  void readNamesById();

  const ICParameterFile& mFile;
  bool mHasNamesById = false;
  std::vector<std::pair<quint32, QString>> mNamesById;  // ascending, the first name of each id
  CKeyedMap<quint32, QString> mShortNames;              // that were asked for
  CKeyedMap<quint32, CParamDefItem> mFound;             // likewise
};
