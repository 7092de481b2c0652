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

int CParamTreeNodeImpl::siblingNo() const {
  return row();
}
int CParamTreeNodeImpl::childCnt() const {
  return childCount();
}
ICParamTreeNode* CParamTreeNodeImpl::childPtr(int index) const {
  return childNode(index);
}

ICParamTreeNode* CParamTreeNodeImpl::childPtr(const QString& name) const {
  for (int i = 0; i < childCount(); ++i) {
    CParamTreeNodeImpl* const node = childNode(i);
    if (node->isValid() && node->dataRef().name() == name) return node;
  }
  return nullptr;
}

bool CParamTreeNodeImpl::isGroup() const {
  return dataRef().isGroup();
}
bool CParamTreeNodeImpl::isParam() const {
  return dataRef().isParam();
}
QString CParamTreeNodeImpl::name() const {
  return dataRef().name();
}
unsigned int CParamTreeNodeImpl::id() const {
  return dataRef().id();
}
unsigned char CParamTreeNodeImpl::subDevId() const {
  return dataRef().subDevId();
}

void CParamTreeNodeImpl::setProperty(QString key, QVariant value) {
  dataPtr()->setProperty(key, value);
}

QVariant CParamTreeNodeImpl::property(QString key) const {
  return dataRef().property(key);
}

bool CParamTreeNodeImpl::removeProperty(const QString& key) {
  return dataPtr()->removeProperty(key);
}

void CParamTreeNodeImpl::removeAllProperties() {
  dataPtr()->removeAllProperties();
}

CParamTreeNodeImpl* CParamTreeNodeImpl::childNode(int index) const {
  return static_cast<CParamTreeNodeImpl*>(child(index));
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
  for (int i = 0; i < childCount(); ++i) copy->addChild(childNode(i)->cloneMe());
  return copy.release();
}
