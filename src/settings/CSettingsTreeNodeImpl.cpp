#include "CSettingsTreeNodeImpl.h"

CSettingsTreeNodeImpl::CSettingsTreeNodeImpl(const QString& name, ESettingsType type)
    : CSettingsTreeNodeImpl(CSettingsNodeData(name, type)) {}

CSettingsTreeNodeImpl::CSettingsTreeNodeImpl(const CSettingsNodeData& data) {
  setData(data);
}

ICSettingsTreeNode* CSettingsTreeNodeImpl::rootPtr() {
  CTreeNode<CSettingsNodeData>* node = this;
  while (node->parent() != nullptr) node = node->parent();
  return static_cast<CSettingsTreeNodeImpl*>(node);
}

ICSettingsTreeNode* CSettingsTreeNodeImpl::parentPtr() const {
  return static_cast<CSettingsTreeNodeImpl*>(parent());
}

ICSettingsTreeNode* CSettingsTreeNodeImpl::childPtr(int index) const {
  return static_cast<CSettingsTreeNodeImpl*>(child(index));
}
