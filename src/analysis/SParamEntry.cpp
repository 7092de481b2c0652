#include "SParamEntry.h"

#include "ICParameterFile.h"

namespace {

using CVisitor = std::function<void(const SParamEntry&)>;

void visitGroup(const ICParamTreeNode& group, const QStringList& path, const CVisitor& visitor) {
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICParamTreeNode& child = *group.childPtr(i);
    if (child.isParam()) {
      visitor({child.name(), child.id(), path, child.value()});
    } else {
      visitGroup(child, path + QStringList(child.name()), visitor);
    }
  }
}

}  // namespace

void SParamEntry::visit(ICParameterFile& file, quint8 subDevId, const CVisitor& visitor) {
  const ICParamTreeNode* root = file.existingSubGroup(QString(), subDevId);
  if (root != nullptr) {
    visitGroup(*root, QStringList(), visitor);
  }
}

QVector<SParamEntry> SParamEntry::read(ICParameterFile& file, quint8 subDevId) {
  QVector<SParamEntry> entries;
  visit(file, subDevId, [&entries](const SParamEntry& entry) { entries.append(entry); });
  return entries;
}
