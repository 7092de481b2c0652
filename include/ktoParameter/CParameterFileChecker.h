#pragma once

#include "SParamFinding.h"
#include "ktoParameter_export.h"

class ICParameterFile;

/// Checks values against their definitions, and definitions in themselves. Nothing is changed, and
/// every finding is listed, however many there are; the effort grows with the number of values,
/// definitions and choices only.
///
/// Integers are compared exactly, whatever their types. Files that answer for each other (those of
/// ICParameterFile::create()) answer here too; use ICParameterFile::createSingle().
///
/// @snippet usage.cpp CParameterFileChecker
class KTOPARAMETER_EXPORT CParameterFileChecker {
 public:
  /// Whether to list what is defined but missing: for each hardware id, each definition that none
  /// of its sub-devices holds.
  enum EMissing : int { ReportMissing, SkipMissing };

  /// First what file.loadFindings() has to tell, whatever the hardware id; then all values of the
  /// hardware ids (of one, unless hardwareId is empty), by hardware id, sub-device and tree order,
  /// with what is missing at the end of its hardware id. A value is judged as
  /// CParamValueRules::violations() does, with the limit parameters of its sub-device.
  ///
  /// Nothing is selected. An unknown hardwareId gives no findings. file.errorMsg() may tell
  /// afterwards of an id that does not exist.
  static CParamFindings checkValues(ICParameterFile& file, const QString& hardwareId = QString(),
                                    EMissing missing = ReportMissing);

  /// All definitions, by id and then by name. A definition without a default has nothing wrong
  /// with its default.
  static CParamFindings checkDefinitions(const ICParameterFile& file);
};
