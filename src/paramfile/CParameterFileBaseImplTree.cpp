// The trees of hardware ids: sub-devices, groups and parameters.

#include "CParameterFileBaseImpl.h"

const QRegularExpression CParameterFileBaseImpl::sSeparator(QStringLiteral("[\\\\/]"));

namespace {

/// Groups that are nested deeper could not be read again: a file nests at most 1,024 elements, of
/// which root, hardware id, sub-device, parameter and value take five.
constexpr int kMaxGroupDepth = 1019;

int depthOf(const CTreeNode<CParamNodeData>* node) {
  int depth = 0;
  for (; node->parent() != nullptr; node = node->parent()) ++depth;
  return depth;
}

bool isBelow(const CTreeNode<CParamNodeData>* node, const CTreeNode<CParamNodeData>* group) {
  do {
    node = node->parent();
  } while (node != nullptr && node != group);
  return node != nullptr;
}

CParamTreeNodeImpl* toImpl(ICParamTreeNode* node) {
  return dynamic_cast<CParamTreeNodeImpl*>(node);
}

/// Depth first, for nodes that no index covers.
ICParamTreeNode* searchParameter(const ICParamTreeNode& node, const QString& name) {
  for (int i = 0; i < node.childCnt(); ++i) {
    ICParamTreeNode* child = node.childPtr(i);
    if (child->isParam() && child->name() == name) return child;
    ICParamTreeNode* found = searchParameter(*child, name);
    if (found != nullptr) return found;
  }
  return nullptr;
}

/// The names in a group path.
QStringList piecesOf(QString path) {
  QStringList pieces;
  while (!path.isEmpty()) pieces += CParameterFileBaseImpl::getNextSubPath(path);
  pieces.removeAll(QString());
  return pieces;
}

}  // namespace

const CSubDeviceTrees* CParameterFileBaseImpl::treesOf(const QString& hardwareId) const {
  const auto trees = mTrees.find(hardwareId);
  return trees == mTrees.end() ? nullptr : &trees->second;
}

const CSubDeviceTree* CParameterFileBaseImpl::treeOf(const QString& hardwareId,
                                                     quint8 subDevId) const {
  const CSubDeviceTrees* trees = treesOf(hardwareId);
  const auto tree = trees != nullptr ? trees->find(subDevId) : CSubDeviceTrees::const_iterator();
  return trees == nullptr || tree == trees->end() ? nullptr : &tree->second;
}

CSubDeviceTree* CParameterFileBaseImpl::treeOf(const QString& hardwareId, quint8 subDevId) {
  return const_cast<CSubDeviceTree*>(std::as_const(*this).treeOf(hardwareId, subDevId));
}

CSubDeviceTree* CParameterFileBaseImpl::createTree(const QString& hardwareId, quint8 subDevId) {
  if (hardwareId != mHardwareId && !containsHardwareId(hardwareId)) {
    setErrorMsg(tr("Hardware id \"%1\" does not exist.").arg(hardwareId));
    return nullptr;
  }
  return &mTrees[hardwareId].try_emplace(subDevId, subDevId).first->second;
}

const CSubDeviceTree* CParameterFileBaseImpl::treeWith(const CParamTreeNodeImpl* node,
                                                       const QString& hardwareId) const {
  const CSubDeviceTree* tree = node != nullptr ? treeOf(hardwareId, node->subDevId()) : nullptr;
  return tree != nullptr && tree->owns(node) ? tree : nullptr;
}

CSubDeviceTree* CParameterFileBaseImpl::treeWith(const CParamTreeNodeImpl* node,
                                                 const QString& hardwareId) {
  return const_cast<CSubDeviceTree*>(std::as_const(*this).treeWith(node, hardwareId));
}

QList<quint8> CParameterFileBaseImpl::subDeviceIds(const QString& hardwareId) const {
  QList<quint8> ids;
  if (const CSubDeviceTrees* trees = treesOf(hardwareId))
    for (const auto& entry : *trees) ids.append(entry.first);
  return ids;
}

QList<quint8> CParameterFileBaseImpl::subDeviceIds(NParamDef::ESubDeviceTypes type) const {
  QList<quint8> ids;
  for (const quint8 id : subDeviceIds())
    if (subDevType(id) == type) ids.append(id);
  return ids;
}

bool CParameterFileBaseImpl::doesSubDeviceExist(const QString& hardwareId, quint8 subDevId) const {
  return treeOf(hardwareId, subDevId) != nullptr;
}

bool CParameterFileBaseImpl::copySubDevice(const QString& hardwareId, quint8 source,
                                           quint8 target) {
  const CSubDeviceTree* tree = treeOf(hardwareId, source);
  if (tree == nullptr) {
    return setErrorMsg(tr("Sub device %1 does not exist. Copying it to sub device %2 failed.")
                           .arg(QString::number(source), QString::number(target)));
  }
  if (source == target)
    return setErrorMsg(tr("Sub device %1 cannot be copied to itself.").arg(source));
  mTrees[hardwareId].insert_or_assign(target, tree->cloneAs(target));
  if (subDevType(target) == NParamDef::SUB_DEV_TYPE_UNDEFINED)
    labelType(target, subDevType(source), hardwareId);
  if (subDevName(target).isEmpty()) labelName(target, subDevName(source), hardwareId);
  setHwIdChanged(hardwareId);
  return true;
}

ICParamTreeNode* CParameterFileBaseImpl::rootGroup(const QString& hardwareId, quint8 subDevId) {
  const CSubDeviceTree* tree = createTree(hardwareId, subDevId);
  return tree != nullptr ? tree->root() : nullptr;
}

QString CParameterFileBaseImpl::getNextSubPath(QString& path) {
  const int separator = path.indexOf(sSeparator);
  const QString piece = separator < 0 ? path : path.left(separator);
  path = separator < 0 ? QString() : path.mid(separator + 1);
  return piece;
}

ICParamTreeNode* CParameterFileBaseImpl::existingSubGroup(const QString& hardwareId,
                                                          const QString& path, quint8 subDevId) {
  QStringList rest = piecesOf(path);
  CParamTreeNodeImpl* group = followPath(rest, treeOf(hardwareId, subDevId));
  return rest.isEmpty() ? group : nullptr;
}

ICParamTreeNode* CParameterFileBaseImpl::subGroup(const QString& hardwareId, const QString& path,
                                                  quint8 subDevId) {
  QStringList missing = piecesOf(path);
  CSubDeviceTree* tree = treeOf(hardwareId, subDevId);
  CParamTreeNodeImpl* group = followPath(missing, tree);
  if (!checkNewGroups(tree, group, missing, subDevId)) return nullptr;
  if (tree == nullptr) tree = createTree(hardwareId, subDevId);
  if (tree == nullptr) return nullptr;
  group = group != nullptr ? group : tree->root();
  for (const QString& name : qAsConst(missing)) {
    group = tree->addGroup(group, name);
    setHwIdChanged(hardwareId);
  }
  return group;
}

/// The last group of a path that exists, null without a tree; `path` keeps the pieces after it.
CParamTreeNodeImpl* CParameterFileBaseImpl::followPath(QStringList& path,
                                                       CSubDeviceTree* tree) const {
  CParamTreeNodeImpl* group = tree != nullptr ? tree->root() : nullptr;
  while (group != nullptr && !path.isEmpty()) {
    CParamTreeNodeImpl* next = tree->group(group, path.first());
    if (next == nullptr) break;
    group = next;
    path.removeFirst();
  }
  return group;
}

ICParamTreeNode* CParameterFileBaseImpl::addGroup(const QString& hardwareId,
                                                  ICParamTreeNode* parent, const QString& name) {
  if (parent == nullptr)
    return failedNode(tr("addGroup(\"%1\") failed because the given parent is NULL!").arg(name));
  CSubDeviceTree* tree = nullptr;
  CParamTreeNodeImpl* group = checkParent(hardwareId, parent, name, tree);
  CParamTreeNodeImpl* existing = group != nullptr ? tree->group(group, name) : nullptr;
  if (group == nullptr || existing != nullptr) return existing;
  if (!checkNewGroups(tree, group, {name}, tree->subDevId())) return nullptr;
  setHwIdChanged(hardwareId);
  return tree->addGroup(group, name);
}

/// Whether groups, each within the one before it, can be added to a parent, which has none of the
/// first name. Null means the root group of a sub-device that does not exist yet.
bool CParameterFileBaseImpl::checkNewGroups(const CSubDeviceTree* tree,
                                            const CParamTreeNodeImpl* parent,
                                            const QStringList& names, quint8 subDevId) const {
  const CParamTreeNodeImpl* parameter =
      parent != nullptr && !names.isEmpty() ? tree->node(names.first()) : nullptr;
  if (parameter != nullptr && parameter->parent() == parent) {
    return setErrorMsg(
        tr("SubDevice %1 : Adding group \"%2\" to parent \"%3\" failed because there "
           "is alrady a parameter with the same name!")
            .arg(QString::number(subDevId), names.first(), parent->name()));
  }
  int depth = parent != nullptr ? depthOf(parent) : 0;
  for (const QString& name : names) {
    if (name.isEmpty() || isReservedName(name))
      return setErrorMsg(name.isEmpty() ? tr("A group needs a name.") : reservedNameMessage(name));
    if (depth++ >= kMaxGroupDepth) {
      return setErrorMsg(
          tr("SubDevice %1 : Adding group \"%2\" failed because groups can be nested %3 deep at "
             "most!")
              .arg(QString::number(subDevId), name, QString::number(kMaxGroupDepth)));
    }
  }
  return true;
}

/// The parent of a new node must be a group of the hardware id.
CParamTreeNodeImpl* CParameterFileBaseImpl::checkParent(const QString& hardwareId,
                                                        ICParamTreeNode* parent,
                                                        const QString& name,
                                                        CSubDeviceTree*& tree) {
  CParamTreeNodeImpl* node = toImpl(parent);
  tree = treeWith(node, hardwareId);
  if (tree != nullptr && node->isGroup()) return node;
  return failedNode(
      hardwareId == mHardwareId
          ? tr("Adding \"%1\" failed because the given parent is not a group of the active "
               "hardware id!")
                .arg(name)
          : tr("Adding \"%1\" failed because the given parent is not a group of the hardware id "
               "\"%2\"!")
                .arg(name, hardwareId));
}

ICParamTreeNode* CParameterFileBaseImpl::addDefinedParameter(const QString& hardwareId,
                                                             ICParamTreeNode* parent,
                                                             const QString& name,
                                                             const CParamVal* value) {
  if (parent == nullptr) {
    return failedNode(
        tr("addParameter(\"%1\") failed because the given parent is NULL!").arg(name));
  }
  CSubDeviceTree* tree = nullptr;
  CParamTreeNodeImpl* group = checkParent(hardwareId, parent, name, tree);
  if (group == nullptr) return nullptr;
  const CParamDefItem definition = paramDef(name);
  if (definition.name().isEmpty()) {
    return failedNode(tr("SubDevice %1 : Adding parameter \"%2\" failed because the parameter "
                         "definition is missing!")
                          .arg(QString::number(tree->subDevId()), name));
  }
  CParamTreeNodeImpl* node =
      tree->addParameter(group, name, definition.valid() ? definition.id() : 0,
                         value != nullptr ? *value : definition.defVal());
  if (node == nullptr) {
    return failedNode(tr("SubDevice %1 : Adding parameter \"%2\" failed because there is alrady a "
                         "parameter with the same name!")
                          .arg(QString::number(tree->subDevId()), name));
  }
  setHwIdChanged(hardwareId);
  return node;
}

bool CParameterFileBaseImpl::deleteNode(const QString& hardwareId, ICParamTreeNode* node) {
  CParamTreeNodeImpl* impl = toImpl(node);
  CSubDeviceTree* tree = treeWith(impl, hardwareId);
  if (tree == nullptr) {
    return setErrorMsg(
        hardwareId == mHardwareId
            ? tr("Deleting a node failed because it does not belong to the active "
                 "hardware id!")
            : tr("Deleting a node failed because it does not belong to the hardware id \"%1\"!")
                  .arg(hardwareId));
  }
  if (impl == tree->root()) {
    return setErrorMsg(tr("SubDevice %1 : Node \"%2\" is the root node and cannot be deleted!")
                           .arg(QString::number(tree->subDevId()), impl->name()));
  }
  tree->deleteNode(impl);
  setHwIdChanged(hardwareId);
  return true;
}

ICParamTreeNode* CParameterFileBaseImpl::findParameter(ICParamTreeNode* node,
                                                       const QString& name) const {
  const CParamTreeNodeImpl* group = toImpl(node);
  if (group == nullptr) return nullptr;
  const CSubDeviceTree* tree = treeWith(group, mHardwareId);
  if (tree == nullptr) return searchParameter(*node, name);
  CParamTreeNodeImpl* found = tree->node(name);
  return found != nullptr && isBelow(found, group) ? found : nullptr;
}

bool CParameterFileBaseImpl::loadDefaultValues(ICParamTreeNode* node) {
  if (node == nullptr) return false;
  for (int i = 0; i < node->childCnt(); ++i) {
    ICParamTreeNode* child = node->childPtr(i);
    const bool done =
        child->childCnt() > 0
            ? loadDefaultValues(child)
            : setParamValue(child->name(), paramDef(child->name()).defVal(), child->subDevId());
    if (!done) return false;
  }
  return true;
}

bool CParameterFileBaseImpl::loadDefaultValues() {
  for (const quint8 id : subDeviceIds())
    if (!loadDefaultValues(rootGroup(id))) return false;
  return true;
}

void CParameterFileBaseImpl::removeAllProperties(ICParamTreeNode* node) {
  if (node == nullptr) return;
  node->removeAllProperties();
  for (int i = 0; i < node->childCnt(); ++i) removeAllProperties(node->childPtr(i));
}

void CParameterFileBaseImpl::removeAllProperties() {
  for (const quint8 id : subDeviceIds()) removeAllProperties(rootGroup(id));
}
