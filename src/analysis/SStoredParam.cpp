#include "SStoredParam.h"

#include "CParamTreeNodeImpl.h"
#include "ICParameterFile.h"

namespace {

using CVisitor = std::function<void(SStoredParam&&)>;

const CParamTreeNodeImpl* child(const CParamTreeNodeImpl& group, int index) {
  return group.childNode(index);
}

const ICParamTreeNode* child(const ICParamTreeNode& group, int index) {
  return group.childPtr(index);
}

SStoredParam stored(const CParamTreeNodeImpl& param, int group) {
  return {CNodeText::pieceOf(param.nameUtf8()), param.id(), group,
          CNodeText::pieceOf(param.valueUtf8())};
}

SStoredParam stored(const ICParamTreeNode& param, int group) {
  return {CNodeText(param.name()), param.id(), group, CNodeText(param.value().asStr())};
}

template <class CNode>
void visitGroup(const CNode& group, int key, CNodeNumbers& keys, const CVisitor& visitor) {
  constexpr int kAnyPlace = 0;
  for (int i = 0; i < group.childCnt(); ++i) {
    const CNode& node = *child(group, i);
    if (node.isParam())
      visitor(stored(node, key));
    else
      visitGroup(node, keys.group(key, node.name(), kAnyPlace), keys, visitor);
  }
}

}  // namespace

void SStoredParam::visit(ICParameterFile& file, const QString& hardwareId, quint8 subDevId,
                         CNodeNumbers& keys, const CVisitor& visitor) {
  const ICParamTreeNode* const root = file.existingSubGroup(hardwareId, QString(), subDevId);
  if (root == nullptr) return;
  // An application may have a tree of its own, whose texts have to be copied.
  if (const auto* const known = dynamic_cast<const CParamTreeNodeImpl*>(root); known != nullptr)
    visitGroup(*known, CNodeNumbers::kRoot, keys, visitor);
  else
    visitGroup(*root, CNodeNumbers::kRoot, keys, visitor);
}

std::vector<SStoredParam> SStoredParam::read(ICParameterFile& file, const QString& hardwareId,
                                             quint8 subDevId, CNodeNumbers& keys) {
  std::vector<SStoredParam> entries;
  visit(file, hardwareId, subDevId, keys,
        [&entries](SStoredParam&& entry) { entries.push_back(std::move(entry)); });
  return entries;
}
