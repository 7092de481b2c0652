#include "CLogfile.h"

#include <algorithm>
#include <utility>

namespace {

constexpr ushort kLineSeparator = 0x2028;
constexpr ushort kParagraphSeparator = 0x2029;

bool needsEscape(QChar c) {
  if (c == QLatin1Char('\t')) return false;
  return c.category() == QChar::Other_Control || c == QChar(kLineSeparator) ||
         c == QChar(kParagraphSeparator);
}

QString escape(QChar c) {
  if (c == QLatin1Char('\n')) return QStringLiteral("\\n");
  if (c == QLatin1Char('\r')) return QStringLiteral("\\r");
  return QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
}

// Whoever can put a text into a message must not be able to forge a line of the log.
QString singleLine(const QString& text) {
  if (std::none_of(text.begin(), text.end(), needsEscape)) return text;
  QString line;
  for (const QChar c : text) line += needsEscape(c) ? escape(c) : QString(c);
  return line;
}

}  // namespace

CLogfile::CLogfile(quint32 levelMask, CSink sink) : mLevelMask(levelMask), mSink(std::move(sink)) {}

bool CLogfile::isActive() const {
  const std::lock_guard lock(mMutex);
  return mLevelMask != 0 && mSink;
}

QString CLogfile::prefix() const {
  const std::lock_guard lock(mMutex);
  return mPrefix;
}

void CLogfile::setPrefix(const QString& prefix) {
  const std::lock_guard lock(mMutex);
  mPrefix = prefix;
}

void CLogfile::write(quint32 level, const QString& text) {
  if (!isLevelEnabled(level)) return;
  const std::lock_guard lock(mMutex);
  const QString line = mPrefix.isEmpty() ? text : mPrefix + QLatin1String(": ") + text;
  if (mSink && !mSink(level, singleLine(line))) mSink = nullptr;
}
