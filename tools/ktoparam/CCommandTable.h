#pragma once

#include "SCommand.h"

class COutput;

/// All commands of the tool: finds the one that a command line names and runs it.
class CCommandTable {
 public:
  CCommandTable();

  /// The words behind "ktoparam".
  EExitStatus run(const QStringList& words, COutput& out) const;

 private:
  const SCommand* find(const QStringList& words) const;
  QVector<SCommand> family(const QString& firstWord) const;
  QStringList firstWords() const;
  EExitStatus help(const QStringList& words, COutput& out) const;
  EExitStatus runCommand(const SCommand& command, const QStringList& words, COutput& out) const;
  EExitStatus unknown(const QStringList& words, COutput& out) const;

  QVector<SCommand> mCommands;
};
