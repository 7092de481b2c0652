#pragma once

#include "SCommand.h"

class COutput;

/// All commands of the tool: finds the one that a command line names and runs it.
class CCommandTable {
 public:
  CCommandTable();

  /// The words behind "ktoparam".
  EExitStatus run(const QStringList& words, COutput& out) const;

  const QVector<SCommand>& commands() const { return mCommands; }

 private:
  const SCommand* find(const QStringList& words) const;
  QVector<SCommand> family(const QString& firstWord) const;
  QStringList firstWords() const;
  /// What the shell's function for completion calls: "complete HEAD TAIL BREAKS" prints "files" or
  /// "words", and then one word a line.
  EExitStatus complete(const QStringList& words, COutput& out) const;
  EExitStatus help(const QStringList& words, COutput& out) const;
  EExitStatus runCommand(const SCommand& command, const QStringList& words, COutput& out) const;
  EExitStatus unknown(const QStringList& words, COutput& out) const;

  QVector<SCommand> mCommands;
};
