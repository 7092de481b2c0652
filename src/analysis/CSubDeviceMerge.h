#pragma once

#include "CNumberedTree.h"
#include "SMergeConflict.h"

#include <list>

class ICParameterFile;

/// Merges the parameters of one sub-device: first it settles for each what becomes of it, then in
/// which groups and in which order they stand.
class CSubDeviceMerge {
 public:
  /// Without a base both sides added the sub-device.
  CSubDeviceMerge(const CSubDeviceTree* base, const CSubDeviceTree& ours,
                  const CSubDeviceTree& theirs, const ICParameterFile& definitions);

  CSubDeviceTree run();
  /// Without hardware id and sub-device.
  const CMergeConflicts& conflicts() const { return mConflicts; }

 private:
  /// What becomes of a node. The place is that in theirs or in ours.
  struct SOutcome {
    bool isKept = false;
    bool isPlacedByTheirs = false;
    int parent = CNodeNumbers::kNone;
    quint32 id = 0;
    CParamVal value;
  };

  SOutcome& outcome(int key) { return mOutcomes[static_cast<size_t>(key)]; }
  bool isPlaced(const std::vector<bool>& placed, int key) const {
    return placed[static_cast<size_t>(key)];
  }
  bool theirsAlonePlaced(int key) const;
  /// Of the group in which a node of that side lies.
  QString groupPath(const CNumberedTree& side, int key) const {
    return mKeys.pathOfGroup(side.parent(key));
  }
  void ignoreCommonOrder(int group);

  void settleParameter(int key);
  void settleRemoved(int key, const CNumberedTree& side, SMergeConflict::EKind kind);
  void settleInBoth(int key);
  int settleGroupOf(int key);
  CParamVal settleValue(int key);
  quint32 settleId(int key);
  bool isChanged(int key, const CNumberedTree& side) const;
  SMergeConflict& addConflict(int key, SMergeConflict::ESubject subject,
                              SMergeConflict::EKind kind);
  SMergeConflict& addConflict(int key, SMergeConflict::ESubject subject);

  void settleGroup(int key);
  void keepGroupsAbove(int key);
  std::list<int> orderOf(int group);
  void build(int group, CParamTreeNodeImpl* node, CSubDeviceTree& tree);
  void buildParameter(int key, CParamTreeNodeImpl* group, CSubDeviceTree& tree);

  const quint8 mSubDevId;
  const ICParameterFile& mDefinitions;
  CNodeNumbers mKeys;
  const CNumberedTree mBase;
  const CNumberedTree mOurs;
  const CNumberedTree mTheirs;
  const std::vector<bool> mPlacedByOurs;
  std::vector<bool> mPlacedByTheirs;
  std::vector<SOutcome> mOutcomes;
  CMergeConflicts mConflicts;
};
