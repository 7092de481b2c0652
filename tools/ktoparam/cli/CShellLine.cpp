#include "CShellLine.h"

namespace {

const QLatin1Char kBackslash('\\');
const QLatin1Char kDouble('"');
const QLatin1Char kSingle('\'');
const QLatin1String kSpecialInDouble("\\\"$`");
const QLatin1String kHarmless("_./+-%@,:=");
const QLatin1String kBlanks(" \t\n");

/// Reads characters as bash does.
class CSplitter {
 public:
  explicit CSplitter(const QString& breaks) : mBreaks(breaks) {}

  void read(const QString& text) {
    for (const QChar c : text) read(c);
  }
  void finishWord() {
    if (mIsInWord) mWords.append(mWord);
    mWord.clear();
    mIsInWord = false;
    mStart = 0;
  }

  const QStringList& words() const { return mWords; }
  const QString& word() const { return mWord; }
  int start() const { return mStart; }
  QChar quote() const { return mQuote; }

 private:
  void read(QChar c) {
    if (mIsEscaped) return readEscaped(c);
    if (mQuote.isNull() && kBlanks.contains(c)) return finishWord();
    mIsInWord = true;
    if (c == kBackslash && mQuote != kSingle) {
      mIsEscaped = true;
    } else if (c == mQuote) {
      mQuote = QChar();
    } else if (mQuote.isNull() && (c == kDouble || c == kSingle)) {
      mQuote = c;
      mStart = mWord.size();
    } else {
      mWord += c;
      if (mQuote.isNull() && mBreaks.contains(c)) mStart = mWord.size();
    }
  }

  void readEscaped(QChar c) {
    mIsEscaped = false;
    if (mQuote == kDouble && !kSpecialInDouble.contains(c)) mWord += kBackslash;
    mWord += c;
  }

  const QString mBreaks;
  QStringList mWords;
  QString mWord;
  QChar mQuote;
  int mStart = 0;
  bool mIsInWord = false;
  bool mIsEscaped = false;
};

bool isHarmless(QChar c) {
  return c.isLetterOrNumber() || c.unicode() > 0x7f || kHarmless.contains(c);
}

bool needsBackslash(QChar c, QChar quote) {
  return quote == kDouble ? kSpecialInDouble.contains(c) : !isHarmless(c);
}

}  // namespace

CShellLine::CShellLine(const QString& head, const QString& tail, const QString& breaks) {
  CSplitter splitter(breaks);
  splitter.read(head);
  mBefore = splitter.words();
  mCurrent = splitter.word();
  mStart = splitter.start();
  mQuote = splitter.quote();

  int rest = 0;  // of the current word
  while (rest < tail.size() && !kBlanks.contains(tail.at(rest))) ++rest;
  CSplitter behind(breaks);
  behind.read(tail.mid(rest));
  behind.finishWord();
  mAfter = behind.words();
}

QString CShellLine::replacement(const QString& word) const {
  const QString text = word.mid(mStart);
  if (mQuote == kSingle) return QString(text).replace(kSingle, QLatin1String("'\\''"));
  QString quoted;
  for (const QChar c : text) {
    if (needsBackslash(c, mQuote)) quoted += kBackslash;
    quoted += c;
  }
  return quoted;
}
