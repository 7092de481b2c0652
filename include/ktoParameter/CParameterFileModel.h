#pragma once

#include "ktoParameter_export.h"

#include <QAbstractItemModel>
#include <QString>

#include <functional>
#include <memory>

class CParamDefItem;
class CParamVal;
class CParameterFileModelPrivate;
class ICParamTreeNode;
class ICParameterFile;

/// A parameter file for Qt's views: the sub-devices of the active hardware id at the top, beneath
/// them groups and parameters in tree order.
///
/// The file is not owned and must outlive the model or its next setFile(). What is changed through
/// the model shows at once. A change that goes past it must be told: an edit of values by
/// valueChanged(), everything else (loading, importing, other nodes, hardware ids, definitions) by
/// making it inside change().
///
/// A parameter is found at the same cost in a group of ten and of a hundred thousand; what the
/// model keeps grows with the groups that were looked into, not with the parameters. It lives in
/// one thread together with its file.
///
/// @snippet usage.cpp CParameterFileModel
class KTOPARAMETER_EXPORT CParameterFileModel : public QAbstractItemModel {
  Q_OBJECT

 public:
  enum EColumn : int {
    NameColumn = 0,
    ValueColumn = 1,    ///< as CParamValueText::shown(); the one that can be edited
    UnitColumn = 2,     ///< the unit's name
    DefaultColumn = 3,  ///< shown as the value is
    HintColumn = 4,
    ColumnCount = 5
  };

  /// Beside Qt's own roles, and the same in every column. Each of the last five is a property of
  /// the node (see NParamDef::PROPERTY_CHANGED and its like), which setData() sets.
  enum ERole : int {
    RawValueRole = Qt::UserRole + 1,  ///< QString: the text in the file, no text for groups
    RawDefaultRole,                   ///< QString, no text without a definition
    ChoicesRole,                      ///< QStringList: the names of CParamValueText::choices()
    IsGroupRole,                      ///< bool, true for sub-devices too
    IsDefinedRole,                    ///< bool: a parameter that has a definition
    IsDefaultRole,                    ///< bool: the value equals the default
    SubDeviceRole,                    ///< int
    IdRole,                           ///< unsigned int: the parameter's, no value for groups
    ChangedRole,                      ///< bool: edited, also by setAndMarkParamValue()
    WarningRole,                      ///< bool
    WarningMessageRole,               ///< QString
    ErrorRole,                        ///< bool
    ErrorMessageRole                  ///< QString
  };

  /// The file may be null, which is an empty model.
  explicit CParameterFileModel(ICParameterFile* file = nullptr, QObject* parent = nullptr);
  ~CParameterFileModel() override;

  void setFile(ICParameterFile* file);
  ICParameterFile* file() const;

  /// Why the last edit was refused.
  QString errorMsg() const;

  // --- Edits. Where one fails, nothing changes and errorMsg() tells why.

  bool selectHardwareId(const QString& hardwareId);
  /// As ICParameterFile::addGroup() and addParameter(). The parent is a sub-device or a group. The
  /// index of the node, which may be one that was there, or an invalid one.
  QModelIndex addGroup(const QModelIndex& parent, const QString& name);
  QModelIndex addParameter(const QModelIndex& parent, const QString& name);
  QModelIndex addParameter(const QModelIndex& parent, const QString& name, const CParamVal& value);
  /// Deletes nodes with all below them. Sub-devices cannot be removed.
  bool removeRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;
  /// Makes any other change of the file, with the model reset around it.
  void change(const std::function<void(ICParameterFile&)>& edit);

  /// The index of a parameter, in its column; invalid for an unknown one.
  QModelIndex indexOf(const QString& name, quint8 subDevId,
                      int column = CParameterFileModel::NameColumn) const;
  /// The node of an index, null for an invalid one.
  ICParamTreeNode* node(const QModelIndex& index) const;

  // --- QAbstractItemModel

  QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  using QObject::parent;
  int rowCount(const QModelIndex& parent = QModelIndex()) const override;
  int columnCount(const QModelIndex& parent = QModelIndex()) const override;
  bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation,
                      int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  /// A value, given as a name or number (Qt::EditRole), as the text for the file (RawValueRole) or
  /// as the state of a check box (Qt::CheckStateRole), or one of the properties. A value that is
  /// not of its type, not a choice or beyond a limit is refused, and so is that of a parameter
  /// without a definition. Bits without a name are not.
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
  /// For Qt Quick: the names of the roles without "Role", beginning with a small letter.
  QHash<int, QByteArray> roleNames() const override;

 public Q_SLOTS:
  /// Tells the views that a value or a property was changed past the model.
  void valueChanged(const QString& name, quint8 subDevId);

 Q_SIGNALS:
  /// setData() did not take a value, for the reason.
  void editRefused(const QModelIndex& index, const QString& reason);

 private:
  QVariant parameterData(const ICParamTreeNode& node, int column, int role) const;
  QVariant shownText(const ICParamTreeNode& node, const CParamDefItem& definition,
                     int column) const;
  bool setText(const QModelIndex& index, const CParamDefItem& definition, const QString& text);
  bool setValue(const QModelIndex& index, const CParamVal& value);
  bool refuse(const QModelIndex& index, const QString& reason);
  QModelIndex addNode(const QModelIndex& parent,
                      const std::function<ICParamTreeNode*(ICParamTreeNode*)>& add);
  void refreshUnitsOf(const QString& name);
  void refreshUnits();
  void unitsChanged();
  void rowChanged(const QModelIndex& index);

  const std::unique_ptr<CParameterFileModelPrivate> d;
};
