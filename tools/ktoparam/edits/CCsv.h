#pragma once

#include <QStringList>

/// Tables as RFC 4180 writes them and spreadsheets take and save them.
///
/// A text that a spreadsheet would run as a formula has an apostrophe in front, and so has one that
/// begins with an apostrophe: it is added on the way out and taken away on the way in.
namespace NCsv {

/// A text as it is written between commas.
QString field(const QString& text);

}  // namespace NCsv

/// Takes a table apart, row by row. Rows end with LF, CR LF or CR.
class CCsvReader {
 public:
  CCsvReader(const QString& text, QChar separator) : mText(text), mSeparator(separator) {}

  /// False at the end, and at a row that is wrong; problem() says why then.
  bool next(QStringList& fields);
  /// Where the row begins, from 1.
  int line() const { return mRowLine; }
  /// Empty while all is well.
  const QString& problem() const { return mProblem; }

 private:
  bool isAt(QChar character) const { return mAt < mText.size() && mText.at(mAt) == character; }
  QString field();
  QString quotedField();
  bool skipLineEnd();

  const QString mText;
  const QChar mSeparator;
  int mAt = 0;
  int mLine = 1;
  int mRowLine = 1;
  QString mProblem;
};
