#pragma once

#include "CNodeNumbers.h"
#include "CNodeText.h"

#include <functional>
#include <vector>

class ICParameterFile;

/// A parameter as a value file holds it. Its texts are those of the file until that is changed; a
/// copy has its own.
struct SStoredParam {
  CNodeText name;
  quint32 id = 0;
  int group = CNodeNumbers::kRoot;  ///< one number for all groups of one path
  CNodeText value;

  /// Visits all of a sub-device, in tree order. The keys number the groups.
  static void visit(ICParameterFile& file, const QString& hardwareId, quint8 subDevId,
                    CNodeNumbers& keys, const std::function<void(SStoredParam&&)>& visitor);
  /// The same, as a list.
  static std::vector<SStoredParam> read(ICParameterFile& file, const QString& hardwareId,
                                        quint8 subDevId, CNodeNumbers& keys);
};
