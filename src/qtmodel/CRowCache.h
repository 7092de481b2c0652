#pragma once

#include <QHash>

#include <memory>
#include <unordered_map>
#include <vector>

class ICParamTreeNode;

/// A group that a view has looked into. Model indices of its children carry a pointer to it, so
/// parameters cost nothing until they are asked for.
struct SRowGroup {
  ICParamTreeNode* node = nullptr;  ///< null for the one above the sub-devices
  SRowGroup* parent = nullptr;
  int row = 0;                     ///< among the parent's children
  int count = 0;                   ///< of children that the views know
  std::vector<SRowGroup*> groups;  ///< those of the children that were looked into

  // The children's rows, made when one is asked for. Removals leave them as they are, so that a
  // child may have moved up since, by as many rows as were removed.
  QHash<const ICParamTreeNode*, int> rows;
  int removed = 0;
  qint64 steps = 0;  ///< spent on searching for the rows since
};

/// Finds rows of nodes, since a node itself finds its row by a search only.
class CRowCache {
 public:
  CRowCache();
  ~CRowCache();

  /// Forgets everything.
  void reset(const std::vector<ICParamTreeNode*>& subDevices);

  SRowGroup* root() const { return mRoot.get(); }
  ICParamTreeNode* child(const SRowGroup& group, int row) const;
  /// The entry of a group, made when it is the first time.
  SRowGroup* group(ICParamTreeNode* node, SRowGroup* parent, int row);
  /// The same for a group of which only the node is known, with its parents; null when it is in
  /// none of the trees.
  SRowGroup* group(ICParamTreeNode* node);
  const SRowGroup* known(const ICParamTreeNode* node) const;        ///< null when not looked into
  int rowOf(SRowGroup& group, const ICParamTreeNode* child) const;  ///< -1 when it is not there

  void append(SRowGroup& group);
  void remove(SRowGroup& group, int first, int count);

  std::vector<SRowGroup*> all() const;  ///< that were looked into, the root included

 private:
  void forget(SRowGroup* group);
  void makeRows(SRowGroup& group) const;

  std::unique_ptr<SRowGroup> mRoot;
  std::vector<ICParamTreeNode*> mSubDevices;
  std::unordered_map<const ICParamTreeNode*, std::unique_ptr<SRowGroup>> mGroups;
};
