#pragma once

#include "ktoParameter_export.h"

#include <QList>
#include <QString>

/// One way in which a definition differs between an old and a new set of definitions.
///
/// @snippet usage.cpp CDefinitionComparison
struct KTOPARAMETER_EXPORT SDefinitionDifference {
  /// What differs, each with its stable text.
  enum EWhat : int {
    Added,              ///< "added": only the new set defines it
    Removed,            ///< "removed"
    Name,               ///< "name": another name under the same id
    Id,                 ///< "id"
    Type,               ///< "type"
    Unit,               ///< "unit"
    Default,            ///< "default"
    Minimum,            ///< "minimum"
    Maximum,            ///< "maximum"
    MinimumParameters,  ///< "minimum-parameters"
    MaximumParameters,  ///< "maximum-parameters"
    Choices,            ///< "choices", and whether other values are accepted
    RadioButtons,       ///< "radio-buttons"
    CheckBox,           ///< "check-box"
    Bits,               ///< "bits"
    Visibility,         ///< "visibility"
    Hint                ///< "hint"
  };
  /// What it does to values that were made for the old definition, each with its stable text.
  enum EEffect : int {
    Safe,            ///< "safe": every value that was allowed still is, and means the same
    ValuesMayBreak,  ///< "values-may-break": some are no longer allowed, or no longer found
    MeaningChanged   ///< "meaning-changed": a value may be allowed still, and mean something else
  };

  static QString whatText(EWhat what);
  static QString effectText(EEffect effect);

  EWhat what = Added;
  EEffect effect = Safe;
  QString name;     ///< in the new set; of what was removed, in the old one
  QString oldName;  ///< in the old set; null for what was added
  QString oldText;  ///< as one reads it, such as "u16" or "0 … 3000"; null where there is none
  QString newText;  ///< likewise
  QString reason;   ///< a translated sentence that says why the effect is what it is
};

using CDefinitionDifferences = QList<SDefinitionDifference>;
