#include "DisplayText.h"
#include "Suggestion.h"

#include <QtTest>

/// Texts of the tool that the sessions cannot reach well.
class tst_ToolTexts : public QObject {
  Q_OBJECT
 private slots:
  void showsTexts_data();
  void showsTexts();
  void suggests_data();
  void suggests();
};

void tst_ToolTexts::showsTexts_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("shown");
  QTest::addColumn<int>("width");
  const auto row = [](const char* name, const QString& text, const QString& shown, int width) {
    QTest::newRow(name) << text << shown << width;
  };
  row("empty", QString(), QStringLiteral("\"\""), 0);
  row("plain", QStringLiteral("a \"b\" \\"), QStringLiteral("a \"b\" \\"), 7);
  row("looks quoted", QStringLiteral("\"a\""), QStringLiteral("\"\\\"a\\\"\""), 3);
  row("blanks", QStringLiteral("a "), QStringLiteral("\"a \""), 2);
  row("no-break space", QStringLiteral("\u00a0a"), QStringLiteral("\"\u00a0a\""), 2);
  row("terminal control", QStringLiteral("\x1b[2J\u009b"), QStringLiteral("\"\\u001b[2J\\u009b\""),
      5);
  row("turned direction", QStringLiteral("a\u202eb"), QStringLiteral("\"a\\u202eb\""), 2);
  row("line ends", QStringLiteral("a\r\n\t\u2028b"), QStringLiteral("\"a\\r\\n\\t\\u2028b\""), 6);
  row("combining", QStringLiteral("a\u0301\u20dd"), QStringLiteral("a\u0301\u20dd"), 1);
  row("wide", QStringLiteral("軸한ｱＡ"), QStringLiteral("軸한ｱＡ"), 7);
  row("beyond the first plane", QStringLiteral("😀𝛼𠀀"), QStringLiteral("😀𝛼𠀀"), 5);
}

void tst_ToolTexts::showsTexts() {
  QFETCH(QString, text);
  QTEST(DisplayText::shown(text), "shown");
  QTEST(DisplayText::width(text), "width");
}

void tst_ToolTexts::suggests_data() {
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("meant");
  QTest::newRow("missing letter") << "VelocityLimt"
                                  << "VelocityLimit";
  QTest::newRow("swapped letters") << "FanMdoe"
                                   << "FanMode";
  QTest::newRow("case only") << "FANMODE"
                             << "FanMode";
  QTest::newRow("nearest") << "FanModes"
                           << "FanMode";
  QTest::newRow("nothing near") << "Pressure" << QString();
  QTest::newRow("too short to guess") << "x" << QString();
}

void tst_ToolTexts::suggests() {
  QFETCH(QString, typed);
  const QStringList names = {QStringLiteral("FanModel3"), QStringLiteral("VelocityLimit"),
                             QStringLiteral("FanMode"), QStringLiteral("y")};
  QTEST(Suggestion::closest(typed, names), "meant");
}

QTEST_APPLESS_MAIN(tst_ToolTexts)
#include "tst_ToolTexts.moc"
