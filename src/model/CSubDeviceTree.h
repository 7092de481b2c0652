#pragma once

#include "CNameMap.h"
#include "CParamTreeNodeImpl.h"
#include "CParamVal.h"

#include <QHash>
#include <QStringList>

#include <memory>

/// The parameters of one sub-device: their tree, and an index from name to value and node that
/// every operation keeps in step. So a value lives in one place, and a parameter is found at the
/// same cost among a hundred and among a hundred thousand. Nodes stay where they are until deleted.
class CSubDeviceTree {
 public:
  static const QString mRootGroupName;

  explicit CSubDeviceTree(quint8 subDevId);
  CSubDeviceTree(CSubDeviceTree&&) = default;
  CSubDeviceTree& operator=(CSubDeviceTree&&) = default;

  /// A deep copy: it shares nothing that an edit could reach.
  CSubDeviceTree clone() const;
  /// Likewise, as the tree of another sub-device.
  CSubDeviceTree cloneAs(quint8 subDevId) const;

  quint8 subDevId() const { return mSubDevId; }
  CParamTreeNodeImpl* root() const { return mRoot.get(); }
  int count() const { return static_cast<int>(mParams.size()); }  ///< of parameters
  void reserve(int count) { mParams.reserve(static_cast<size_t>(count)); }

  /// A parameter: its value, which may be changed, and its node.
  struct SParam {
    CParamVal value;
    CParamTreeNodeImpl* node = nullptr;
  };
  /// Null for an unknown parameter; valid until the next edit of the tree.
  SParam* find(const QString& name);
  const SParam* find(const QString& name) const;
  bool contains(const QString& name) const { return mParams.count(name) > 0; }
  CParamVal value(const QString& name) const;
  bool setValue(const QString& name, const CParamVal& value);  ///< false for an unknown parameter
  CParamTreeNodeImpl* node(const QString& name) const;
  QStringList names() const;  ///< in tree order
  /// The first group of that name among the children of a group; null when there is none.
  CParamTreeNodeImpl* group(const CParamTreeNodeImpl* parent, const QString& name) const {
    return mGroups.value({parent, name});
  }

  /// The parent of a new node must be a group of this tree.
  CParamTreeNodeImpl* addGroup(CParamTreeNodeImpl* parent, const QString& name);
  /// Null when the sub-device has a parameter of that name, or when id or name make no parameter.
  CParamTreeNodeImpl* addParameter(CParamTreeNodeImpl* parent, const QString& name, quint32 id,
                                   const CParamVal& value);
  /// Deletes the node and all beneath it; false for null, the root, or a node of another tree.
  bool deleteNode(CParamTreeNodeImpl* node);
  bool owns(const CParamTreeNodeImpl* node) const;

  /// Takes over the other tree's content: a parameter that is here stays where it is and takes the
  /// other's value, and its id when that is not 0; groups meet by name within their parent, the
  /// second of a name the second; everything else is appended.
  void merge(CSubDeviceTree&& other);

 private:
  /// A group is found by its parent and its name.
  using CGroupKey = QPair<const CParamTreeNodeImpl*, QString>;

  CParamTreeNodeImpl* append(CParamTreeNodeImpl* parent, CParamNodeData data);
  void index(CParamTreeNodeImpl* node, const CParamVal& value);
  void removeFromIndex(CParamTreeNodeImpl* node);
  void mergeGroup(CParamTreeNodeImpl* target, const CParamTreeNodeImpl& source,
                  const CSubDeviceTree& other);
  void mergeParameter(CParamTreeNodeImpl* target, const CParamNodeData& source,
                      const CParamVal& value);

  quint8 mSubDevId;
  std::unique_ptr<CParamTreeNodeImpl> mRoot;
  CNameMap<SParam> mParams;
  QHash<CGroupKey, CParamTreeNodeImpl*> mGroups;
};
