#include "NShortText.h"

#include <QCryptographicHash>

namespace {

constexpr int kShown = 100;      // characters of each end
constexpr int kNumberSize = 16;  // bytes
const QString kMark = QStringLiteral("…#");

QByteArray numberOf(const QString& text) {
  QCryptographicHash hash(QCryptographicHash::Sha256);
  hash.addData(reinterpret_cast<const char*>(text.utf16()),
               text.size() * static_cast<int>(sizeof(QChar)));
  return hash.result().left(kNumberSize).toHex();
}

// Neither end begins or ends within a surrogate pair.
QString beginningOf(const QString& text) {
  const bool isCut = text.at(kShown - 1).isHighSurrogate();
  return text.left(isCut ? kShown - 1 : kShown);
}

QString endOf(const QString& text) {
  const bool isCut = text.at(text.size() - kShown).isLowSurrogate();
  return text.right(isCut ? kShown - 1 : kShown);
}

}  // namespace

QString NShortText::of(const QString& text) {
  const bool isLong = text.size() > kLongest;
  if (!isLong && !text.contains(kMark)) return text;
  const QString marked = kMark + QString::fromLatin1(numberOf(text)) + QChar(0x2026);
  return text.size() > 2 * kShown ? QString(beginningOf(text) + marked + endOf(text))
                                  : QString(text + marked);
}

QString NShortText::below(const QString& path, const QString& name) {
  const QString lead = path.isNull() ? QStringLiteral("") : QString(path + QLatin1Char('/'));
  return of(lead + name);
}
