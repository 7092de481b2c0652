#include "CKeyedMap.h"

#include <QtTest>

#include <set>

class tst_CKeyedMap : public QObject {
  Q_OBJECT

 private slots:
  /// Of a hash that is linear in the bits of a name, collisions can be computed.
  void isNotLinear() {
    const auto hash = [](quint64 mask) {
      QString name(64, 'a');
      for (int i = 0; i < 64; ++i)
        if ((mask >> i & 1) != 0) name[i] = 'b';
      return static_cast<quint32>(SKeyedHash()(name));
    };
    for (int i = 1; i < 64; ++i)
      QVERIFY((hash(0) ^ hash(1) ^ hash(1ULL << i)) != hash(1 | 1ULL << i));
  }

  /// The key of the hash belongs to the process; every character counts, wherever it is.
  void everyCharacterCounts() {
    std::set<size_t> hashes{SKeyedHash()("Aa"), SKeyedHash()("BB")};
    QCOMPARE(hashes.size(), size_t(2));
    qSetGlobalQHashSeed(0);
    QVERIFY(hashes.count(SKeyedHash()("Aa")) == 1);
    qSetGlobalQHashSeed(-1);
    hashes.clear();
    QString text;
    for (int size = 0; size < 20; ++size, text += QChar(0)) {
      hashes.insert(SKeyedHash()(text));
      for (int i = 0; i < size; ++i)
        for (const QChar c : {QChar('x'), QChar(0x100)})
          hashes.insert(SKeyedHash()(QString(text).replace(i, 1, c)));
    }
    QCOMPARE(hashes.size(), size_t(20 + 2 * 190));
  }
};

QTEST_APPLESS_MAIN(tst_CKeyedMap)
#include "tst_CKeyedMap.moc"
