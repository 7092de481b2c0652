#pragma once

#include "ktoParameter_export.h"

#include <QList>
#include <QString>

/// One difference between an old and a new parameter file.
///
/// @snippet usage.cpp CParameterFileComparison
struct KTOPARAMETER_EXPORT SParamDifference {
  /// Each with its stable text. "Added" is what only the new file has.
  enum EKind : int {
    SubDeviceTypeChanged,  ///< "sub-device-type-changed"; values are the types' texts
    SubDeviceNameChanged,  ///< "sub-device-name-changed"; values are the names
    HardwareIdAdded,       ///< "hardware-id-added"; what it holds is not listed
    HardwareIdRemoved,     ///< "hardware-id-removed"; likewise
    SubDeviceAdded,        ///< "sub-device-added"; likewise
    SubDeviceRemoved,      ///< "sub-device-removed"; likewise
    ParameterAdded,        ///< "parameter-added", with its new value
    ParameterRemoved,      ///< "parameter-removed", with its old value
    ParameterMoved,        ///< "parameter-moved", to another group
    IdChanged,             ///< "id-changed"; values are the ids, 0 for none
    ValueChanged           ///< "value-changed"
  };

  static constexpr int kNoSubDevice = -1;

  static QString kindText(EKind kind);

  EKind kind = ValueChanged;
  QString hardwareId;           ///< empty for types and names, which all hardware ids share
  int subDevId = kNoSubDevice;  ///< 0 to 255, or kNoSubDevice
  QString oldGroupPath;         ///< names joined by "/", shortened as NShortText::below() does when
                                ///< long; empty for the root group, and where there is no old
                                ///< parameter
  QString newGroupPath;         ///< likewise
  QString name;                 ///< of the parameter
  QString oldValue;             ///< null where there is none
  QString newValue;             ///< likewise
};

using CParamDifferences = QList<SParamDifference>;
