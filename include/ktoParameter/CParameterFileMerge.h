#pragma once

#include "SMergeConflict.h"
#include "ktoParameter_export.h"

#include <QCoreApplication>

class ICParameterFile;

/// Merges what somebody else (theirs) changed since a common state (base) into one's own file
/// (ours), parameter by parameter. Definitions are not needed, and never merged.
///
/// - What only theirs changed is taken: values, ids, the group of a parameter, what was added and
///   removed, hardware ids and sub-devices with all they hold, types and names of sub-devices,
///   author, comment and version. What both changed in the same way is not a conflict.
/// - A group goes when theirs removed it and nothing is left in it, and comes back when theirs put
///   something into one that ours removed.
/// - What theirs added or moved follows what it follows in theirs, and what ours
///   added there. The order within a group never conflicts: where both changed it, ours counts.
/// - In a conflict ours stays, for that one parameter and subject only. A hardware id or a
///   sub-device that one side removed and the other changed is one conflict.
/// - The date of the Head, which each save renews, never conflicts.
///
/// So without conflicts, and unless both put something in the same place, ours is what one would
/// have got by making both sides' changes by hand. The effort grows with the number of parameters.
///
/// @snippet usage.cpp CParameterFileMerge
class KTOPARAMETER_EXPORT CParameterFileMerge {
  Q_DECLARE_TR_FUNCTIONS(CParameterFileMerge)

 public:
  /// Three files as ICParameterFile::createSingle() makes them, not owned; a base that holds
  /// nothing is for two files that were made independently. Values that both changed are equal
  /// when the definition in ours, if any, says so.
  CParameterFileMerge(const ICParameterFile& base, ICParameterFile& ours,
                      const ICParameterFile& theirs);

  /// Changes ours, whose changed hardware ids are marked so; tree nodes of those are no longer
  /// valid. When the active hardware id goes, the first one becomes active. False, with errorMsg()
  /// and ours as it was, when the files are of different types or not objects of this library;
  /// conflicts are not a failure.
  bool run();
  QString errorMsg() const { return mErrorMsg; }

  /// In the order of the subjects; those of parameters by hardware id, sub-device and tree order.
  const CMergeConflicts& conflicts() const { return mConflicts; }
  /// The version under which to save ours, as ICParameterFile::paramFileVersion() packs it.
  quint32 version() const { return mVersion; }

 private:
  void mergeHead();
  void mergeVersion();
  bool mergeText(SMergeConflict::ESubject subject, const QString& base, const QString& ours,
                 const QString& theirs);

  const ICParameterFile& mBase;
  ICParameterFile& mOurs;
  const ICParameterFile& mTheirs;
  QString mErrorMsg;
  CMergeConflicts mConflicts;
  quint32 mVersion = 0;
};
