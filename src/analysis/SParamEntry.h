#pragma once

#include "CNodeKeys.h"
#include "CParamVal.h"

#include <QVector>

#include <functional>

class ICParameterFile;

/// A parameter as a value file holds it.
struct SParamEntry {
  QString name;
  quint32 id = 0;
  int group = CNodeKeys::kRoot;  ///< one number for all groups of one path
  CParamVal value;

  /// Visits all of a sub-device of the active hardware id, in tree order. The keys number the
  /// groups.
  static void visit(ICParameterFile& file, quint8 subDevId, CNodeKeys& keys,
                    const std::function<void(const SParamEntry&)>& visitor);
  /// The same, as copies.
  static QVector<SParamEntry> read(ICParameterFile& file, quint8 subDevId, CNodeKeys& keys);
};
