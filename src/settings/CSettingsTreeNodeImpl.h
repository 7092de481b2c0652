#pragma once

#include "CSettingsNodeData.h"
#include "CTreeNode.h"

/// The node of every settings tree; all nodes of such a tree are of this class.
class CSettingsTreeNodeImpl : public CTreeNode<CSettingsNodeData>, public ICSettingsTreeNode {
 public:
  CSettingsTreeNodeImpl(const QString& name, ESettingsType type);
  explicit CSettingsTreeNodeImpl(const CSettingsNodeData& data);

  bool isGroup() const override { return dataRef().isGroup(); }
  bool isParam() const override { return dataRef().isParam(); }
  QString name() const override { return dataRef().name(); }
  ESettingsType type() const override { return dataRef().type(); }
  void setValue(const CParamVal& value) override { dataPtr()->setValue(value); }
  CParamVal value() const override { return dataRef().value(); }
  void setUnit(const QString& unit) override { dataPtr()->setUnit(unit); }
  QString unit() const override { return dataRef().unit(); }
  void setComment(const QString& comment) override { dataPtr()->setComment(comment); }
  QString comment() const override { return dataRef().comment(); }
  void setProperty(const QString& key, const QVariant& value) override {
    dataPtr()->setProperty(key, value);
  }
  QVariant property(const QString& key) const override { return dataRef().property(key); }
  bool removeProperty(const QString& key) override { return dataPtr()->removeProperty(key); }

  ICSettingsTreeNode* rootPtr() override;
  ICSettingsTreeNode* parentPtr() const override;
  int siblingNo() const override { return row(); }
  int childCnt() const override { return childCount(); }
  ICSettingsTreeNode* childPtr(int index) const override;
};
