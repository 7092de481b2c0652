#pragma once

#include "NXmlText.h"

#include <QString>

#include <array>
#include <cstring>
#include <string>
#include <string_view>

/// A QString in UTF-8, for a look-up or a comparison. One of ASCII, as nearly all are, needs no
/// allocation.
class CUtf8Text {
 public:
  explicit CUtf8Text(const QString& text) {
    if (!copyAscii(text)) NXmlText::appendUtf8(text, mLong);
    mView =
        mLong.empty() ? std::string_view(mShort.data(), static_cast<size_t>(text.size())) : mLong;
  }
  Q_DISABLE_COPY(CUtf8Text)

  std::string_view view() const { return mView; }

 private:
  bool copyAscii(const QString& text) {
    if (text.size() > kShort) return false;
    const auto size = static_cast<size_t>(text.size());
    ushort all = 0;
    size_t i = 0;
    for (; i + kStep <= size; i += kStep) all |= copyStep<kStep>(text.constData() + i, &mShort[i]);
    for (; i < size; ++i) all |= copyStep<1>(text.constData() + i, &mShort[i]);
    return all < 0x80;
  }

  /// The bits of all units. Eight units are one step of the processor.
  template <size_t N>
  static ushort copyStep(const QChar* text, char* ascii) {
    std::array<ushort, N> units;
    std::array<char, N> bytes;
    std::memcpy(units.data(), text, sizeof(units));
    ushort all = 0;
    for (size_t i = 0; i < N; ++i) {
      all |= units[i];
      bytes[i] = static_cast<char>(units[i]);
    }
    std::memcpy(ascii, bytes.data(), N);
    return all;
  }

  static constexpr size_t kStep = 8;
  static constexpr int kShort = 120;
  std::array<char, kShort> mShort;
  std::string mLong;
  std::string_view mView;
};
