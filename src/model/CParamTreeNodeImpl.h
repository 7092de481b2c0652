#pragma once

#include "CParamNodeData.h"
#include "CTreeNode.h"
#include "ICParamTreeNode.h"

/// The node of every parameter tree. All nodes of such a tree are of this class, so a copy is made
/// with cloneMe(), never with clone().
class CParamTreeNodeImpl : public CTreeNode<CParamNodeData>, public ICParamTreeNode {
 public:
  CParamTreeNodeImpl(unsigned char subDevId, const QString& name, unsigned int id);
  explicit CParamTreeNodeImpl(const CParamNodeData& data);

  ICParamTreeNode* rootPtr() override;
  ICParamTreeNode* parentPtr() const override;
  int siblingNo() const override;
  int childCnt() const override;
  ICParamTreeNode* childPtr(int index) const override;
  ICParamTreeNode* childPtr(const QString& name) const override;
  bool isGroup() const override;
  bool isParam() const override;
  QString name() const override;
  unsigned int id() const override;
  unsigned char subDevId() const override;
  void setProperty(QString key, QVariant value) override;
  QVariant property(QString key) const override;
  bool removeProperty(const QString& key) override;
  void removeAllProperties() override;

  /// The same child as childPtr(), as what it is.
  CParamTreeNodeImpl* childNode(int index) const;
  bool deleteChild(ICParamTreeNode* child);
  /// In this node and all beneath it.
  void setSubDevId(unsigned char subDevId);
  /// A deep copy without a parent, owned by the caller.
  CParamTreeNodeImpl* cloneMe() const;
};
