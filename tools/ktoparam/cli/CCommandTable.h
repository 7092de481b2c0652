#pragma once

#include "SCommand.h"

class COutput;

/// The commands of the tool: finds the one that a command line names and runs it.
class CCommandTable {
 public:
  explicit CCommandTable(const QVector<SCommand>& commands);

  /// The words after "ktoparam".
  EExitStatus run(const QStringList& words, COutput& out) const;

  /// Those that users are shown.
  const QVector<SCommand>& shown() const { return mShown; }

 private:
  QVector<SCommand> family(const QString& firstWord) const;
  EExitStatus help(const QStringList& words, COutput& out) const;
  static EExitStatus runCommand(const SCommand& command, const QStringList& words, COutput& out);
  EExitStatus unknown(const QStringList& words, COutput& out) const;

  QVector<SCommand> mCommands;
  QVector<SCommand> mShown;
};
