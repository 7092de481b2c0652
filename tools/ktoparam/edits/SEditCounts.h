#pragma once

#include "NParamDef.h"

/// What an editing command did to one parameter.
struct SEditedParam {
  /// The first ones as NParamDef::SImportedParam has them.
  enum EWhat : int { Taken, Equal, Defaulted, Kept, Added, Unknown, Removed, Failed };

  EWhat what = Taken;
  quint8 subDevId = 0;
  QString name;
};

/// What an editing command did: what an import counts, and more.
struct SEditCounts : NParamDef::SImportResult {
  int removed = 0;
  int failed = 0;  ///< are why nothing was done

  /// Those that are told by name: all but the equal ones, and the failed ones, of which a message
  /// tells.
  QVector<SEditedParam> params;

  /// Counts and lists one.
  void note(SEditedParam::EWhat what, quint8 subDevId, const QString& name);
};
