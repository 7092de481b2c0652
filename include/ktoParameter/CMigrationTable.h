#pragma once

#include "SMigrationRule.h"
#include "SParamFinding.h"
#include "ktoParameter_export.h"

#include <QCoreApplication>
#include <QList>

class ICParameterFile;

/// A migration table: how the values of one release's definitions become values of the next. It is
/// written by hand, kept beside the definition files, and an XML file in UTF-8 of its own kind.
///
/// @snippet usage.cpp CMigrationTable
class KTOPARAMETER_EXPORT CMigrationTable {
  Q_DECLARE_TR_FUNCTIONS(CMigrationTable)

 public:
  /// Something that is wrong with a table, or with a table beside two sets of definitions.
  struct SProblem {
    QString text;            ///< a translated sentence
    int line = 0;            ///< in the file, from 1; 0 for what no rule is about
    bool isWarning = false;  ///< a migration is possible all the same
  };

  QString oldRelease;  ///< stands in the Head comment of the old definition file; may be empty
  QString newRelease;  ///< likewise of the new one
  QString newVersion;  ///< of migrated value files, such as "1.1"; empty: they keep theirs
  QList<SMigrationGroup> groups;
  QList<SMigrationRule> rules;  ///< at most one for a name

  /// False, with a message that names file and line and this table as it was, when the file cannot
  /// be read or is not a migration table.
  bool load(const QString& fileName, QString& error);
  /// Replaces the file in one step. False, with a message, when it cannot be written.
  bool save(const QString& fileName, QString& error) const;
  /// The same into a buffer.
  bool save(QByteArray& buffer, QString& error) const;

  /// What is wrong with it for these definitions, by line: rules that contradict each other, that
  /// name what the sets do not define, or that cannot work on the types; definitions whose meaning
  /// changed and that no rule covers, each as the one that the table makes of it. Warnings are what
  /// may be meant: a release that is in no Head comment, removed definitions that no rule is about,
  /// dropped ones that are still defined, ids that change without a rule, numbers and bits without
  /// a name, choices that become one, a question about a removed one, further changes of a
  /// definition whose rule covers one, and conversions of which no name and no version tells
  /// afterwards.
  QList<SProblem> problems(const ICParameterFile& oldDefinitions,
                           const ICParameterFile& newDefinitions) const;

  /// A first table for these definitions: what is certain (an id that stayed under a new name, a
  /// name that stayed with a new id) as rules, what is likely as proposals with the reason, and a
  /// question for everything else that changes the meaning of values or loses them.
  static CMigrationTable draft(const ICParameterFile& oldDefinitions,
                               const ICParameterFile& newDefinitions);
};
