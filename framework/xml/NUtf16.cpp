#include "NUtf16.h"

#include "NXmlText.h"

#include <QTextCodec>
#include <QtEndian>

#include <algorithm>

namespace NUtf16 {

namespace {

constexpr EOrder kHostOrder = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? LittleEndian : BigEndian;

/// Where the first surrogate without a partner is, or the end.
int loneSurrogate(const QString& text) {
  int i = 0;
  while (i < text.size() &&
         (!text.at(i).isSurrogate() || (text.at(i).isHighSurrogate() && i + 1 < text.size() &&
                                        text.at(i + 1).isLowSurrogate()))) {
    i += text.at(i).isSurrogate() ? 2 : 1;
  }
  return i;
}

}  // namespace

EOrder orderOf(const QByteArray& bytes) {
  const auto startsWith = [&bytes](uchar first, uchar second) {
    return bytes.size() >= 2 && static_cast<uchar>(bytes.at(0)) == first &&
           static_cast<uchar>(bytes.at(1)) == second;
  };
  if (startsWith(0xFF, 0xFE) || startsWith('<', 0)) return LittleEndian;
  return startsWith(0xFE, 0xFF) || startsWith(0, '<') ? BigEndian : None;
}

bool toUtf8(const QByteArray& bytes, EOrder order, QByteArray& utf8) {
  const int size = bytes.size() / 2;
  QString text =
      QString::fromRawData(reinterpret_cast<const QChar*>(bytes.constData()), size);  // no copy
  if (order != kHostOrder) qbswap<sizeof(QChar)>(bytes.constData(), size, text.data());
  // Asked for once: Qt looks for codecs under a lock that all threads would share.
  static const QTextCodec* const kCodec = QTextCodec::codecForName("UTF-8");
  QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
  utf8 = kCodec->fromUnicode(text.constData(), size, &state);
  utf8.squeeze();
  if (state.invalidChars == 0 && state.remainingChars == 0) return true;
  utf8 = text.leftRef(loneSurrogate(text)).toUtf8();
  return false;
}

QByteArray fromUtf8(std::string_view utf8) {
  constexpr size_t kPiece = 1U << 16U;  // so that there is no third copy of a large text
  QByteArray bytes;
  bytes.reserve(static_cast<int>(2 * utf8.size()) + 2);
  bytes.append("\xFF\xFE", 2);
  while (!utf8.empty()) {
    size_t end = std::min(kPiece, utf8.size());
    while (end < utf8.size() && (static_cast<uchar>(utf8[end]) & 0xC0U) == 0x80) --end;
    const QString text = NXmlText::toQString(utf8.substr(0, end));
    const int begin = bytes.size();
    bytes.resize(begin + 2 * text.size());
    qToLittleEndian<quint16>(text.utf16(), text.size(), bytes.data() + begin);
    utf8.remove_prefix(end);
  }
  return bytes;
}

}  // namespace NUtf16
