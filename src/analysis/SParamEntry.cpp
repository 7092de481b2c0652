#include "SParamEntry.h"

#include "ICParameterFile.h"

namespace {

void readGroup(const ICParameterFile& file, const ICParamTreeNode& group, const QStringList& path,
               QVector<SParamEntry>& entries) {
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICParamTreeNode& child = *group.childPtr(i);
    if (child.isParam()) {
      entries.append(
          {child.name(), child.id(), path, file.paramValue(child.name(), child.subDevId())});
    } else {
      readGroup(file, child, path + QStringList(child.name()), entries);
    }
  }
}

}  // namespace

QVector<SParamEntry> SParamEntry::read(ICParameterFile& file, quint8 subDevId) {
  QVector<SParamEntry> entries;
  const ICParamTreeNode* root = file.existingSubGroup(QString(), subDevId);
  if (root != nullptr) {
    readGroup(file, *root, QStringList(), entries);
  }
  return entries;
}
