#include "CKeyedMap.h"

#include <QHash>
#include <QtTest>

#include <algorithm>
#include <set>
#include <vector>

namespace {

constexpr int kLetters = 64;

/// A name of letters 'a', and 'b' where the mask says so.
QString name(quint64 mask) {
  QString text(kLetters, 'a');
  for (int i = 0; i < kLetters; ++i)
    if (((mask >> i) & 1) != 0) text[i] = 'b';
  return text;
}

/// Masks of which every combination collides, if the hash is linear: changes of letters that undo
/// each other's change of the lower half of the hash.
template <class Hash>
std::vector<quint64> collidingMasks(const Hash& hash) {
  struct SChange {
    quint32 bits;
    quint64 mask;
  };
  std::vector<SChange> basis;
  std::vector<quint64> masks;
  for (int i = 0; i < kLetters; ++i) {
    SChange change{static_cast<quint32>(hash(name(1ULL << i)) ^ hash(name(0))), 1ULL << i};
    for (const SChange& each : basis)
      if ((change.bits ^ each.bits) < change.bits)
        change = {change.bits ^ each.bits, change.mask ^ each.mask};
    if (change.bits == 0) {
      masks.push_back(change.mask);
    } else {
      basis.push_back(change);
      std::sort(basis.begin(), basis.end(),
                [](const SChange& a, const SChange& b) { return a.bits > b.bits; });
    }
  }
  return masks;
}

/// How many of the names made of ten such masks have a hash of their own.
template <class Hash>
size_t differentHashes(const Hash& hash) {
  const std::vector<quint64> masks = collidingMasks(hash);
  std::set<quint32> hashes;
  for (unsigned pick = 0; pick < 1024; ++pick) {
    quint64 mask = 0;
    for (size_t i = 0; i < 10; ++i) mask ^= ((pick >> i) & 1) != 0 ? masks.at(i) : 0;
    hashes.insert(static_cast<quint32>(hash(name(mask))));
  }
  return hashes.size();
}

}  // namespace

class tst_CKeyedMap : public QObject {
  Q_OBJECT

 private slots:
  void namesCannotBeMadeToCollide() {
    // The hash of Qt shows that the names are well made; without the processor's help it is
    // another.
    const auto ofQt = [](const QString& text) { return qHash(text, 1); };
    QVERIFY(differentHashes(ofQt) == 1 || qHash(QString("Aa"), 1) == qHash(QString("BB"), 1));
    QCOMPARE(differentHashes(SKeyedHash()), size_t(1024));
    QVERIFY(SKeyedHash()("Aa") != SKeyedHash()("BB"));
  }

  void theKeyIsOfTheProcess() {
    const size_t before = SKeyedHash()("Aa");
    qSetGlobalQHashSeed(0);
    const size_t after = SKeyedHash()("Aa");
    qSetGlobalQHashSeed(-1);
    QCOMPARE(after, before);
  }

  void everyCharacterCounts() {
    std::set<size_t> hashes;
    QString text;
    for (int size = 0; size < 20; ++size, text += QChar(0)) {
      hashes.insert(SKeyedHash()(text));
      for (int i = 0; i < size; ++i) {
        QString other = text;
        other[i] = 'x';
        hashes.insert(SKeyedHash()(other));
      }
    }
    QCOMPARE(hashes.size(), size_t(20 + 190));
  }
};

QTEST_APPLESS_MAIN(tst_CKeyedMap)
#include "tst_CKeyedMap.moc"
