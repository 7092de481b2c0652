#include "CCsv.h"

#include "CStr.h"
#include "Tool.h"

#include <algorithm>

namespace {

const QLatin1Char kMark('\'');
const QLatin1Char kQuote('"');

bool isAnyOf(QChar character, const char* characters) {
  return QLatin1String(characters).contains(character);
}

/// Such as "-5" and "+1e3". A spreadsheet takes "-inf" for a formula.
bool isNumber(const QString& text) {
  double number = 0;
  return CStr::strToF64(text, number) && std::all_of(text.cbegin(), text.cend(), [](QChar each) {
           return isAnyOf(each, "0123456789.eE+-");
         });
}

QString marked(const QString& text) {
  const bool isFormula = !text.isEmpty() && isAnyOf(text.at(0), "=+-@\t\r") && !isNumber(text);
  return isFormula || text.startsWith(kMark) ? kMark + text : text;
}

QString unmarked(const QString& text) {
  return text.startsWith(kMark) ? text.mid(1) : text;
}

QString quotedWhereNeeded(const QString& text) {
  const bool isPlain =
      text == text.trimmed() &&
      std::none_of(text.cbegin(), text.cend(), [](QChar each) { return isAnyOf(each, ",\"\r\n"); });
  if (isPlain) return text;
  QString quoted = text;
  quoted.replace(kQuote, QLatin1String("\"\""));
  return kQuote + quoted + kQuote;
}

}  // namespace

QString NCsv::field(const QString& text) {
  return quotedWhereNeeded(marked(text));
}

bool CCsvReader::next(QStringList& fields) {
  fields.clear();
  mRowLine = mLine;
  if (mAt >= mText.size() || !mProblem.isEmpty()) return false;
  fields.append(field());
  while (isAt(mSeparator)) {
    ++mAt;
    fields.append(field());
  }
  if (!skipLineEnd() && mProblem.isEmpty())
    mProblem = Tool::tr("a quote stands where no field begins or ends.");
  return mProblem.isEmpty();
}

/// What follows it is looked at by the caller.
QString CCsvReader::field() {
  if (isAt(kQuote)) return unmarked(quotedField());
  const int begin = mAt;
  const auto isInside = [this](QChar each) {
    return each != mSeparator && !isAnyOf(each, "\"\r\n");
  };
  while (mAt < mText.size() && isInside(mText.at(mAt))) ++mAt;
  return unmarked(mText.mid(begin, mAt - begin));
}

QString CCsvReader::quotedField() {
  QString text;
  for (;;) {  // from a quote to the next one; two in a row are one that belongs to the text
    const int end = mText.indexOf(kQuote, mAt + 1);
    if (end < 0) {
      mProblem = Tool::tr("a field begins with a quote and does not end with one.");
      return text;
    }
    text += mText.midRef(mAt + 1, end - mAt - 1);
    mAt = end + 1;
    if (!isAt(kQuote)) break;
    text += kQuote;
  }
  mLine += text.count(QLatin1Char('\n'));
  return text;
}

bool CCsvReader::skipLineEnd() {
  if (mAt >= mText.size()) return true;
  const int begin = mAt;
  if (isAt(QLatin1Char('\r'))) ++mAt;
  if (isAt(QLatin1Char('\n'))) ++mAt;
  ++mLine;
  return mAt > begin;
}
