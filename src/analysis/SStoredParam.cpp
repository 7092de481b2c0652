#include "SStoredParam.h"

#include "ICParameterFile.h"

namespace {

using CVisitor = std::function<void(const SStoredParam&)>;

void visitGroup(const ICParamTreeNode& group, int key, CNodeNumbers& keys,
                const CVisitor& visitor) {
  constexpr int kAnyPlace = 0;
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICParamTreeNode& child = *group.childPtr(i);
    if (child.isParam())
      visitor({child.name(), child.id(), key, child.value()});
    else
      visitGroup(child, keys.group(key, child.name(), kAnyPlace), keys, visitor);
  }
}

}  // namespace

void SStoredParam::visit(ICParameterFile& file, quint8 subDevId, CNodeNumbers& keys,
                         const CVisitor& visitor) {
  const ICParamTreeNode* root = file.existingSubGroup(QString(), subDevId);
  if (root != nullptr) visitGroup(*root, CNodeNumbers::kRoot, keys, visitor);
}

QVector<SStoredParam> SStoredParam::read(ICParameterFile& file, quint8 subDevId,
                                         CNodeNumbers& keys) {
  QVector<SStoredParam> entries;
  visit(file, subDevId, keys, [&entries](const SStoredParam& entry) { entries.append(entry); });
  return entries;
}
