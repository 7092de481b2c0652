#pragma once

#include "CNodeNumbers.h"
#include "CParamVal.h"

#include <QVector>

#include <functional>

class ICParameterFile;

/// A parameter as a value file holds it.
struct SStoredParam {
  QString name;
  quint32 id = 0;
  int group = CNodeNumbers::kRoot;  ///< one number for all groups of one path
  CParamVal value;

  /// Visits all of a sub-device of the active hardware id, in tree order. The keys number the
  /// groups.
  static void visit(ICParameterFile& file, quint8 subDevId, CNodeNumbers& keys,
                    const std::function<void(const SStoredParam&)>& visitor);
  /// The same, as copies.
  static QVector<SStoredParam> read(ICParameterFile& file, quint8 subDevId, CNodeNumbers& keys);
};
