#pragma once

#include "CNodeNumbers.h"
#include "CSubDeviceTree.h"

#include <vector>

/// The shape of a tree in keys, so that trees can be laid side by side.
class CNumberedTree {
 public:
  /// Without a tree there is a root alone.
  CNumberedTree(const CSubDeviceTree* tree, CNodeNumbers& keys);

  bool contains(int key) const { return key == CNodeNumbers::kRoot || at(key).node != nullptr; }
  int parent(int key) const { return at(key).parent; }
  int position(int key) const { return at(key).position; }  ///< among the siblings
  const QVector<int>& children(int key) const { return at(key).children; }
  /// The payload of a node that is contained.
  const CParamNodeData& data(int key) const { return at(key).node->dataRef(); }
  /// Of a parameter; null for one that is not contained.
  CParamVal value(int key) const;

  /// Of the nodes of this tree those that lie elsewhere than in the base: not in the same group, or
  /// not in the same order. Of an order as few as possible count as moved. By key, of `count` keys.
  std::vector<bool> placedSince(const CNumberedTree& base, int count) const;

 private:
  struct SNode {
    const CParamTreeNodeImpl* node = nullptr;
    int parent = CNodeNumbers::kNone;
    int position = 0;
    QVector<int> children;
  };

  const SNode& at(int key) const;
  void add(const CParamTreeNodeImpl& group, int groupKey, CNodeNumbers& keys);
  void markPlaced(int group, const CNumberedTree& base, std::vector<bool>& placed) const;

  std::vector<SNode> mNodes;
};
