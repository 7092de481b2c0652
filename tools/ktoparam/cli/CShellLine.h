#pragma once

#include <QStringList>

/// A command line as it is typed in bash, taken apart at the cursor.
class CShellLine {
 public:
  /// The text before and after the cursor. At each of the characters `breaks`, when it is not
  /// quoted, bash begins a new word to complete, though it will not be one for the command.
  CShellLine(const QString& head, const QString& tail, const QString& breaks);

  /// The whole words before and after the one at the cursor, without quotes; the first is the
  /// program's.
  const QStringList& before() const { return mBefore; }
  const QStringList& after() const { return mAfter; }
  /// The word at the cursor as far as it is typed, without quotes.
  const QString& current() const { return mCurrent; }

  /// What bash shall put in place of what it takes for the current word, so that it becomes `word`,
  /// which must begin with what is typed.
  QString replacement(const QString& word) const;

 private:
  QStringList mBefore;
  QStringList mAfter;
  QString mCurrent;
  int mStart = 0;  // where in the current word bash begins
  QChar mQuote;    // the quote that is open at the cursor
};
