#pragma once

#include <QStringList>

/// A command line that is completed, as bash tells it.
class CShellLine {
 public:
  /// The text before and after the cursor, what bash will replace of it, which ends at the cursor,
  /// and the pieces that bash cuts the line into: at blanks, and at "=", ":" and the like, too.
  CShellLine(const QString& head, const QString& tail, const QString& replaced,
             const QStringList& pieces);

  /// The whole words before and after the one at the cursor, without quotes; the first is the
  /// program's. Redirections are left out.
  const QStringList& before() const { return mBefore; }
  const QStringList& after() const { return mAfter; }
  /// The word at the cursor as far as it is typed, without quotes.
  const QString& current() const { return mCurrent; }
  /// Whether that is where output goes to or input comes from.
  bool isRedirection() const { return mIsRedirection; }

  /// What bash shall put there so that the current word becomes `word`, which must begin with what
  /// is typed. Null when it cannot, since it expands something in the part before.
  QString replacement(const QString& word) const;

 private:
  void readCurrent(const QString& word, const QString& replaced);

  QStringList mBefore;
  QStringList mAfter;
  QString mCurrent;
  bool mIsRedirection = false;
  int mStart = 0;  // where in the current word bash replaces
  QChar mQuote;    // the quote that is open there
  bool mIsLiteral = false;
};
