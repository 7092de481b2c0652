// The data of the nodes, and their editing.

#include "CParamValueRules.h"
#include "CParamValueText.h"
#include "CParameterFileModel.h"
#include "CParameterFileModelPrivate.h"
#include "ICParamTreeNode.h"
#include "ICParameterFile.h"

using namespace NParamDef;

namespace {

/// The key of the property of a role; empty for every other role.
QString propertyOf(int role) {
  static const QMap<int, QString> keys{
      {CParameterFileModel::ChangedRole, PROPERTY_CHANGED},
      {CParameterFileModel::WarningRole, PROPERTY_WARNING},
      {CParameterFileModel::WarningMessageRole, PROPERTY_WARNING_MESSAGE},
      {CParameterFileModel::ErrorRole, PROPERTY_ERROR},
      {CParameterFileModel::ErrorMessageRole, PROPERTY_ERROR_MESSAGE}};
  return keys.value(role);
}

QVariant propertyValue(const ICParamTreeNode& node, int role) {
  const QVariant value = node.property(propertyOf(role));
  const bool isText = role == CParameterFileModel::WarningMessageRole ||
                      role == CParameterFileModel::ErrorMessageRole;
  return isText ? QVariant(value.toString()) : QVariant(value.toBool());
}

/// A check box of its own: where there are an enumeration or radio buttons too, those are shown.
bool hasCheckBox(const CParamDefItem& definition) {
  return definition.checkVals().isValid() && !definition.hasEnums() && !definition.hasRadios();
}

QVariant checkState(const CParamDefItem& definition, const CParamVal& value) {
  const SCheckValues states = definition.checkVals();
  long long number = 0;
  if (!hasCheckBox(definition) || !value.value(number)) return {};
  if (number == states.checked) return Qt::Checked;
  return states.hasUndefined && number == states.undefined ? Qt::PartiallyChecked : Qt::Unchecked;
}

qint64 numberOfState(const SCheckValues& states, int state) {
  if (state == Qt::Checked) return states.checked;
  return state == Qt::PartiallyChecked && states.hasUndefined ? states.undefined : states.unchecked;
}

QStringList choiceNames(const CParamDefItem& definition) {
  QStringList names;
  for (const SNamedI64Value& each : CParamValueText::choices(definition)) names.append(each.name);
  return names;
}

QString nameOf(const ICParameterFile& file, const ICParamTreeNode& node) {
  if (node.parentPtr()) return node.name();
  const QString name = file.subDevName(node.subDevId());
  return name.isEmpty() ? CParameterFileModel::tr("Sub-device %1").arg(node.subDevId()) : name;
}

QString toolTip(const ICParamTreeNode& node, const QString& hint) {
  if (node.property(PROPERTY_ERROR).toBool())
    return node.property(PROPERTY_ERROR_MESSAGE).toString();
  if (node.property(PROPERTY_WARNING).toBool())
    return node.property(PROPERTY_WARNING_MESSAGE).toString();
  return hint;
}

}  // namespace

QVariant CParameterFileModel::data(const QModelIndex& index, int role) const {
  const ICParamTreeNode* item = node(index);
  if (!item) return {};
  if (!propertyOf(role).isEmpty()) return propertyValue(*item, role);
  if (role == IsGroupRole) return item->isGroup();
  if (role == SubDeviceRole) return static_cast<int>(item->subDevId());
  if (role == Qt::DisplayRole && index.column() == NameColumn) return nameOf(*d->file, *item);
  return item->isParam() ? parameterData(*item, index.column(), role) : QVariant();
}

QVariant CParameterFileModel::parameterData(const ICParamTreeNode& node, int column,
                                            int role) const {
  const CParamDefItem definition = d->definitionOf(node);
  const bool isValue = column == ValueColumn;
  switch (role) {
    case Qt::DisplayRole:
      return shownText(node, definition, column);
    case Qt::EditRole:
      return isValue ? QVariant(CParamValueText::editable(definition, node.value()))
                     : shownText(node, definition, column);
    case Qt::CheckStateRole:
      return isValue ? checkState(definition, node.value()) : QVariant();
    case Qt::ToolTipRole:
      return toolTip(node, definition.hint());
    case RawValueRole:
      return node.value().asStr();
    case RawDefaultRole:
      return definition.defVal().asStr();
    case ChoicesRole:
      return choiceNames(definition);
    case IsDefinedRole:
      return !definition.name().isEmpty();
    case IsDefaultRole:
      return !definition.name().isEmpty() &&
             CParamValueRules::areEqual(node.value(), definition.defVal(), definition);
    case IdRole:
      return node.id();
    default:
      return {};
  }
}

QVariant CParameterFileModel::shownText(const ICParamTreeNode& node,
                                        const CParamDefItem& definition, int column) const {
  switch (column) {
    case NameColumn:
      return node.name();
    case ValueColumn:
      return CParamValueText::shown(definition, node.value());
    case UnitColumn:
      return d->unitOf(node);
    case DefaultColumn:
      return CParamValueText::shown(definition, definition.defVal());
    case HintColumn:
      return definition.hint();
    default:
      return {};
  }
}

QVariant CParameterFileModel::headerData(int section, Qt::Orientation orientation, int role) const {
  static constexpr const char* kTitles[ColumnCount] = {
      // in the order of the columns
      QT_TR_NOOP("Name"), QT_TR_NOOP("Value"), QT_TR_NOOP("Unit"), QT_TR_NOOP("Default"),
      QT_TR_NOOP("Hint")};
  const bool isTitle = orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 &&
                       section < ColumnCount;
  return isTitle ? tr(kTitles[section]) : QVariant();
}

Qt::ItemFlags CParameterFileModel::flags(const QModelIndex& index) const {
  const ICParamTreeNode* item = node(index);
  if (!item) return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (!item->isParam()) return flags;
  flags |= Qt::ItemNeverHasChildren;
  const CParamDefItem definition = d->definitionOf(*item);
  if (index.column() != ValueColumn || definition.name().isEmpty()) return flags;
  flags |= Qt::ItemIsEditable;
  if (hasCheckBox(definition)) {
    flags |= Qt::ItemIsUserCheckable;
    if (definition.checkVals().hasUndefined) flags |= Qt::ItemIsUserTristate;
  }
  return flags;
}

bool CParameterFileModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  ICParamTreeNode* item = node(index);
  if (!item) return false;
  const QString property = propertyOf(role);
  if (!property.isEmpty()) {
    item->setProperty(property, value);
    rowChanged(index);
    return true;
  }
  if (!item->isParam() || index.column() != ValueColumn) return false;
  const CParamDefItem definition = d->definitionOf(*item);
  if (role == Qt::EditRole) return setText(index, definition, value.toString());
  if (role == RawValueRole) return setValue(index, value.toString());
  if (role != Qt::CheckStateRole || !hasCheckBox(definition)) return false;
  const qint64 number = numberOfState(definition.checkVals(), value.toInt());
  return setText(index, definition, QString::number(number));
}

bool CParameterFileModel::setText(const QModelIndex& index, const CParamDefItem& definition,
                                  const QString& text) {
  // What an editor leaves as it was is no edit, even where another value has the same name.
  if (text == index.data(Qt::EditRole).toString()) return true;
  CParamVal value;
  QString problem;
  const CParamValueRules rules(definition, *d->file);
  return rules.read(text, value, problem) ? setValue(index, value) : refuse(index, problem);
}

bool CParameterFileModel::setValue(const QModelIndex& index, const CParamVal& value) {
  ICParamTreeNode& item = *node(index);
  const QString problem = d->problem(item, value);
  if (!problem.isEmpty()) return refuse(index, problem);
  if (CParamValueRules::mayStay(item.value(), value, d->definitionOf(item))) return true;
  if (!d->file->setParamValue(item.name(), value, item.subDevId()))
    return refuse(index, d->file->errorMsg());
  item.setProperty(PROPERTY_CHANGED, true);
  rowChanged(index);
  refreshUnitsOf(item.name());
  return true;
}

bool CParameterFileModel::refuse(const QModelIndex& index, const QString& reason) {
  d->errorMsg = reason;
  Q_EMIT editRefused(index, reason);
  return false;
}

QHash<int, QByteArray> CParameterFileModel::roleNames() const {
  QHash<int, QByteArray> names = QAbstractItemModel::roleNames();
  names.insert({{RawValueRole, "rawValue"},
                {RawDefaultRole, "rawDefault"},
                {ChoicesRole, "choices"},
                {IsGroupRole, "isGroup"},
                {IsDefinedRole, "isDefined"},
                {IsDefaultRole, "isDefault"},
                {SubDeviceRole, "subDevice"},
                {IdRole, "id"},
                {ChangedRole, "changed"},
                {WarningRole, "warning"},
                {WarningMessageRole, "warningMessage"},
                {ErrorRole, "error"},
                {ErrorMessageRole, "errorMessage"}});
  return names;
}
