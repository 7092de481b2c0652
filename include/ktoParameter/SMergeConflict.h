#pragma once

#include "ktoParameter_export.h"

#include <QList>
#include <QString>

/// Something that both sides of a merge changed, each in its way.
///
/// @snippet usage.cpp CParameterFileMerge
struct KTOPARAMETER_EXPORT SMergeConflict {
  /// What is in conflict, each with its stable text.
  enum ESubject : int {
    Author,         ///< "author", of the Head
    Comment,        ///< "comment", of the Head
    Version,        ///< "version"
    HardwareId,     ///< "hardware-id" as a whole
    SubDevice,      ///< "sub-device" as a whole
    SubDeviceType,  ///< "sub-device-type"
    SubDeviceName,  ///< "sub-device-name"
    Parameter,      ///< "parameter" as a whole
    Value,          ///< "value" of a parameter
    Group,          ///< "group" in which a parameter lies
    Id,             ///< "id" of a parameter or definition
    // Of definitions, which have neither hardware id nor sub-device.
    Definition,         ///< "definition" as a whole
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
  /// "Changed" is also what was moved, or had its id changed.
  enum EKind : int {
    BothChanged,   ///< "both-changed", differently
    BothAdded,     ///< "both-added", differently
    OursRemoved,   ///< "ours-removed", theirs changed
    TheirsRemoved  ///< "theirs-removed", ours changed
  };

  static constexpr int kNoSubDevice = -1;

  static QString subjectText(ESubject subject);
  static QString kindText(EKind kind);
  /// A translated sentence with the texts of all sides, without the place.
  QString text() const;

  ESubject subject = Value;
  EKind kind = BothChanged;
  QString hardwareId;           ///< empty for what all hardware ids share
  int subDevId = kNoSubDevice;  ///< 0 to 255, or kNoSubDevice
  QString groupPath;            ///< of ours, or of theirs when ours removed it; names joined by
                                ///< "/", shortened as NShortText::below() does when long
  QString name;                 ///< of the parameter or definition
  QString base;                 ///< text of the subject, or value of a parameter; null for none
  QString ours;                 ///< likewise; this is kept in the result
  QString theirs;               ///< likewise
};

using CMergeConflicts = QList<SMergeConflict>;
