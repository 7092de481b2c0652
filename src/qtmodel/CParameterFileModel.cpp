// The tree; CParameterFileModelData.cpp has what stands in it.

#include "CParameterFileModel.h"

#include "CParamVal.h"
#include "CParameterFileModelPrivate.h"
#include "ICParamTreeNode.h"
#include "ICParameterFile.h"

namespace {

SRowGroup* parentOf(const QModelIndex& index) {
  return static_cast<SRowGroup*>(index.internalPointer());
}

}  // namespace

CParameterFileModel::CParameterFileModel(ICParameterFile* file, QObject* parent)
    : QAbstractItemModel(parent), d(std::make_unique<CParameterFileModelPrivate>()) {
  d->file = file;
  d->readSubDevices();
}

CParameterFileModel::~CParameterFileModel() = default;

void CParameterFileModel::setFile(ICParameterFile* file) {
  beginResetModel();
  d->file = file;
  d->readSubDevices();
  endResetModel();
}

ICParameterFile* CParameterFileModel::file() const {
  return d->file;
}

QString CParameterFileModel::errorMsg() const {
  return d->errorMsg;
}

void CParameterFileModel::change(const std::function<void(ICParameterFile&)>& edit) {
  if (!d->file) return;
  beginResetModel();
  edit(*d->file);
  d->readSubDevices();
  endResetModel();
}

bool CParameterFileModel::selectHardwareId(const QString& hardwareId) {
  if (!d->file) return false;
  bool isSelected = false;
  change([&](ICParameterFile& file) { isSelected = file.selectHardwareId(hardwareId); });
  if (!isSelected) d->errorMsg = d->file->errorMsg();
  return isSelected;
}

ICParamTreeNode* CParameterFileModel::node(const QModelIndex& index) const {
  const bool isMine = index.isValid() && index.model() == this;
  return isMine ? d->index.child(*parentOf(index), index.row()) : nullptr;
}

QModelIndex CParameterFileModel::indexOf(const QString& name, quint8 subDevId, int column) const {
  if (!d->file || !d->file->doesSubDeviceExist(subDevId)) return {};
  ICParamTreeNode* found = d->file->findParameter(d->file->rootGroup(subDevId), name);
  SRowGroup* group = found ? d->index.group(found->parentPtr()) : nullptr;
  const int row = group ? d->index.rowOf(*group, found) : -1;
  return row < 0 ? QModelIndex() : createIndex(row, column, group);
}

QModelIndex CParameterFileModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  if (!parent.isValid()) return createIndex(row, column, d->index.root());
  return createIndex(row, column, d->index.group(node(parent), parentOf(parent), parent.row()));
}

QModelIndex CParameterFileModel::parent(const QModelIndex& index) const {
  SRowGroup* group = index.isValid() ? parentOf(index) : nullptr;
  return group && group->parent ? createIndex(group->row, 0, group->parent) : QModelIndex();
}

int CParameterFileModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return d->index.root()->count;
  const ICParamTreeNode* group = parent.column() == 0 ? node(parent) : nullptr;
  if (!group || !group->isGroup()) return 0;
  const SRowGroup* known = d->index.known(group);
  return known ? known->count : group->childCnt();
}

int CParameterFileModel::columnCount(const QModelIndex& /*parent*/) const {
  return ColumnCount;
}

bool CParameterFileModel::hasChildren(const QModelIndex& parent) const {
  return rowCount(parent) > 0;
}

QModelIndex CParameterFileModel::addGroup(const QModelIndex& parent, const QString& name) {
  return addNode(parent, [&](ICParamTreeNode* group) { return d->file->addGroup(group, name); });
}

QModelIndex CParameterFileModel::addParameter(const QModelIndex& parent, const QString& name) {
  return addNode(parent,
                 [&](ICParamTreeNode* group) { return d->file->addParameter(group, name); });
}

QModelIndex CParameterFileModel::addParameter(const QModelIndex& parent, const QString& name,
                                              const CParamVal& value) {
  return addNode(parent,
                 [&](ICParamTreeNode* group) { return d->file->addParameter(group, name, value); });
}

/// Only the file knows whether it will add a node, so the views are told afterwards; until then
/// the group's count hides the new one.
QModelIndex CParameterFileModel::addNode(
    const QModelIndex& parent, const std::function<ICParamTreeNode*(ICParamTreeNode*)>& add) {
  ICParamTreeNode* parentNode = node(parent);
  if (!parentNode || !parentNode->isGroup()) {
    d->errorMsg = tr("Only a sub-device or a group can hold groups and parameters.");
    return {};
  }
  SRowGroup* group = d->index.group(parentNode, parentOf(parent), parent.row());
  const ICParamTreeNode* added = add(parentNode);
  if (!added) {
    d->errorMsg = d->file->errorMsg();
    return {};
  }
  int row = group->count;
  if (parentNode->childCnt() > group->count) {
    beginInsertRows(parent.siblingAtColumn(0), row, row);
    d->index.append(*group);
    endInsertRows();
    refreshUnitsOf(added->name());
  } else {
    row = d->index.rowOf(*group, added);
  }
  return createIndex(row, NameColumn, group);
}

bool CParameterFileModel::removeRows(int row, int count, const QModelIndex& parent) {
  ICParamTreeNode* parentNode = node(parent);
  if (!parentNode || row < 0 || count < 1 || row > rowCount(parent) - count) {
    d->errorMsg = tr("There are no such groups or parameters.");
    return false;
  }
  SRowGroup* group = d->index.group(parentNode, parentOf(parent), parent.row());
  beginRemoveRows(parent.siblingAtColumn(0), row, row + count - 1);
  d->index.remove(*group, row, count);
  bool isRemoved = true;
  for (int i = row + count - 1; isRemoved && i >= row; --i)
    isRemoved = d->file->deleteNode(parentNode->childPtr(i));
  endRemoveRows();
  if (!isRemoved) {  // the file was changed past this model
    d->errorMsg = d->file->errorMsg();
    change([](ICParameterFile&) {});
  } else {
    refreshUnits();
  }
  return isRemoved;
}

void CParameterFileModel::valueChanged(const QString& name, quint8 subDevId) {
  if (!d->file) return;
  rowChanged(indexOf(name, subDevId));
  refreshUnitsOf(name);
}

void CParameterFileModel::rowChanged(const QModelIndex& index) {
  if (index.isValid())
    Q_EMIT dataChanged(index.siblingAtColumn(0), index.siblingAtColumn(ColumnCount - 1));
}

/// The names of units depend on the values of other parameters. Where nobody has looked at a unit
/// since, there is nobody to tell.
void CParameterFileModel::refreshUnitsOf(const QString& name) {
  if (d->units.remove(d->file->paramDef(name).id()) > 0) unitsChanged();
}

void CParameterFileModel::refreshUnits() {
  if (d->units.isEmpty()) return;
  d->units.clear();
  unitsChanged();
}

void CParameterFileModel::unitsChanged() {
  const std::vector<SRowGroup*> groups = d->index.all();  // a slot may make more of them
  for (SRowGroup* group : groups) {
    if (group->count == 0) continue;
    Q_EMIT dataChanged(createIndex(0, UnitColumn, group),
                       createIndex(group->count - 1, UnitColumn, group), {Qt::DisplayRole});
  }
}
