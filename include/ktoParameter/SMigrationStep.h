#pragma once

#include "ktoParameter_export.h"

#include <QList>
#include <QString>

/// What a migration does to one parameter or group, or leaves to a human.
///
/// @snippet usage.cpp CParameterMigration
struct KTOPARAMETER_EXPORT SMigrationStep {
  /// Each with its stable text. A parameter has one step; of several changes the first of these
  /// that holds names it, and `text` tells all.
  enum EKind : int {
    Decide,       ///< "decide": a human decides; the value stays until then
    NotAllowed,   ///< "not-allowed": the new definition does not allow the new value
    Dropped,      ///< "dropped"
    Rounded,      ///< "rounded": converted, and the result was rounded
    Converted,    ///< "converted": another value that means the same
    Replaced,     ///< "replaced" by the table's value
    Moved,        ///< "moved" to another sub-device
    Renamed,      ///< "renamed"
    IdChanged,    ///< "id-changed"
    GroupRenamed  ///< "group-renamed"
  };

  static constexpr int kNoSubDevice = -1;

  static QString kindText(EKind kind);

  EKind kind = Decide;
  QString hardwareId;
  int subDevId = kNoSubDevice;     ///< before the migration
  int newSubDevId = kNoSubDevice;  ///< after it; kNoSubDevice for what is dropped
  QString groupPath;               ///< before it; names joined by "/", shortened as
                                   ///< NShortText::below() does when long
  QString name;                    ///< before it; of a group step, the group's
  QString newName;                 ///< after it; null for what is dropped
  QString oldValue;                ///< null for a group
  QString newValue;                ///< null for a group and for what is dropped
  QString text;                    ///< translated: the rule, the reason, the question
  /// Migrating back gives the same text, name, id and place.
  bool comesBack = true;
  int table = 0;  ///< of a chain, from 0
  int line = 0;   ///< of the rule in its table, from 1; 0 when no rule is about the parameter
};

using CMigrationSteps = QList<SMigrationStep>;
