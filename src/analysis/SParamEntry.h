#pragma once

#include "CParamVal.h"

#include <QStringList>
#include <QVector>

#include <functional>

class ICParameterFile;

/// A parameter as a value file holds it.
struct SParamEntry {
  QString name;
  quint32 id = 0;
  QStringList groups;  ///< from the root group on; shared by the parameters of a group
  CParamVal value;

  QString groupPath() const { return groups.join(QLatin1Char('/')); }

  /// Visits all of a sub-device of the active hardware id, in tree order.
  static void visit(ICParameterFile& file, quint8 subDevId,
                    const std::function<void(const SParamEntry&)>& visitor);
  /// The same, as copies.
  static QVector<SParamEntry> read(ICParameterFile& file, quint8 subDevId);
};
