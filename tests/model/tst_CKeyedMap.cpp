#include "CKeyedMap.h"

#include <QtTest>

#include <set>

class tst_CKeyedMap : public QObject {
  Q_OBJECT

 private slots:
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
