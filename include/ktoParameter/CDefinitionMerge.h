#pragma once

#include "SMergeConflict.h"
#include "ktoParameter_export.h"

#include <QCoreApplication>

class ICParameterFile;

/// Merges what somebody else (theirs) changed since a common state (base) into one's own
/// definitions (ours), definition by definition and field by field. Values are never merged.
///
/// - Definitions are told by their names. Fields are the id, the type, the unit, the default, each
///   limit and each list of limit parameters, the choices, the radio buttons, the check box, the
///   bits, the visibility and the hint; each is taken as a whole.
/// - What only theirs changed, added or removed is taken. What both changed in the same way is not
///   a conflict.
/// - In a conflict ours stays, for that one field only. A definition that one side removed and the
///   other changed is one conflict.
/// - The result can be saved when ours and theirs could: where a definition would get the id of
///   another one, or a minimum above its maximum, what theirs changed there is a conflict.
/// - The date of the Head, which each save renews, never conflicts.
///
/// The effort grows with the number of definitions, choices, bits and references.
///
/// @snippet usage.cpp CDefinitionMerge
class KTOPARAMETER_EXPORT CDefinitionMerge {
  Q_DECLARE_TR_FUNCTIONS(CDefinitionMerge)

 public:
  /// Three files as ICParameterFile::createSingle() makes them, not owned; a base that holds no
  /// definitions is for two files that were made independently.
  CDefinitionMerge(const ICParameterFile& base, ICParameterFile& ours,
                   const ICParameterFile& theirs);

  /// The versions of the files, packed as CStr::stringToRevision() does, since definitions do not
  /// know them; without a base, the first is 0.
  void setVersions(quint32 base, quint32 ours, quint32 theirs);

  /// Changes the definitions of ours, which are marked so; pointers to them are no longer valid.
  /// False, with errorMsg() and ours as it was, when the files are not objects of this library;
  /// conflicts are not a failure.
  bool run();
  QString errorMsg() const { return mErrorMsg; }

  /// Of the Head, by the names of the definitions in the order of their fields, and then those of
  /// ids that two definitions would share.
  const CMergeConflicts& conflicts() const { return mConflicts; }
  /// The version under which to save ours; 0 unless setVersions() was called.
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
  quint32 mBaseVersion = 0;
  quint32 mOursVersion = 0;
  quint32 mTheirsVersion = 0;
  quint32 mVersion = 0;
};
