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

/// Where both sides have one order, theirs moved nothing: which of the parameters moved is a matter
/// of view, and may be seen in another way on each side.
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
  SMergeConflict& conflict = addConflict(key, SMergeConflict::Parameter, kind);
  conflict.base = mBase.value(key).asStr();
  conflict.ours = mOurs.value(key).asStr();
  conflict.theirs = mTheirs.value(key).asStr();
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
  const int base = mBase.parent(key);
  const int ours = mOurs.parent(key);
  const int theirs = mTheirs.parent(key);
  switch (NThreeWay::choose(mBase.contains(key) ? &base : nullptr, ours, theirs)) {
    case NThreeWay::Theirs:
      return theirs;
    case NThreeWay::Conflict: {
      SMergeConflict& conflict = addConflict(key, SMergeConflict::Group);
      conflict.base = mBase.contains(key) ? groupPath(mBase, key) : QString();
      conflict.ours = groupPath(mOurs, key);
      conflict.theirs = groupPath(mTheirs, key);
      return ours;
    }
    default:
      return ours;
  }
}

CParamVal CSubDeviceMerge::settleValue(int key) {
  const CParamVal base = mBase.value(key);
  const CParamVal ours = mOurs.value(key);
  const CParamVal theirs = mTheirs.value(key);
  switch (NThreeWay::choose(mBase.contains(key) ? &base : nullptr, ours, theirs)) {
    case NThreeWay::Theirs:
      return theirs;
    case NThreeWay::Conflict: {
      if (!CParamValueRules::areEqual(ours, theirs,
                                      mDefinitions.paramDef(mOurs.data(key).name()))) {
        SMergeConflict& conflict = addConflict(key, SMergeConflict::Value);
        conflict.base = base.asStr();
        conflict.ours = ours.asStr();
        conflict.theirs = theirs.asStr();
      }
      return ours;
    }
    default:
      return ours;
  }
}

quint32 CSubDeviceMerge::settleId(int key) {
  const quint32 base = mBase.contains(key) ? mBase.data(key).id() : 0;
  const quint32 ours = mOurs.data(key).id();
  const quint32 theirs = mTheirs.data(key).id();
  switch (NThreeWay::choose(mBase.contains(key) ? &base : nullptr, ours, theirs)) {
    case NThreeWay::Theirs:
      return theirs;
    case NThreeWay::Conflict: {
      SMergeConflict& conflict = addConflict(key, SMergeConflict::Id);
      conflict.base = mBase.contains(key) ? QString::number(base) : QString();
      conflict.ours = QString::number(ours);
      conflict.theirs = QString::number(theirs);
      return ours;
    }
    default:
      return ours;
  }
}

SMergeConflict& CSubDeviceMerge::addConflict(int key, SMergeConflict::ESubject subject,
                                             SMergeConflict::EKind kind) {
  const CNumberedTree& side = mOurs.contains(key) ? mOurs : mTheirs;
  SMergeConflict conflict;
  conflict.subject = subject;
  conflict.kind = kind;
  conflict.groupPath = groupPath(side, key);
  conflict.name = side.data(key).name();
  mConflicts.append(conflict);
  return mConflicts.last();
}

SMergeConflict& CSubDeviceMerge::addConflict(int key, SMergeConflict::ESubject subject) {
  return addConflict(key, subject,
                     mBase.contains(key) ? SMergeConflict::BothChanged : SMergeConflict::BothAdded);
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

/// What ours has in the group, and what theirs placed there: behind what it stands behind in
/// theirs, and behind what ours placed at the same spot, as when both append. What only changed its
/// place in the order does not follow what ours moved.
std::list<int> CSubDeviceMerge::orderOf(int group) {
  std::list<int> order;
  CKeyedMap<int, std::list<int>::iterator> places;
  for (const int key : mOurs.children(group)) {
    const SOutcome& settled = outcome(key);
    if (settled.isKept && settled.parent == group && !settled.isPlacedByTheirs)
      places.emplace(key, order.insert(order.end(), key));
  }
  auto next = order.begin();    // behind what precedes in theirs
  auto steady = order.begin();  // behind what precedes there and was not moved by ours
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
