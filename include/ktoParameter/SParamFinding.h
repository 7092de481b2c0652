#pragma once

#include "ktoParameter_export.h"

#include <QList>
#include <QString>

/// One thing that a check or a load found, and where. Definitions have neither hardware id nor
/// sub-device.
///
/// @snippet usage.cpp CParameterFileChecker
struct KTOPARAMETER_EXPORT SParamFinding {
  enum ESeverity : int {
    Info = 0,     ///< nothing is wrong
    Warning = 1,  ///< probably not what was meant
    Error = 2     ///< a value, or a definition, that cannot be right
  };

  /// Each with its stable text and its severity.
  enum ECode : int {
    // Of a value. Limits are the definition's own, or the values of limit parameters.
    ValueNotOfType,            ///< "value-not-of-type", error
    ValueNotComparable,        ///< "value-not-comparable", error: "nan" where there are limits
    ValueBelowMinimum,         ///< "value-below-minimum", error
    ValueAboveMaximum,         ///< "value-above-maximum", error
    ValueBelowLimitParameter,  ///< "value-below-limit-parameter", error
    ValueAboveLimitParameter,  ///< "value-above-limit-parameter", error
    ValueNotAChoice,           ///< "value-not-a-choice", error
    ValueUnnamedBits,          ///< "value-unnamed-bits", warning: bits set that have no name
    ParameterNotDefined,       ///< "parameter-not-defined", warning
    ParameterMissing,          ///< "parameter-missing", info: defined, but in no sub-device
    IdMismatch,                ///< "id-mismatch", error: the definition of the name has another id
    NameMismatch,  ///< "name-mismatch", error: the definition of the id has another name

    // Of a definition's default, as those of a value.
    DefaultNotOfType,            ///< "default-not-of-type", error
    DefaultNotComparable,        ///< "default-not-comparable", error
    DefaultBelowMinimum,         ///< "default-below-minimum", error
    DefaultAboveMaximum,         ///< "default-above-maximum", error
    DefaultBelowLimitParameter,  ///< "default-below-limit-parameter", error: below its default
    DefaultAboveLimitParameter,  ///< "default-above-limit-parameter", error: above its default
    DefaultNotAChoice,           ///< "default-not-a-choice", error
    DefaultUnnamedBits,          ///< "default-unnamed-bits", warning

    // Of the other parts of a definition.
    LimitNotOfType,          ///< "limit-not-of-type", error: so it limits nothing
    LimitDangling,           ///< "limit-dangling", error: no definition has the limit's id
    LimitParameterNoNumber,  ///< "limit-parameter-no-number", warning: so it limits nothing
    MinimumAboveMaximum,     ///< "minimum-above-maximum", error
    VisibilityDangling,      ///< "visibility-dangling", error
    UnitDangling,            ///< "unit-dangling", error
    ChoiceValueDoubled,      ///< "choice-value-doubled", warning
    ChoiceNameDoubled,       ///< "choice-name-doubled", warning
    ChoiceNotOfType,         ///< "choice-not-of-type", warning: the type cannot hold it
    BitDoubled,              ///< "bit-doubled", warning
    BitNotOfType,            ///< "bit-not-of-type", warning: the type has no such bit
    CheckValuesNotValid,     ///< "check-values-not-valid", error: states with the same value
    DefinitionIdDoubled,     ///< "definition-id-doubled", error: such a file cannot be saved

    // Of a sub-device, found while a file is loaded. All its hardware ids share types and names.
    SubDeviceTypeReplaced,  ///< "sub-device-type-replaced", warning: by that of a later hardware id
    SubDeviceNameReplaced   ///< "sub-device-name-replaced", warning: likewise
  };

  static constexpr int kNoSubDevice = -1;

  static QString codeText(ECode code);
  static ESeverity severityOf(ECode code);
  static QString severityText(ESeverity severity);  ///< "info", "warning" or "error", translated

  ESeverity severity = Info;
  ECode code = ValueNotOfType;
  QString hardwareId;           ///< empty for a definition
  int subDevId = kNoSubDevice;  ///< 0 to 255, or kNoSubDevice
  QString groupPath;            ///< names joined by "/", shortened as NShortText::below() does when
                                ///< long; empty for the root group
  QString name;                 ///< of the parameter or definition; empty for a sub-device
  QString value;                ///< the text that is wrong, empty where there is none
  QString text;                 ///< a translated sentence
  int line = 0;  ///< in its file, from 1; 0 when neither load nor CParamLineIndex tells
};

using CParamFindings = QList<SParamFinding>;
