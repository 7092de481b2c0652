#include "CKeyedMap.h"

#include <QRandomGenerator>

#include <cstring>

namespace {

quint64 rotated(quint64 bits, int count) {
  return (bits << count) | (bits >> (64 - count));
}

/// The state of SipHash, begun with a key of two words.
struct SSip {
  quint64 a, b, c, d;

  SSip(quint64 key0, quint64 key1)
      : a(key0 ^ 0x736f6d6570736575ULL),
        b(key1 ^ 0x646f72616e646f6dULL),
        c(key0 ^ 0x6c7967656e657261ULL),
        d(key1 ^ 0x7465646279746573ULL) {}

  void round() {
    a += b;
    c += d;
    b = rotated(b, 13) ^ a;
    d = rotated(d, 16) ^ c;
    a = rotated(a, 32);
    c += b;
    a += d;
    b = rotated(b, 17) ^ c;
    d = rotated(d, 21) ^ a;
    c = rotated(c, 32);
  }

  void add(quint64 word) {
    d ^= word;
    round();
    a ^= word;
  }

  quint64 finish() {
    c ^= 0xFF;
    for (int i = 0; i < 3; ++i) round();
    return a ^ b ^ c ^ d;
  }
};

/// Drawn at the first hash of the process.
struct SKey {
  quint64 words[2];
  SKey() { QRandomGenerator::system()->fillRange(words); }
};

SSip keyed() {
  static const SKey key;
  return SSip(key.words[0], key.words[1]);
}

}  // namespace

size_t SKeyedHash::operator()(const QString& name) const {
  return (*this)(std::string_view(reinterpret_cast<const char*>(name.constData()),
                                  static_cast<size_t>(name.size()) * sizeof(QChar)));
}

size_t SKeyedHash::operator()(std::string_view utf8) const {
  constexpr size_t kWord = sizeof(quint64);
  SSip sip = keyed();
  const char* const bytes = utf8.data();
  const size_t size = utf8.size();
  quint64 word = 0;
  for (size_t begin = 0; begin + kWord <= size; begin += kWord) {
    std::memcpy(&word, bytes + begin, kWord);
    sip.add(word);
  }
  word = 0;
  std::memcpy(&word, bytes + size / kWord * kWord, size % kWord);
  sip.add(word | static_cast<quint64>(size) << 56U);
  return static_cast<size_t>(sip.finish());
}

size_t SKeyedHash::operator()(quint64 number) const {
  SSip sip = keyed();
  sip.add(number);
  return static_cast<size_t>(sip.finish());
}
