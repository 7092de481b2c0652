#pragma once

#include "SDefinitionDifference.h"
#include "ktoParameter_export.h"

#include <QCoreApplication>

class ICParameterFile;

/// Compares two sets of definitions, such as those of two releases of a device.
///
/// Definitions are told by their names; one whose name only the old set has and one whose name
/// only the new set has are the same, renamed, when they have the same id. What refers to another
/// definition, or to a unit, is compared by name, so that numbers that only changed together with
/// what they refer to do not differ.
///
/// The effort grows with the number of definitions, choices, bits and references.
///
/// @snippet usage.cpp CDefinitionComparison
class KTOPARAMETER_EXPORT CDefinitionComparison {
  Q_DECLARE_TR_FUNCTIONS(CDefinitionComparison)

 public:
  /// By name of the new set, each definition's differences in the order of their kinds; what was
  /// removed stands where its name would.
  static CDefinitionDifferences compare(const ICParameterFile& oldDefinitions,
                                        const ICParameterFile& newDefinitions);
};
