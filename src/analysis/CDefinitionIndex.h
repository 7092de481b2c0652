#pragma once

#include "CValueRules.h"

#include <QHash>
#include <QStringList>

#include <unordered_map>

class ICParameterFile;

/// The definitions of a file by id as well, with the rules of those that were asked for.
class CDefinitionIndex {
 public:
  explicit CDefinitionIndex(const ICParameterFile& file);

  const QStringList& names() const { return mNames; }  ///< by id, then by name
  CParamDefItem find(const QString& name) const;       ///< nameless for an unknown one
  CParamDefItem find(quint32 id) const;                ///< likewise; no definition has "no id"
  /// The first name of an id that is one.
  QString nameOf(quint32 id) const;
  const CValueRules& rulesOf(const CParamDefItem& definition);

  static bool isId(quint32 id) { return id != 0 && id != NParamDef::NO_ID; }

 private:
  const ICParameterFile& mFile;
  const QStringList mNames;
  QHash<quint32, QString> mNameById;
  std::unordered_map<QString, CValueRules> mRules;
};
