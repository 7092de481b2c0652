#pragma once

#include "CParamDefFile.h"
#include "SMergeConflict.h"

#include <map>
#include <optional>
#include <vector>

class ICParameterFile;

/// What a merge of definitions gives: what becomes of each name, and then of ids that two
/// definitions would share.
class CMergedDefinitions {
 public:
  CMergedDefinitions(const ICParameterFile& base, const ICParameterFile& ours,
                     const ICParameterFile& theirs);

  void run();
  const CMergeConflicts& conflicts() const { return mConflicts; }
  CParamDefinitions definitions() const;
  bool isChanged() const;  ///< whether they are not those of ours

 private:
  /// A definition as the sides have it, and what becomes of it; nothing where there is none.
  struct SEntry {
    std::optional<CParamDefItem> base;
    std::optional<CParamDefItem> ours;
    std::optional<CParamDefItem> theirs;
    std::optional<CParamDefItem> result;

    bool hasTheirId() const { return result && (!ours || result->id() != ours->id()); }
  };

  void read(const ICParameterFile& file, std::optional<CParamDefItem> SEntry::*side);
  void settle(SEntry& entry);
  void settleRemoved(SEntry& entry);
  void settleIds();
  SEntry* placed(SEntry& entry);
  void keepOurId(SEntry& entry, const CParamDefItem& owner);

  std::map<QString, SEntry> mEntries;
  std::map<quint32, SEntry*> mOwners;  ///< by id
  CMergeConflicts mConflicts;
};
