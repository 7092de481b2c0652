#pragma once

#include "CParameterMigration.h"

#include <QMap>

#include <memory>
#include <optional>
#include <vector>

class CInvocation;
class CLoadedFile;
class COutput;

/// The releases that a command line names by their definition files, and the migration tables that
/// lead from each to the next. What is wrong with them is reported.
class CReleases {
 public:
  using EDirection = CParameterMigration::EDirection;

  CReleases(const CInvocation& invocation, COutput& out);
  ~CReleases();

  /// Why the options make no sense; empty when they do.
  QString usageProblem() const;
  bool load();
  /// False when a table has an error.
  bool check() const;
  EDirection direction() const;
  QVector<CParameterMigration::SRelease> all() const;
  const QStringList& tableNames() const { return mTableNames; }

  /// Those of "--answer", by name, read by the definitions at the end. Nothing when one is wrong.
  std::optional<QMap<QString, QString>> answers() const;
  /// Definitions at the end that those at the beginning have not, under whatever name.
  QStringList newDefinitions() const;
  /// Parameters that the tables drop; they do not come back.
  QStringList dropped() const;
  /// Why the values look as if they were migrated already; empty when they do not.
  QString migratedAlready(const CLoadedFile& values) const;

 private:
  const ICParameterFile& end() const;
  bool readAnswer(const QString& text, QMap<QString, QString>& answers) const;

  const CInvocation& mInvocation;
  COutput& mOut;
  const QStringList mTableNames;
  QVector<CMigrationTable> mTables;
  std::vector<std::unique_ptr<CLoadedFile>> mDefinitions;  // one more than tables, by release
};
