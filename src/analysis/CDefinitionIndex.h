#pragma once

#include "CNameMap.h"
#include "CValueRules.h"

#include <QStringList>

#include <deque>
#include <utility>
#include <vector>

class ICParameterFile;

/// The definitions of a file by id as well, with the rules of those that were asked for.
class CDefinitionIndex {
 public:
  explicit CDefinitionIndex(const ICParameterFile& file) : mFile(file) {}

  QStringList names() const;                      ///< by id, then by name
  CParamDefItem find(const QString& name) const;  ///< nameless for an unknown one
  CParamDefItem find(quint32 id);                 ///< likewise; none has "no id"
  /// The first name of an id that is one.
  QString nameOf(quint32 id);
  /// A definition with its rules, which are made when they are first asked for.
  struct SRuled {
    QString name;
    quint32 id;
    CValueRules rules;
  };
  const SRuled* ruled(const QString& name);  ///< null for an unknown name

  static bool isId(quint32 id) { return id != 0 && id != NParamDef::NO_ID; }

 private:
  void readNamesById();
  size_t addRuled(const QString& name);

  const ICParameterFile& mFile;
  bool mHasNamesById = false;
  std::vector<std::pair<quint32, QString>> mNamesById;  // ascending, the first name of each id
  std::deque<SRuled> mRuled;                            // in the order in which they were asked for
  CNameMap<size_t> mPositions;
  size_t mNext = 0;  // behind the last one asked for: sub-devices hold the same in the same order
};
