#include "CSubDeviceTree.h"

#include "CUtf8Text.h"

#include <QMultiMap>

#include <utility>

namespace {

// Calls visit for every node of the subtree, in tree order.
template <typename F>
void forEachNode(CParamTreeNodeImpl* node, const F& visit) {
  visit(node);
  for (int i = 0; i < node->childCount(); ++i) forEachNode(node->childNode(i), visit);
}

CParamTreeNodeImpl* parentOf(const CParamTreeNodeImpl* node) {
  return static_cast<CParamTreeNodeImpl*>(node->parent());
}

// The first group of that name among the children that come after another child.
CParamTreeNodeImpl* nextGroup(const CParamTreeNodeImpl& parent, int after, const QString& name) {
  for (int i = after + 1; i < parent.childCount(); ++i) {
    CParamTreeNodeImpl* const node = parent.childNode(i);
    if (node->isGroup() && node->name() == name) return node;
  }
  return nullptr;
}

// The groups among the children. Backwards, since take() begins with what came last.
QMultiMap<QString, CParamTreeNodeImpl*> childGroups(const CParamTreeNodeImpl& parent) {
  QMultiMap<QString, CParamTreeNodeImpl*> groups;
  for (int i = parent.childCount() - 1; i >= 0; --i) {
    CParamTreeNodeImpl* const node = parent.childNode(i);
    if (node->isGroup()) groups.insert(node->name(), node);
  }
  return groups;
}

}  // namespace

const QString CSubDeviceTree::mRootGroupName = QStringLiteral("rootGroup");

CSubDeviceTree::CSubDeviceTree(quint8 subDevId)
    : mSubDevId(subDevId),
      mRoot(std::make_unique<CParamTreeNodeImpl>(subDevId, mRootGroupName, NParamDef::NO_ID)) {}

CSubDeviceTree CSubDeviceTree::clone() const {
  return cloneAs(mSubDevId);
}

CSubDeviceTree CSubDeviceTree::cloneAs(quint8 subDevId) const {
  CSubDeviceTree copy(subDevId);
  copy.mRoot.reset(mRoot->cloneMe());
  copy.mRoot->setSubDevId(subDevId);
  copy.reserve(count());
  forEachNode(copy.root(), [&copy](CParamTreeNodeImpl* node) { copy.index(node); });
  return copy;
}

CParamTreeNodeImpl* CSubDeviceTree::node(const QString& name) const {
  return nodeUtf8(CUtf8Text(name).view());
}

CParamVal CSubDeviceTree::value(const QString& name) const {
  const CParamTreeNodeImpl* const param = node(name);
  return param ? param->value() : CParamVal();
}

bool CSubDeviceTree::setValue(const QString& name, const CParamVal& value) {
  CParamTreeNodeImpl* const param = node(name);
  if (!param) return false;
  param->setValue(value);
  return true;
}

QVector<CParamTreeNodeImpl*> CSubDeviceTree::params() const {
  QVector<CParamTreeNodeImpl*> params;
  params.reserve(count());
  forEachNode(root(), [&params](CParamTreeNodeImpl* node) {
    if (node->isParam()) params.append(node);
  });
  return params;
}

QStringList CSubDeviceTree::names() const {
  QStringList names;
  names.reserve(count());
  for (const CParamTreeNodeImpl* param : params()) names.append(param->name());
  return names;
}

CParamTreeNodeImpl* CSubDeviceTree::append(CParamTreeNodeImpl* parent, CParamNodeData data) {
  Q_ASSERT(owns(parent) && parent->isGroup());
  data.setSubDevId(mSubDevId);
  auto* const added = new CParamTreeNodeImpl(data);
  parent->addChild(added);
  index(added);
  return added;
}

void CSubDeviceTree::index(CParamTreeNodeImpl* node) {
  if (node->isParam())
    mParams.insert(node);
  else if (const CGroupKey key{parentOf(node), node->name()}; !mGroups.contains(key))
    mGroups.insert(key, node);
}

void CSubDeviceTree::removeFromIndex(CParamTreeNodeImpl* node) {
  if (node->isParam())
    mParams.remove(node);
  else if (const CGroupKey key{parentOf(node), node->name()}; mGroups.value(key) == node)
    mGroups.remove(key);
}

CParamTreeNodeImpl* CSubDeviceTree::addGroup(CParamTreeNodeImpl* parent, const QString& name) {
  return append(parent, CParamNodeData(mSubDevId, name, NParamDef::NO_ID));
}

CParamTreeNodeImpl* CSubDeviceTree::addParameter(CParamTreeNodeImpl* parent, const QString& name,
                                                 quint32 id, const CParamVal& value) {
  return addParameterUtf8(parent, CUtf8Text(name).view(), id, CUtf8Text(value.asStr()).view());
}

CParamTreeNodeImpl* CSubDeviceTree::addParameterUtf8(CParamTreeNodeImpl* parent,
                                                     std::string_view name, quint32 id,
                                                     std::string_view value) {
  Q_ASSERT(owns(parent) && parent->isGroup());
  auto* const param = CParamTreeNodeImpl::make(mSubDevId, name, id, value);
  parent->addChild(param);
  if (param->isParam() && mParams.insert(param)) return param;
  parent->removeChild(param);
  return nullptr;
}

bool CSubDeviceTree::deleteNode(CParamTreeNodeImpl* node) {
  if (node == root() || !owns(node)) return false;
  forEachNode(node, [this](CParamTreeNodeImpl* each) { removeFromIndex(each); });
  CParamTreeNodeImpl* const parent = parentOf(node);
  if (node->isGroup() && !group(parent, node->name())) {
    CParamTreeNodeImpl* const next = nextGroup(*parent, node->row(), node->name());
    if (next) index(next);
  }
  return parent->removeChild(node);
}

bool CSubDeviceTree::owns(const CParamTreeNodeImpl* node) const {
  const CTreeNode<CParamNodeData>* top = node;
  while (top && top->parent()) top = top->parent();
  return top && top == root();
}

void CSubDeviceTree::merge(CSubDeviceTree&& other) {
  const CSubDeviceTree source(std::move(other));
  mergeGroup(root(), *source.root());
}

void CSubDeviceTree::mergeGroup(CParamTreeNodeImpl* target, const CParamTreeNodeImpl& source) {
  QMultiMap<QString, CParamTreeNodeImpl*> groups = childGroups(*target);
  for (int i = 0; i < source.childCount(); ++i) {
    const CParamTreeNodeImpl& each = *source.childNode(i);
    if (each.isParam()) {
      mergeParameter(target, each);
    } else {
      CParamTreeNodeImpl* const known = groups.take(each.name());
      mergeGroup(known ? known : append(target, each.dataRef()), each);
    }
  }
}

void CSubDeviceTree::mergeParameter(CParamTreeNodeImpl* target, const CParamTreeNodeImpl& source) {
  CParamTreeNodeImpl* const param = nodeUtf8(source.nameUtf8());
  if (!param) {
    const CParamTreeNodeImpl* const added =
        addParameterUtf8(target, source.nameUtf8(), source.id(), source.valueUtf8());
    if (added) added->dataPtr()->setPropertiesOf(source.dataRef());
    return;
  }
  if (source.id() != 0) param->dataPtr()->setId(source.id());
  param->setValue(source.value());
}
