#include "CSubDeviceMerge.h"

#include "CKeyedMap.h"
#include "CParamValueRules.h"
#include "ICParameterFile.h"
#include "NThreeWay.h"

CSubDeviceMerge::CSubDeviceMerge(const CSubDeviceTree* base, const CSubDeviceTree& ours,
                                 const CSubDeviceTree& theirs, const ICParameterFile& definitions)
    : mSubDevId(ours.subDevId()),
      mDefinitions(definitions),
      mBase(base, mKeys),
      mOurs(&ours, mKeys),
      mTheirs(&theirs, mKeys),
      mPlacedByOurs(mOurs.placedSince(mBase, mKeys.count())),
      mPlacedByTheirs(mTheirs.placedSince(mBase, mKeys.count())),
      mOutcomes(static_cast<size_t>(mKeys.count())) {}

CSubDeviceTree CSubDeviceMerge::run() {
  for (int key = 0; key < mKeys.count(); ++key) ignoreCommonOrder(key);
  for (int key = 0; key < mKeys.count(); ++key)
    mKeys.isGroup(key) ? settleGroup(key) : settleParameter(key);
  for (int key = 0; key < mKeys.count(); ++key)
    if (outcome(key).isKept) keepGroupsAbove(key);
  CSubDeviceTree tree(mSubDevId);
  build(CNodeNumbers::kRoot, tree.root(), tree);
  return tree;
}

/// Where both sides have one order, theirs moved nothing: which nodes count as moved is ambiguous
/// and may be computed differently for each side.
void CSubDeviceMerge::ignoreCommonOrder(int group) {
  const auto stayed = [this, group](const CNumberedTree& side) {
    QVector<int> keys;
    for (const int key : side.children(group))
      if (mBase.parent(key) == group && mOurs.parent(key) == group && mTheirs.parent(key) == group)
        keys.append(key);
    return keys;
  };
  const QVector<int> common = stayed(mTheirs);
  if (common == stayed(mOurs))
    for (const int key : common) mPlacedByTheirs[static_cast<size_t>(key)] = false;
}

bool CSubDeviceMerge::theirsAlonePlaced(int key) const {
  return isPlaced(mPlacedByTheirs, key) && !isPlaced(mPlacedByOurs, key);
}

void CSubDeviceMerge::settleParameter(int key) {
  const bool isInOurs = mOurs.contains(key);
  const bool isInTheirs = mTheirs.contains(key);
  if (isInOurs && isInTheirs) {
    settleInBoth(key);
  } else if (mBase.contains(key)) {
    if (isInOurs)
      settleRemoved(key, mOurs, SMergeConflict::TheirsRemoved);
    else if (isInTheirs)
      settleRemoved(key, mTheirs, SMergeConflict::OursRemoved);
  } else {
    const CNumberedTree& side = isInOurs ? mOurs : mTheirs;
    outcome(key) = {true, isInTheirs, side.parent(key), side.data(key).id(), side.value(key)};
  }
}

/// One side removed it, the given one did not.
void CSubDeviceMerge::settleRemoved(int key, const CNumberedTree& side,
                                    SMergeConflict::EKind kind) {
  if (!isChanged(key, side)) return;
  const QString base = mBase.value(key).asStr();
  SMergeConflict conflict = NThreeWay::conflict(
      SMergeConflict::Parameter, &base, mOurs.value(key).asStr(), mTheirs.value(key).asStr());
  conflict.kind = kind;
  addConflict(key, conflict);
  if (kind == SMergeConflict::TheirsRemoved)
    outcome(key) = {true, false, side.parent(key), side.data(key).id(), side.value(key)};
}

bool CSubDeviceMerge::isChanged(int key, const CNumberedTree& side) const {
  return side.value(key) != mBase.value(key) || side.data(key).id() != mBase.data(key).id() ||
         side.parent(key) != mBase.parent(key);
}

void CSubDeviceMerge::settleInBoth(int key) {
  SOutcome& settled = outcome(key);
  settled.isKept = true;
  settled.value = settleValue(key);
  settled.id = settleId(key);
  settled.parent = settleGroupOf(key);
  settled.isPlacedByTheirs = mOurs.parent(key) != settled.parent ||
                             (mTheirs.parent(key) == settled.parent && theirsAlonePlaced(key));
}

int CSubDeviceMerge::settleGroupOf(int key) {
  return settle(key, SMergeConflict::Group, mBase.parent(key), mOurs.parent(key),
                mTheirs.parent(key), [this](int group) { return mKeys.pathOfGroup(group); });
}

CParamVal CSubDeviceMerge::settleValue(int key) {
  const CParamVal base = mBase.value(key);
  const CParamVal ours = mOurs.value(key);
  CParamVal theirs = mTheirs.value(key);
  if (ours != theirs && ours != base && theirs != base &&
      CParamValueRules::areEqual(ours, theirs, mDefinitions.paramDef(mOurs.data(key).name()))) {
    theirs = ours;
  }
  return settle(key, SMergeConflict::Value, base, ours, theirs,
                [](const CParamVal& value) { return value.asStr(); });
}

quint32 CSubDeviceMerge::settleId(int key) {
  const quint32 base = mBase.contains(key) ? mBase.data(key).id() : 0;
  return settle(key, SMergeConflict::Id, base, mOurs.data(key).id(), mTheirs.data(key).id(),
                [](quint32 id) { return QString::number(id); });
}

/// Ours, unless theirs alone changed it.
template <typename T, typename F>
T CSubDeviceMerge::settle(int key, SMergeConflict::ESubject subject, const T& base, const T& ours,
                          const T& theirs, const F& textOf) {
  const bool isInBase = mBase.contains(key);
  const NThreeWay::EChoice choice = NThreeWay::choose(isInBase ? &base : nullptr, ours, theirs);
  if (choice == NThreeWay::Conflict) {
    const QString text = isInBase ? textOf(base) : QString();
    addConflict(key, NThreeWay::conflict(subject, isInBase ? &text : nullptr, textOf(ours),
                                         textOf(theirs)));
  }
  return choice == NThreeWay::Theirs ? theirs : ours;
}

void CSubDeviceMerge::addConflict(int key, SMergeConflict conflict) {
  const CNumberedTree& side = mOurs.contains(key) ? mOurs : mTheirs;
  conflict.groupPath = mKeys.pathOfGroup(side.parent(key));
  conflict.name = side.data(key).name();
  mConflicts.append(conflict);
}

void CSubDeviceMerge::settleGroup(int key) {
  const bool isInBase = mBase.contains(key);
  const bool isInOurs = mOurs.contains(key);
  const bool isInTheirs = mTheirs.contains(key);
  SOutcome& settled = outcome(key);
  settled.isKept = isInBase ? isInOurs && isInTheirs : true;
  settled.parent = mKeys.parentOfGroup(key);
  settled.isPlacedByTheirs = !isInOurs || (isInTheirs && theirsAlonePlaced(key));
}

/// A group that is removed stays when something is left, or was put, in it.
void CSubDeviceMerge::keepGroupsAbove(int key) {
  for (int group = outcome(key).parent; group != CNodeNumbers::kNone && !outcome(group).isKept;
       group = outcome(group).parent) {
    outcome(group).isKept = true;
  }
}

/// What ours has in the group, and what theirs placed there: after what it follows in
/// theirs, and after what ours placed at the same spot, as when both append. What only changed its
/// place in the order does not follow what ours moved.
std::list<int> CSubDeviceMerge::orderOf(int group) {
  std::list<int> order;
  CKeyedMap<int, std::list<int>::iterator> places;
  for (const int key : mOurs.children(group)) {
    const SOutcome& settled = outcome(key);
    if (settled.isKept && settled.parent == group && !settled.isPlacedByTheirs)
      places.emplace(key, order.insert(order.end(), key));
  }
  auto next = order.begin();    // after what precedes in theirs
  auto steady = order.begin();  // after what precedes there and was not moved by ours
  for (const int key : mTheirs.children(group)) {
    const SOutcome& settled = outcome(key);
    if (!settled.isKept || settled.parent != group) continue;
    if (settled.isPlacedByTheirs) {
      auto place = mBase.parent(key) == group ? steady : next;
      while (place != order.end() && isPlaced(mPlacedByOurs, *place) &&
             mTheirs.parent(*place) != group) {
        ++place;
      }
      order.insert(place, key);
      next = place;
      steady = place;
    } else {
      next = std::next(places.at(key));
      steady = isPlaced(mPlacedByOurs, key) ? steady : next;
    }
  }
  return order;
}

void CSubDeviceMerge::build(int group, CParamTreeNodeImpl* node, CSubDeviceTree& tree) {
  for (const int key : orderOf(group)) {
    if (!mKeys.isGroup(key)) {
      buildParameter(key, node, tree);
      continue;
    }
    const CNumberedTree& side = mOurs.contains(key) ? mOurs : mTheirs;
    CParamTreeNodeImpl* child = tree.addGroup(node, side.data(key).name());
    if (mOurs.contains(key)) child->setData(mOurs.data(key));  // the properties as well
    build(key, child, tree);
  }
}

void CSubDeviceMerge::buildParameter(int key, CParamTreeNodeImpl* group, CSubDeviceTree& tree) {
  const SOutcome& settled = outcome(key);
  const CNumberedTree& side = mOurs.contains(key) ? mOurs : mTheirs;
  CParamTreeNodeImpl* node =
      tree.addParameter(group, side.data(key).name(), settled.id, settled.value);
  if (mOurs.contains(key)) {
    node->setData(mOurs.data(key));
    node->dataPtr()->setId(settled.id);
  }
}
