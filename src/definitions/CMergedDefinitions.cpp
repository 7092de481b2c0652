#include "CMergedDefinitions.h"

#include "ICParameterFile.h"
#include "NDefinitionFields.h"

#include <algorithm>
#include <utility>

using NDefinitionFields::areEqual;

CMergedDefinitions::CMergedDefinitions(const ICParameterFile& base, const ICParameterFile& ours,
                                       const ICParameterFile& theirs) {
  read(base, &SEntry::base);
  read(ours, &SEntry::ours);
  read(theirs, &SEntry::theirs);
}

void CMergedDefinitions::read(const ICParameterFile& file,
                              std::optional<CParamDefItem> SEntry::*side) {
  for (const QString& name : file.defNames()) mEntries[name].*side = file.paramDef(name);
}

void CMergedDefinitions::run() {
  for (auto& [name, entry] : mEntries) settle(entry);
  settleIds();
}

void CMergedDefinitions::settle(SEntry& entry) {
  if (entry.ours && entry.theirs) {
    entry.result = NDefinitionFields::merged(entry.base ? &*entry.base : nullptr, *entry.ours,
                                             *entry.theirs, mConflicts);
  } else if (!entry.base) {
    entry.result = entry.ours ? entry.ours : entry.theirs;
  } else if (entry.ours || entry.theirs) {
    settleRemoved(entry);
  }
}

/// One side removed it. Ours stays when the other side changed it.
void CMergedDefinitions::settleRemoved(SEntry& entry) {
  const CParamDefItem& kept = entry.ours ? *entry.ours : *entry.theirs;
  if (areEqual(*entry.base, kept)) return;
  entry.result = entry.ours;
  SMergeConflict conflict;
  conflict.subject = SMergeConflict::Definition;
  conflict.kind = entry.ours ? SMergeConflict::TheirsRemoved : SMergeConflict::OursRemoved;
  conflict.name = kept.name();
  conflict.base = kept.name();
  (entry.ours ? conflict.ours : conflict.theirs) = kept.name();
  mConflicts.append(conflict);
}

/// Ids of ours go before those of theirs, among which there are no doubles either. What does not
/// get its id keeps that of ours, which may take it from another one in turn.
void CMergedDefinitions::settleIds() {
  mOwners.clear();
  for (auto& [name, entry] : mEntries)
    if (entry.result && !entry.hasTheirId()) placed(entry);
  for (auto& [name, entry] : mEntries) {
    if (!entry.hasTheirId()) continue;
    SEntry* refused = placed(entry);
    while (refused != nullptr) {
      SEntry& loser = *refused;
      keepOurId(loser, *mOwners.at(loser.result->id())->result);
      refused = loser.result ? placed(loser) : nullptr;
    }
  }
}

/// Gives an entry its id. Returns whichever does not get it then: itself, one whose id is that of
/// theirs, or none.
CMergedDefinitions::SEntry* CMergedDefinitions::placed(SEntry& entry) {
  if (!NParamDef::isRealId(entry.result->id())) return nullptr;
  SEntry*& owner = mOwners[entry.result->id()];
  if (owner != nullptr && entry.hasTheirId()) return &entry;
  return std::exchange(owner, &entry);
}

/// One that only theirs has is left out.
void CMergedDefinitions::keepOurId(SEntry& entry, const CParamDefItem& owner) {
  SMergeConflict conflict;
  conflict.subject = SMergeConflict::Id;
  conflict.kind = SMergeConflict::BothAdded;
  conflict.name = entry.result->name();
  conflict.ours = owner.name();
  conflict.theirs = entry.result->name();
  mConflicts.append(conflict);
  if (entry.ours)
    entry.result->setId(entry.ours->id());
  else
    entry.result.reset();
}

CParamDefinitions CMergedDefinitions::definitions() const {
  CParamDefinitions all;
  for (const auto& [name, entry] : mEntries)
    if (entry.result) all.emplace(name, *entry.result);
  return all;
}

bool CMergedDefinitions::isChanged() const {
  return std::any_of(mEntries.begin(), mEntries.end(), [](const auto& each) {
    const SEntry& entry = each.second;
    return entry.result.has_value() != entry.ours.has_value() ||
           (entry.result && !areEqual(*entry.result, *entry.ours));
  });
}
