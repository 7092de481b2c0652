#include "CBaseLogfile.h"

#include <QDateTime>

#include <algorithm>

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
  line.reserve(text.size() + 16);
  for (const QChar c : text) {
    if (needsEscape(c)) {
      line += escape(c);
    } else {
      line += c;
    }
  }
  return line;
}

}  // namespace

CBaseLogfile::CBaseLogfile(quint32 levelMask) : mLevelMask(levelMask) {}

bool CBaseLogfile::isActive() const {
  const std::lock_guard lock(mMutex);
  return mLevelMask != 0 && hasSink();
}

bool CBaseLogfile::isLevelEnabled(quint32 level) const {
  return (mLevelMask & level) != 0;
}

quint32 CBaseLogfile::levelMask() const {
  return mLevelMask;
}

void CBaseLogfile::setLevelMask(quint32 levelMask) {
  mLevelMask = levelMask;
}

QString CBaseLogfile::prefix() const {
  const std::lock_guard lock(mMutex);
  return mPrefix;
}

void CBaseLogfile::setPrefix(const QString& prefix) {
  const std::lock_guard lock(mMutex);
  mPrefix = prefix;
}

void CBaseLogfile::write(quint32 level, const QString& text) {
  if (!isLevelEnabled(level)) return;
  const std::lock_guard lock(mMutex);
  if (!hasSink()) return;
  const QString line = mPrefix.isEmpty() ? text : mPrefix + QLatin1String(": ") + text;
  writeLine(level, singleLine(line));
}

QByteArray CBaseLogfile::stampedLine(quint32 level, const QString& text) {
  const QString time = QDateTime::currentDateTime().toString(Qt::ISODateWithMs);
  const QString levelText = QStringLiteral("%1").arg(level, 8, 16, QLatin1Char('0'));
  const QString line =
      time + QLatin1Char(' ') + levelText + QLatin1Char(' ') + text + QLatin1Char('\n');
  return line.toUtf8();
}
