#pragma once

#include "CNodeIndex.h"

#include <QMap>
#include <QPair>
#include <QStringList>
#include <QVector>

#include <memory>

/// The parameters of one sub-device: their tree, whose nodes hold the values, and an index from
/// name to node that every operation keeps in step. So a value lives in one place, and a parameter
/// is found at the same cost among a hundred and among a hundred thousand. Nodes stay where they
/// are until deleted.
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
  int count() const { return mParams.count(); }  ///< of parameters
  void reserve(int count) { mParams.reserve(count); }

  bool contains(const QString& name) const { return node(name) != nullptr; }
  /// Null for an unknown parameter.
  CParamTreeNodeImpl* node(const QString& name) const;
  CParamTreeNodeImpl* nodeUtf8(std::string_view name) const { return mParams.find(name); }
  CParamVal value(const QString& name) const;
  bool setValue(const QString& name, const CParamVal& value);  ///< false for an unknown parameter
  /// The parameters, in tree order.
  QVector<CParamTreeNodeImpl*> params() const;
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
  /// The same, as a document has it.
  CParamTreeNodeImpl* addParameterUtf8(CParamTreeNodeImpl* parent, std::string_view name,
                                       quint32 id, std::string_view value);
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
  void index(CParamTreeNodeImpl* node);
  void removeFromIndex(CParamTreeNodeImpl* node);
  void mergeGroup(CParamTreeNodeImpl* target, const CParamTreeNodeImpl& source);
  void mergeParameter(CParamTreeNodeImpl* target, const CParamTreeNodeImpl& source);

  quint8 mSubDevId;
  std::unique_ptr<CParamTreeNodeImpl> mRoot;
  CNodeIndex mParams;
  QMap<CGroupKey, CParamTreeNodeImpl*> mGroups;
};
