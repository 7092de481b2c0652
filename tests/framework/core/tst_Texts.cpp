#include "NDisplayText.h"
#include "NShortText.h"

#include <QtTest>

class tst_Texts : public QObject {
  Q_OBJECT

 private slots:
  void showsTexts() {
    const struct {
      const char* text;
      const char* shown;
      int width;
    } rows[] = {{"", "\"\"", 0},
                {"a \"b\" \\", "a \"b\" \\", 7},
                {"\"a\"", "\"\\\"a\\\"\"", 3},
                {"a ", "\"a \"", 2},
                {u8"\u00a0a", u8"\"\u00a0a\"", 2},
                {u8"\x1b[2J\u009b", "\"\\u001b[2J\\u009b\"", 5},
                {u8"a\u202eb", "\"a\\u202eb\"", 2},
                {u8"a\r\n\t\u2028b", "\"a\\r\\n\\t\\u2028b\"", 6},
                {u8"a\u0301\u20dd", u8"a\u0301\u20dd", 1},
                {"軸한ｱＡ", "軸한ｱＡ", 7},
                {"😀𝛼𠀀", "😀𝛼𠀀", 5}};
    for (const auto& row : rows) {
      QCOMPARE(NDisplayText::shown(row.text), QString(row.shown));
      QVERIFY2(NDisplayText::width(row.text) == row.width, row.text);
    }
  }

  void shortensDifferentTextsDifferently() {
    const QString half(500, 'a');
    QStringList texts{half + half, half + 'b' + half, half + 'c' + half, half + half + half};
    // Nothing passes for the short form of something else, and no pair of surrogates is cut.
    texts += NShortText::of(texts.at(1));
    texts += QString(99, 'a') + QString("😀").repeated(500) + QString(99, 'a');
    QSet<QString> results;
    for (const QString& text : qAsConst(texts)) {
      const QString result = NShortText::of(text);
      QCOMPARE(result == text, text.size() <= NShortText::kLongest && !text.contains("…#"));
      QVERIFY(result == text || (result.size() >= 233 && result.size() <= 235));
      QCOMPARE(QString::fromUtf8(result.toUtf8()), result);
      results.insert(result);
    }
    QCOMPARE(results.size(), texts.size());
  }

  void joinsPathsFromGroupToGroup() {
    QString path;
    QStringList paths;
    for (int i = 0; i < 10; ++i) paths += path = NShortText::below(path, QString(300, 'a'));
    QCOMPARE(paths.at(2), QString(300, 'a') + '/' + QString(300, 'a') + '/' + QString(300, 'a'));
    QCOMPARE(paths.removeDuplicates(), 0);
    QCOMPARE(path.size(), 235);
    QCOMPARE(NShortText::below(NShortText::below({}, ""), "a"), QString("/a"));
  }
};

QTEST_APPLESS_MAIN(tst_Texts)
#include "tst_Texts.moc"
