#pragma once

#include "SParamDifference.h"
#include "ktoParameter_export.h"

class ICParameterFile;

/// Compares the values of two parameter files. Parameters are told by their names within a
/// sub-device; the order within a group, empty groups and the Head are not compared.
///
/// Values are compared as CParamValueRules::areEqual() does when `definitions` defines them, else
/// as texts. It may be one of the files, or null.
///
/// Nothing is changed, nor selected. Both files may be the same object. The effort grows with the
/// number of parameters.
///
/// @snippet usage.cpp CParameterFileComparison
class KTOPARAMETER_EXPORT CParameterFileComparison {
 public:
  /// First the types and names of sub-devices that both files have under one hardware id, then
  /// the differences by hardware id, sub-device and tree order: that of the new file, what was
  /// removed follows what preceded it. A parameter is listed once for each way in which it
  /// differs.
  static CParamDifferences compare(ICParameterFile& oldFile, ICParameterFile& newFile,
                                   const ICParameterFile* definitions = nullptr);

  /// One hardware id of each file, in the same order; the differences name the new one. One
  /// that does not exist holds nothing.
  static CParamDifferences compareHardwareIds(ICParameterFile& oldFile, const QString& oldId,
                                              ICParameterFile& newFile, const QString& newId,
                                              const ICParameterFile* definitions = nullptr);

  /// The parameters of one sub-device of each file, such as two axes of one drive; the
  /// differences name the new one. Types and names of sub-devices are their own and not compared.
  /// One that does not exist holds nothing.
  static CParamDifferences compareSubDevices(ICParameterFile& oldFile, const QString& oldId,
                                             quint8 oldSubDevId, ICParameterFile& newFile,
                                             const QString& newId, quint8 newSubDevId,
                                             const ICParameterFile* definitions = nullptr);
};
