#pragma once

#include "CShellLine.h"
#include "KnownNames.h"
#include "SCommand.h"

#include <QMap>

class COutput;

/// What may follow on a command line: taken from the commands' records, and from the files that
/// the line names.
class CCompletion {
 public:
  /// The commands must live as long as this.
  CCompletion(const QVector<SCommand>& commands, const CShellLine& line);

  /// Whether a file is expected, whose name the shell knows how to complete.
  bool wantsFile() const { return mWord == EWord::File; }
  /// What the shell may put in place of the word at the cursor. Problems with files are reported.
  QStringList replacements(COutput& out) const;

 private:
  void expectCommand(const QStringList& words);
  void expect(const SCommand& command, int nameWords);
  void expectArgument(const SCommand& command);
  void take(const SCommand& command, const QString& word);
  void takeOption(const SCommand& command, const QString& word);
  void takeValue(const SOption& option, const QString& value);
  QStringList candidates(COutput& out) const;
  QStringList assignments(const KnownNames::SPart& part, COutput& out) const;

  const QVector<SCommand>& mCommands;
  CShellLine mLine;

  // What the other words say.
  QStringList mFiles;
  QMap<QString, QString> mGiven;  // values of the options by name
  int mArguments = 0;
  const SOption* mOpen = nullptr;  // still without its value
  // What is expected at the cursor.
  EWord mWord = EWord::Text;
  QString mLead;  // what of the word stands before the text that is expected
  QStringList mChoices;
};
