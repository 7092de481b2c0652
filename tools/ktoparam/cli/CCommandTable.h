#pragma once

#include "SCommand.h"

class COutput;

/// The commands of the tool: finds the one that a command line names and runs it.
class CCommandTable {
 public:
  /// One command is hidden: a program calls it, and users are not shown it.
  CCommandTable(const QVector<SCommand>& commands, const SCommand& hidden)
      : mCommands(commands), mHidden(hidden) {}

  /// The words after "ktoparam".
  EExitStatus run(const QStringList& words, COutput& out) const;

 private:
  QVector<SCommand> family(const QString& firstWord) const;
  EExitStatus help(const QStringList& words, COutput& out) const;
  static EExitStatus runCommand(const SCommand& command, const QStringList& words, COutput& out);
  EExitStatus unknown(const QStringList& words, COutput& out) const;

  QVector<SCommand> mCommands;
  SCommand mHidden;
};
