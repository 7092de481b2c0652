#include "CParamTreeNodeImpl.h"

CParamTreeNodeImpl::CParamTreeNodeImpl(unsigned char subDevId, const QString& name, unsigned int id)
    : CParamTreeNodeImpl(CParamNodeData(subDevId, name, id)) {}

CParamTreeNodeImpl::CParamTreeNodeImpl(const CParamNodeData& data) {
  setData(data);
}

CParamTreeNodeImpl* CParamTreeNodeImpl::make(quint8 subDevId, std::string_view name, quint32 id,
                                             std::string_view value) {
  void* const memory = ::operator new(sizeof(CParamTreeNodeImpl) + name.size() + value.size());
  char* const texts = static_cast<char*>(memory) + sizeof(CParamTreeNodeImpl);
  name.copy(texts, name.size());
  value.copy(texts + name.size(), value.size());
  return ::new (memory)
      CParamTreeNodeImpl(CParamNodeData(subDevId, CNodeText::pieceOf({texts, name.size()}), id),
                         CNodeText::pieceOf({texts + name.size(), value.size()}));
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
    if (node->isValid() && node->name() == name) return node;
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
  const bool hasValue = valueUtf8().data() != nullptr;
  std::unique_ptr<CParamTreeNodeImpl> copy(hasValue
                                               ? make(subDevId(), nameUtf8(), id(), valueUtf8())
                                               : new CParamTreeNodeImpl(dataRef()));
  copy->dataPtr()->setPropertiesOf(dataRef());
  for (int i = 0; i < childCount(); ++i) copy->addChild(childNode(i)->cloneMe());
  return copy.release();
}
