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

CSubDeviceTree cloneOf(const CSubDeviceTree& tree) {
  return tree.clone();
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
  for (const quint8 subDevId : subDeviceIds(mTheirs))
    mergeTypeAndName(subDevId, inBase.count(subDevId) > 0, inOurs.count(subDevId) > 0);
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
      ours.emplace(key, cloneOf(*theirs));
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

void CHardwareMerge::mergeTypeAndName(quint8 subDevId, bool isInBase, bool isInOurs) {
  const auto takesTheirs = [=](SMergeConflict::ESubject subject, const QString& base,
                               const QString& ours, const QString& theirs) {
    const QString* known = isInBase ? &base : nullptr;
    const NThreeWay::EChoice choice =
        isInOurs ? NThreeWay::choose(known, ours, theirs) : NThreeWay::Theirs;
    if (choice == NThreeWay::Conflict) {
      mConflicts.append(NThreeWay::conflict(subject, known, ours, theirs));
      mConflicts.last().subDevId = subDevId;
    }
    return choice == NThreeWay::Theirs;
  };
  const auto type = [subDevId](const ICParameterFile& file) {
    return ICParameterFile::subDeviceTypeToStr(file.subDevType(subDevId));
  };
  if (takesTheirs(SMergeConflict::SubDeviceType, type(mBase), type(mOurs), type(mTheirs)))
    mOurs.setSubDevType(subDevId, mTheirs.subDevType(subDevId));
  const QString name = mTheirs.subDevName(subDevId);
  if (takesTheirs(SMergeConflict::SubDeviceName, mBase.subDevName(subDevId),
                  mOurs.subDevName(subDevId), name)) {
    mOurs.setSubDevName(subDevId, name);
  }
}
