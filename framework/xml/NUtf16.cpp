#include "NUtf16.h"

#include "NXmlText.h"

#include <QChar>

#include <array>
#include <cstring>
#include <string>

namespace NUtf16 {

namespace {

char16_t unitAt(const QByteArray& bytes, int position, EOrder order) {
  const auto* b = reinterpret_cast<const uchar*>(bytes.constData()) + position;
  return order == LittleEndian ? static_cast<char16_t>(b[0] | (b[1] << 8))
                               : static_cast<char16_t>(b[1] | (b[0] << 8));
}

/// Length of the run of ASCII characters at a position, in bytes of UTF-16, four characters at a
/// time.
int asciiRun(const QByteArray& bytes, int begin, EOrder order) {
  const std::array<uchar, 8> noAscii =
      order == LittleEndian ? std::array<uchar, 8>{128, 255, 128, 255, 128, 255, 128, 255}
                            : std::array<uchar, 8>{255, 128, 255, 128, 255, 128, 255, 128};
  quint64 mask = 0;
  std::memcpy(&mask, noAscii.data(), sizeof mask);
  int end = begin;
  for (quint64 units = 0; end + 8 <= bytes.size(); end += 8) {
    std::memcpy(&units, bytes.constData() + end, sizeof units);
    if ((units & mask) != 0) break;
  }
  return end - begin;
}

void appendAscii(const QByteArray& bytes, int begin, int length, EOrder order, QByteArray& utf8) {
  const char* in = bytes.constData() + begin + (order == LittleEndian ? 0 : 1);
  const int before = utf8.size();
  utf8.resize(before + length / 2);
  char* out = utf8.data() + before;
  for (int i = 0; i < length / 2; ++i) out[i] = in[2 * i];
}

constexpr char32_t kLoneSurrogate = 0xD800;

/// The character at a position, which moves behind it.
char32_t takeCharacter(const QByteArray& bytes, int& position, EOrder order) {
  const char16_t unit = unitAt(bytes, position, order);
  position += 2;
  if (!QChar::isSurrogate(unit)) return unit;
  if (!QChar::isHighSurrogate(unit) || position >= bytes.size()) return kLoneSurrogate;
  const char16_t partner = unitAt(bytes, position, order);
  position += 2;
  return QChar::isLowSurrogate(partner) ? QChar::surrogateToUcs4(unit, partner) : kLoneSurrogate;
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
  std::string other;
  utf8.clear();
  utf8.reserve(bytes.size() / 2);  // enough for ASCII
  int position = 0;
  while (position < bytes.size()) {
    const int run = asciiRun(bytes, position, order);
    appendAscii(bytes, position, run, order, utf8);
    position += run;
    other.clear();
    // What broke the run, and what is left of its four characters.
    for (const int end = qMin(position + 8, bytes.size()); position < end;) {
      const char32_t c = takeCharacter(bytes, position, order);
      if (c == kLoneSurrogate) {
        utf8.append(other.data(), static_cast<int>(other.size()));
        return false;
      }
      NXmlText::appendCodePoint(c, other);
    }
    utf8.append(other.data(), static_cast<int>(other.size()));
  }
  return true;
}

}  // namespace NUtf16
