#pragma once

#include "CShellLine.h"
#include "SCommand.h"

#include <QMap>

/// What may follow on a command line, according to the commands' records.
class CCompletion {
 public:
  CCompletion(const QVector<SCommand>& commands, const CShellLine& line);

  /// What kind of word is expected at the cursor; choices() has all there are of a Text.
  EWord word() const { return mWord; }
  const QStringList& choices() const { return mChoices; }
  /// What is typed of the word.
  const QString& typed() const { return mLine.current(); }
  /// What the rest of the line says: files, and the values of options by name.
  const QStringList& files() const { return mFiles; }
  QString value(const QString& option) const { return mGiven.value(option); }

  /// What the shell may put in place of the word at the cursor.
  QStringList replacements(const QStringList& candidates) const;

 private:
  void expectCommand(const QVector<SCommand>& commands, const QStringList& words);
  void expect(const SCommand& command);
  bool isOffered(const QString& word) const;

  CShellLine mLine;
  QStringList mFiles;
  QMap<QString, QString> mGiven;
  EWord mWord = EWord::Text;
  bool mMayBeOption = false;  // what begins with a dash
  QString mLead;              // the part of the word before the text that is expected
  QStringList mChoices;
};
