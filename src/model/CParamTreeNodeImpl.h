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
  /// A parameter whose name and value, in UTF-8, lie in one piece of memory with it. A load makes
  /// hundreds of thousands.
  static CParamTreeNodeImpl* make(quint8 subDevId, std::string_view name, quint32 id,
                                  std::string_view value);
  // Whoever deletes a node need not know how large it is.
  static void* operator new(size_t size) { return ::operator new(size); }
  static void operator delete(void* memory) { ::operator delete(memory); }

  ICParamTreeNode* rootPtr() override;
  ICParamTreeNode* parentPtr() const override;
  int siblingNo() const override { return row(); }
  int childCnt() const override { return childCount(); }
  ICParamTreeNode* childPtr(int index) const override { return childNode(index); }
  ICParamTreeNode* childPtr(const QString& name) const override;
  bool isGroup() const override { return dataRef().isGroup(); }
  bool isParam() const override { return dataRef().isParam(); }
  QString name() const override { return dataRef().name(); }
  unsigned int id() const override { return dataRef().id(); }
  unsigned char subDevId() const override { return dataRef().subDevId(); }
  void setProperty(QString key, QVariant value) override { dataPtr()->setProperty(key, value); }
  QVariant property(QString key) const override { return dataRef().property(key); }
  bool removeProperty(const QString& key) override { return dataPtr()->removeProperty(key); }
  void removeAllProperties() override { dataPtr()->removeAllProperties(); }
  CParamVal value() const override {
    if (mText.isNull()) mText = mValue.toQString();
    return mText;
  }

  std::string_view nameUtf8() const { return dataRef().nameUtf8(); }
  std::string_view valueUtf8() const {
    if (mValue.isNull() && !mText.isNull()) mValue = CNodeText(mText);
    return mValue.view();
  }
  /// Null would say that there is no such parameter, so it is kept as an empty text.
  void setValue(const CParamVal& value) {
    mText = value.isNull() ? QStringLiteral("") : value.asStr();
    mValue = CNodeText();
  }

  /// The same child as childPtr(), as what it is.
  CParamTreeNodeImpl* childNode(int index) const {
    return static_cast<CParamTreeNodeImpl*>(child(index));
  }
  /// False, and nothing happens, when the node is no direct child.
  bool deleteChild(ICParamTreeNode* child);
  /// In this node and all beneath it.
  void setSubDevId(unsigned char subDevId);
  /// A deep copy without a parent, owned by the caller.
  CParamTreeNodeImpl* cloneMe() const;

 private:
  CParamTreeNodeImpl(CParamNodeData&& data, CNodeText&& value) : mValue(std::move(value)) {
    moveData(std::move(data));
  }

  // The value in both forms. That which was not asked for yet may be null.
  mutable CNodeText mValue;
  mutable QString mText;
};
