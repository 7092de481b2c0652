#include "CParamTreeNodeImpl.h"

CParamTreeNodeImpl::CParamTreeNodeImpl(unsigned char subDevId, const QString& name, unsigned int id)
    : CParamTreeNodeImpl(CParamNodeData(subDevId, name, id)) {}

CParamTreeNodeImpl::CParamTreeNodeImpl(const CParamNodeData& data) {
  setData(data);
}

ICParamTreeNode* CParamTreeNodeImpl::rootPtr() {
  CTreeNode<CParamNodeData>* node = this;
  while (node->parent()) node = node->parent();
  return static_cast<CParamTreeNodeImpl*>(node);
}

ICParamTreeNode* CParamTreeNodeImpl::parentPtr() const {
  return static_cast<CParamTreeNodeImpl*>(parent());
}

ICParamTreeNode* CParamTreeNodeImpl::childPtr(const QString& name) const {
  for (int i = 0; i < childCount(); ++i) {
    CParamTreeNodeImpl* const node = childNode(i);
    if (node->isValid() && node->dataRef().name() == name) return node;
  }
  return nullptr;
}

bool CParamTreeNodeImpl::deleteChild(ICParamTreeNode* child) {
  return removeChild(dynamic_cast<CParamTreeNodeImpl*>(child));
}

void CParamTreeNodeImpl::setSubDevId(unsigned char subDevId) {
  dataPtr()->setSubDevId(subDevId);
  for (int i = 0; i < childCount(); ++i) childNode(i)->setSubDevId(subDevId);
}

CParamTreeNodeImpl* CParamTreeNodeImpl::cloneMe() const {
  auto copy = std::make_unique<CParamTreeNodeImpl>(dataRef());
  copy->mValue = mValue;
  for (int i = 0; i < childCount(); ++i) copy->addChild(childNode(i)->cloneMe());
  return copy.release();
}
