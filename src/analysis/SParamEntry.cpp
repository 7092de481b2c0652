#include "SParamEntry.h"

#include "ICParameterFile.h"

namespace {

void readGroup(const ICParamTreeNode& group, const QStringList& path,
               QVector<SParamEntry>& entries) {
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICParamTreeNode& child = *group.childPtr(i);
    if (child.isParam()) {
      entries.append({child.name(), child.id(), path, child.value()});
    } else {
      readGroup(child, path + QStringList(child.name()), entries);
    }
  }
}

}  // namespace

QVector<SParamEntry> SParamEntry::read(ICParameterFile& file, quint8 subDevId) {
  QVector<SParamEntry> entries;
  const ICParamTreeNode* root = file.existingSubGroup(QString(), subDevId);
  if (root != nullptr) {
    readGroup(*root, QStringList(), entries);
  }
  return entries;
}
