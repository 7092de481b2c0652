#include "CShellLine.h"

#include <QRegularExpression>
#include <QVector>

namespace {

const QLatin1Char kBackslash('\\');
const QLatin1Char kDouble('"');
const QLatin1Char kSingle('\'');
const QLatin1Char kHistory('!');
const QLatin1String kSpecialInDouble("\\\"$`");
const QLatin1String kHarmless("_./+-%@,:=");

bool isHarmless(QChar c) {
  return c.unicode() > 0x7f ? !c.isSpace() : c.isLetterOrNumber() || kHarmless.contains(c);
}

/// Whether bash takes a character for more than itself; within single quotes it never does.
bool isSpecial(QChar c, QChar quote) {
  return quote == kDouble ? c == kHistory || kSpecialInDouble.contains(c) : !isHarmless(c);
}

QString quoted(QChar c, QChar quote) {
  if (quote == kSingle) return c == kSingle ? QStringLiteral("'\\''") : QString(c);
  if (!isSpecial(c, quote)) return c;
  // No backslash keeps bash from the history of commands within double quotes.
  return quote == kDouble && c == kHistory ? QStringLiteral("\"\\!\"") : QString(kBackslash) + c;
}

/// A word, or the beginning of one, without its quotes.
struct SUnquoted {
  explicit SUnquoted(const QString& word) {
    for (const QChar c : word) read(c);
  }

  void read(QChar c) {
    if (isEscaped) {
      if (quote == kDouble && !kSpecialInDouble.contains(c)) text += kBackslash;
      text += c;
      isEscaped = false;
    } else if (c == kBackslash && quote != kSingle) {
      isEscaped = true;
    } else if (c == quote) {
      quote = QChar();
    } else if (quote.isNull() && (c == kDouble || c == kSingle)) {
      quote = c;
    } else {
      isLiteral = isLiteral && (quote == kSingle || !isSpecial(c, quote));
      text += c;
    }
  }

  QString text;
  QChar quote;            // the one that is open
  bool isLiteral = true;  // whether bash expands nothing
  bool isEscaped = false;
};

struct SSpan {
  int start;
  int end;
};

/// Where the words stand that bash's pieces are parts of, with one at the cursor that may be empty.
/// Only a blank ends a word of a command. Nothing when bash's pieces are not those of the line.
QVector<SSpan> spansOf(const QString& line, int cursor, const QStringList& pieces) {
  QVector<SSpan> words;
  int end = -1;
  for (const QString& piece : pieces) {
    if (piece.isEmpty()) continue;
    const int start = line.indexOf(piece, qMax(0, end));
    if (start < 0) return {};
    if (end < cursor && cursor < start) words.append({cursor, cursor});
    if (start > end) words.append({start, start});
    end = start + piece.size();
    words.last().end = end;
  }
  if (end < cursor) words.append({cursor, cursor});
  return words;
}

/// How many characters of a word send output elsewhere or take input from there.
int operatorSize(const QString& word) {
  static const QRegularExpression kOperator("^(\\d*|&)[<>][<>&|]*");
  return kOperator.match(word).capturedLength();
}

}  // namespace

CShellLine::CShellLine(const QString& head, const QString& tail, const QString& replaced,
                       const QStringList& pieces) {
  const QString line = head + tail;
  bool isFile = false;
  for (const SSpan& span : spansOf(line, head.size(), pieces)) {
    const bool isCurrent = span.start <= head.size() && head.size() <= span.end;
    const QString word = line.mid(span.start, (isCurrent ? head.size() : span.end) - span.start);
    const int size = operatorSize(word);
    const bool redirects = isFile || size > 0;
    isFile = size > 0 && size == word.size();
    if (isCurrent) {
      mIsRedirection = redirects;
      readCurrent(word, replaced);
    } else if (!redirects) {
      (span.end < head.size() ? mBefore : mAfter).append(SUnquoted(word).text);
    }
  }
}

void CShellLine::readCurrent(const QString& word, const QString& replaced) {
  const SUnquoted kept(word.left(word.size() - replaced.size()));
  mCurrent = SUnquoted(word).text;
  mStart = kept.text.size();
  mQuote = kept.quote;
  mIsLiteral = kept.isLiteral && !kept.isEscaped && word.endsWith(replaced);
}

QString CShellLine::replacement(const QString& word) const {
  if (!mIsLiteral) return {};
  QString text("");
  for (const QChar c : word.mid(mStart)) text += quoted(c, mQuote);
  // bash closes the quote, but not behind a text that ends with it.
  return !mQuote.isNull() && text.endsWith(mQuote) ? text + mQuote : text;
}
