#pragma once

#include "CParamDefItem.h"
#include "CRowCache.h"

#include <QMap>
#include <QString>

class ICParameterFile;

/// What CParameterFileModel keeps: the groups, and texts that cost more than a look into the file.
class CParameterFileModelPrivate {
 public:
  void readSubDevices();

  CParamDefItem definitionOf(const ICParamTreeNode& node) const;
  /// The unit's name. Definitions that have no such unit are asked for it once, since the file
  /// reports each time that there is none.
  QString unitOf(const ICParamTreeNode& node);
  /// Why the value must not be stored; empty when it may.
  QString problem(const ICParamTreeNode& node, const CParamVal& value) const;

  ICParameterFile* file = nullptr;
  QString errorMsg;
  CRowCache index;
  QMap<quint32, QMap<quint8, QString>> units;  ///< by the unit's id and sub-device
};
