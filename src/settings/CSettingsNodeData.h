#pragma once

#include "ICSettingsTreeNode.h"

#include <QHash>

/// What a node of a settings tree is. The name tells whether it is anything, the type a group from
/// a value; only values carry a value and a unit.
class CSettingsNodeData {
 public:
  using ESettingsType = ICSettingsTreeNode::ESettingsType;

  CSettingsNodeData() = default;
  CSettingsNodeData(const QString& name, ESettingsType type) : mName(name), mType(type) {}

  bool isValid() const { return !mName.isEmpty(); }
  bool isGroup() const { return isValid() && mType == ICSettingsTreeNode::TypeGroup; }
  bool isParam() const { return isValid() && mType != ICSettingsTreeNode::TypeGroup; }

  QString name() const { return mName; }
  ESettingsType type() const { return mType; }
  void setValue(const CParamVal& value);
  CParamVal value() const { return mValue; }
  void setUnit(const QString& unit);
  QString unit() const { return mUnit; }
  void setComment(const QString& comment) { mComment = comment; }
  QString comment() const { return mComment; }

  void setProperty(const QString& key, const QVariant& value) { mProperties.insert(key, value); }
  QVariant property(const QString& key) const { return mProperties.value(key); }
  bool removeProperty(const QString& key) { return mProperties.remove(key) > 0; }

 private:
  QString mName;
  ESettingsType mType = ICSettingsTreeNode::TypeGroup;
  CParamVal mValue;
  QString mUnit;
  QString mComment;
  QHash<QString, QVariant> mProperties;
};
