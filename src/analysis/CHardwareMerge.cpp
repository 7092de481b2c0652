#include "CHardwareMerge.h"

#include "CSubDeviceMerge.h"
#include "NThreeWay.h"

#include <algorithm>
#include <set>

namespace {

bool isSame(const CParamTreeNodeImpl& a, const CParamTreeNodeImpl& b) {
  if (a.name() != b.name() || a.id() != b.id() || a.childCount() != b.childCount() ||
      a.value() != b.value()) {
    return false;
  }
  for (int i = 0; i < a.childCount(); ++i)
    if (!isSame(*a.childNode(i), *b.childNode(i))) return false;
  return true;
}

bool isSame(const CSubDeviceTree& a, const CSubDeviceTree& b) {
  return isSame(*a.root(), *b.root());
}

bool isSame(const CSubDeviceTrees& a, const CSubDeviceTrees& b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](const auto& x, const auto& y) {
           return x.first == y.first && isSame(x.second, y.second);
         });
}

CSubDeviceTree copyOf(const CSubDeviceTree& tree) {
  return tree.clone();
}

CSubDeviceTrees copyOf(const CSubDeviceTrees& trees) {
  CSubDeviceTrees copy;
  for (const auto& [subDevId, tree] : trees) copy.emplace(subDevId, tree.clone());
  return copy;
}

template <typename K, typename V>
const V* find(const std::map<K, V>* map, const K& key) {
  if (map == nullptr) return nullptr;
  const auto found = map->find(key);
  return found == map->end() ? nullptr : &found->second;
}

/// Of all hardware ids, since they share the types and names.
std::set<quint8> subDeviceIds(const CParameterFileBaseImpl& file) {
  std::set<quint8> ids;
  for (const auto& [hardwareId, trees] : file.allTrees())
    for (const auto& entry : trees) ids.insert(entry.first);
  return ids;
}

}  // namespace

void CHardwareMerge::run() {
  const bool hasActiveId = mOurs.containsHardwareId(mOurs.hardwareId());
  // Merging the trees may bring sub-devices, which then have no type and name of their own.
  const std::set<quint8> inBase = subDeviceIds(mBase);
  const std::set<quint8> inOurs = subDeviceIds(mOurs);
  for (const quint8 subDevId : subDeviceIds(mTheirs)) {
    mergeType(subDevId, inBase.count(subDevId) > 0, inOurs.count(subDevId) > 0);
    mergeName(subDevId, inBase.count(subDevId) > 0, inOurs.count(subDevId) > 0);
  }
  mergeMap(&mBase.allTrees(), mOurs.allTrees(), mTheirs.allTrees());
  if (hasActiveId && !mOurs.containsHardwareId(mOurs.hardwareId()) && !mOurs.allTrees().empty())
    mOurs.selectHardwareId(mOurs.allTrees().begin()->first);
}

template <typename K, typename V>
void CHardwareMerge::mergeMap(const std::map<K, V>* base, std::map<K, V>& ours,
                              const std::map<K, V>& theirs) {
  std::set<K> keys;
  for (const auto& entry : ours) keys.insert(entry.first);
  for (const auto& entry : theirs) keys.insert(entry.first);
  for (const K& key : keys) {
    enter(key);
    mergeOne(key, find(base, key), ours, find(&theirs, key));
    leave(key);
  }
}

template <typename K, typename V>
void CHardwareMerge::mergeOne(const K& key, const V* base, std::map<K, V>& ours, const V* theirs) {
  const auto own = ours.find(key);
  if (own == ours.end()) {
    if (base == nullptr) {
      ours.emplace(key, copyOf(*theirs));
      mOurs.setHwIdChanged(mHardwareId);
    } else if (!isSame(*base, *theirs)) {
      addRemoval(SMergeConflict::OursRemoved);
    }
  } else if (theirs != nullptr) {
    mergeBoth(base, own->second, *theirs);
  } else if (base != nullptr) {
    if (isSame(*base, own->second)) {
      ours.erase(own);
      mOurs.setHwIdChanged(mHardwareId);
    } else {
      addRemoval(SMergeConflict::TheirsRemoved);
    }
  }
}

void CHardwareMerge::mergeBoth(const CSubDeviceTrees* base, CSubDeviceTrees& ours,
                               const CSubDeviceTrees& theirs) {
  mergeMap(base, ours, theirs);
}

void CHardwareMerge::mergeBoth(const CSubDeviceTree* base, CSubDeviceTree& ours,
                               const CSubDeviceTree& theirs) {
  if ((base != nullptr && isSame(*base, theirs)) || isSame(ours, theirs)) return;
  CSubDeviceMerge merge(base, ours, theirs, mOurs);
  CSubDeviceTree merged = merge.run();
  for (SMergeConflict conflict : merge.conflicts()) {
    conflict.hardwareId = mHardwareId;
    conflict.subDevId = mSubDevId;
    mConflicts.append(conflict);
  }
  if (!isSame(merged, ours)) {
    ours = std::move(merged);
    mOurs.setHwIdChanged(mHardwareId);
  }
}

void CHardwareMerge::enter(const QString& hardwareId) {
  mHardwareId = hardwareId;
}

void CHardwareMerge::enter(quint8 subDevId) {
  mSubDevId = subDevId;
}

/// One without sub-devices could not be read again.
void CHardwareMerge::leave(const QString& hardwareId) {
  const auto trees = mOurs.allTrees().find(hardwareId);
  if (trees != mOurs.allTrees().end() && trees->second.empty()) mOurs.allTrees().erase(trees);
}

void CHardwareMerge::leave(quint8) {
  mSubDevId = SMergeConflict::kNoSubDevice;
}

void CHardwareMerge::addRemoval(SMergeConflict::EKind kind) {
  const bool isSubDevice = mSubDevId != SMergeConflict::kNoSubDevice;
  const QString text = isSubDevice ? QString::number(mSubDevId) : mHardwareId;
  SMergeConflict conflict;
  conflict.subject = isSubDevice ? SMergeConflict::SubDevice : SMergeConflict::HardwareId;
  conflict.kind = kind;
  conflict.hardwareId = mHardwareId;
  conflict.subDevId = mSubDevId;
  conflict.base = text;
  (kind == SMergeConflict::OursRemoved ? conflict.theirs : conflict.ours) = text;
  mConflicts.append(conflict);
}

void CHardwareMerge::mergeType(quint8 subDevId, bool isInBase, bool isInOurs) {
  const NParamDef::ESubDeviceTypes base = mBase.subDevType(subDevId);
  const NParamDef::ESubDeviceTypes ours = mOurs.subDevType(subDevId);
  const NParamDef::ESubDeviceTypes theirs = mTheirs.subDevType(subDevId);
  const NThreeWay::EChoice choice =
      isInOurs ? NThreeWay::choose(isInBase ? &base : nullptr, ours, theirs) : NThreeWay::Theirs;
  if (choice == NThreeWay::Theirs) {
    mOurs.setSubDevType(subDevId, theirs);
  } else if (choice == NThreeWay::Conflict) {
    addConflict(SMergeConflict::SubDeviceType, subDevId, isInBase,
                ICParameterFile::subDeviceTypeToStr(base),
                ICParameterFile::subDeviceTypeToStr(ours),
                ICParameterFile::subDeviceTypeToStr(theirs));
  }
}

void CHardwareMerge::mergeName(quint8 subDevId, bool isInBase, bool isInOurs) {
  const QString base = mBase.subDevName(subDevId);
  const QString ours = mOurs.subDevName(subDevId);
  const QString theirs = mTheirs.subDevName(subDevId);
  const NThreeWay::EChoice choice =
      isInOurs ? NThreeWay::choose(isInBase ? &base : nullptr, ours, theirs) : NThreeWay::Theirs;
  if (choice == NThreeWay::Theirs) {
    mOurs.setSubDevName(subDevId, theirs);
    if (theirs.isEmpty()) mOurs.removeSubDevName(subDevId);
  } else if (choice == NThreeWay::Conflict) {
    addConflict(SMergeConflict::SubDeviceName, subDevId, isInBase, base, ours, theirs);
  }
}

void CHardwareMerge::addConflict(SMergeConflict::ESubject subject, quint8 subDevId, bool isInBase,
                                 const QString& base, const QString& ours, const QString& theirs) {
  SMergeConflict conflict;
  conflict.subject = subject;
  conflict.kind = isInBase ? SMergeConflict::BothChanged : SMergeConflict::BothAdded;
  conflict.subDevId = subDevId;
  conflict.base = isInBase ? base : QString();
  conflict.ours = ours;
  conflict.theirs = theirs;
  mConflicts.append(conflict);
}
