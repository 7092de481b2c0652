#pragma once

#include "CParamVal.h"
#include "ktoParameter_export.h"

#include <QString>
#include <QVariant>

/// A node of a settings tree: a group of nodes, or a value with unit and comment.
///
/// The nodes belong to the settings file that hands them out; they are valid until its tree is
/// cleared or replaced by a load, and are never deleted through this interface. Name and type are
/// fixed. A node without a name is neither group nor value, and is not saved.
///
/// @snippet usage.cpp ICSettingsFile
class KTOPARAMETER_EXPORT ICSettingsTreeNode {
 public:
  /// The type of a node, with its name in the file. Values are kept as texts whatever their type.
  enum ESettingsType {
    TypeGroup = 0,  ///< no value, and no type in the file
    TypeUInt8 = 1,
    TypeUInt16 = 2,
    TypeUInt32 = 3,
    TypeUInt64 = 4,
    TypeInt8 = 5,
    TypeInt16 = 6,
    TypeInt32 = 7,
    TypeInt64 = 8,
    TypeReal64 = 9,    ///< 64-bit floating point
    TypeString = 10,   ///< may be empty
    TypeBoolean = 11,  ///< "TRUE" or "FALSE"
  };

  /// The type's name in the file, e.g. "UINT8"; empty for the group and an unknown type.
  static QString typeToStr(ESettingsType type);

  virtual ~ICSettingsTreeNode();

  virtual bool isGroup() const = 0;
  virtual bool isParam() const = 0;  ///< a value
  virtual QString name() const = 0;  ///< the tag of its element in the file
  virtual ESettingsType type() const = 0;

  /// The value's text, which is not checked against the type; but a save refuses a value of any
  /// type but a string that is empty or white space, since the file could not be loaded. On a node
  /// that is not a value this empties it, whatever is passed.
  virtual void setValue(const CParamVal& value) = 0;
  virtual CParamVal value() const = 0;
  /// Free text; empty on a node that is not a value, whatever is passed.
  virtual void setUnit(const QString& unit) = 0;
  virtual QString unit() const = 0;
  /// Free text, for groups too; that of the root is not saved.
  virtual void setComment(const QString& comment) = 0;
  virtual QString comment() const = 0;

  /// Free properties, not kept in files.
  virtual void setProperty(const QString& key, const QVariant& value) = 0;
  virtual QVariant property(const QString& key) const = 0;  ///< invalid when there is none
  virtual bool removeProperty(const QString& key) = 0;      ///< true when there was one

  virtual ICSettingsTreeNode* rootPtr() = 0;          ///< the node itself when it has no parent
  virtual ICSettingsTreeNode* parentPtr() const = 0;  ///< null for the root
  /// Position among the siblings; 0 for the root, -1 when its parent does not list it. Costs a
  /// search through the siblings.
  virtual int siblingNo() const = 0;
  virtual int childCnt() const = 0;
  virtual ICSettingsTreeNode* childPtr(int index) const = 0;  ///< null outside 0 to childCnt() - 1

 protected:
  ICSettingsTreeNode() = default;

 private:
  Q_DISABLE_COPY(ICSettingsTreeNode)
};
