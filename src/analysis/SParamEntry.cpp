#include "SParamEntry.h"

#include "ICParameterFile.h"

namespace {

using CVisitor = std::function<void(const SParamEntry&)>;

void visitGroup(const ICParamTreeNode& group, int key, CNodeKeys& keys, const CVisitor& visitor) {
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

void SParamEntry::visit(ICParameterFile& file, quint8 subDevId, CNodeKeys& keys,
                        const CVisitor& visitor) {
  const ICParamTreeNode* root = file.existingSubGroup(QString(), subDevId);
  if (root != nullptr) visitGroup(*root, CNodeKeys::kRoot, keys, visitor);
}

QVector<SParamEntry> SParamEntry::read(ICParameterFile& file, quint8 subDevId, CNodeKeys& keys) {
  QVector<SParamEntry> entries;
  visit(file, subDevId, keys, [&entries](const SParamEntry& entry) { entries.append(entry); });
  return entries;
}
