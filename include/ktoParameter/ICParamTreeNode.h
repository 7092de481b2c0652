#pragma once

#include "CParamVal.h"
#include "ktoParameter_export.h"

#include <QString>
#include <QVariant>

/// A node of a parameter tree: a group, or a parameter that lies in one.
///
/// The nodes belong to the parameter file that hands them out; they are valid until they are
/// deleted there and are never deleted through this interface. Nodes are added and deleted through
/// the file, which also sets the values.
///
/// @snippet usage.cpp ICParamTreeNode
class KTOPARAMETER_EXPORT ICParamTreeNode {
 public:
  virtual ~ICParamTreeNode();

  virtual bool isGroup() const = 0;
  virtual bool isParam() const = 0;
  virtual QString name() const = 0;
  virtual unsigned int id() const = 0;         ///< 0xFFFFFFFF for a group, 0 for "no id"
  virtual unsigned char subDevId() const = 0;  ///< 0xFF when not set

  virtual ICParamTreeNode* rootPtr() = 0;          ///< the node itself when it has no parent
  virtual ICParamTreeNode* parentPtr() const = 0;  ///< null for a root
  /// Position among the siblings; 0 for a root, -1 when its parent does not list it. Costs a search
  /// through the siblings.
  virtual int siblingNo() const = 0;
  virtual int childCnt() const = 0;
  virtual ICParamTreeNode* childPtr(int index) const = 0;  ///< null outside 0 to childCnt() - 1
  /// The first direct child of exactly that name; null when there is none.
  virtual ICParamTreeNode* childPtr(const QString& name) const = 0;

  /// Free properties, not kept in files; keys in use are NParamDef::PROPERTY_CHANGED and its like.
  virtual void setProperty(QString key, QVariant value) = 0;
  virtual QVariant property(QString key) const = 0;     ///< invalid when there is none
  virtual bool removeProperty(const QString& key) = 0;  ///< true when there was one
  virtual void removeAllProperties() = 0;

  // --- Added later. The order of all virtual operations is fixed: new ones go to the end.

  /// The value of a parameter; null for a group.
  virtual CParamVal value() const;

 protected:
  ICParamTreeNode() = default;

 private:
  Q_DISABLE_COPY(ICParamTreeNode)
};
