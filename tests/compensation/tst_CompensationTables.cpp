#include "CCompensationFindings.h"
#include "CCompensationPlot.h"
#include "CompensationTables.h"
#include "GoldenFiles.h"
#include "TestRows.h"

#include <QDomDocument>
#include <QRandomGenerator>

#include <cmath>

namespace {

QString steps(int count, double width) {
  QString words = "0/1000";
  for (int i = 0; i < count; ++i) words += QString(" %1/%2").arg(i * width).arg(std::sin(i));
  return words;
}

/// What a group of the picture holds.
QString group(const QString& svg, const QString& id) {
  return svg.section("<g id=\"" + id + '"', 1).section("<g id=", 0, 0);
}

/// What all matches of an expression capture.
QStringList all(const QString& svg, const char* expression) {
  QStringList texts;
  for (auto it = QRegularExpression(expression).globalMatch(svg); it.hasNext();)
    texts << it.next().captured(1);
  return texts;
}

/// What no picture may have: a place outside the page, letters too small to read, or a group in
/// another.
QStringList faultsOf(const QString& svg) {
  QStringList faults;
  if (svg.count("<g ") != svg.count("\n <g ")) faults << "a group in another";
  const QString places = all(svg, " (?:x|y|x1|y1|x2|y2|cx|cy|d)=\"([^\"]*)\"").join(' ');
  for (const QString& place : places.split(QRegularExpression("[ MLZ]+"), Qt::SkipEmptyParts)) {
    bool isNumber = false;
    const double number = place.toDouble(&isNumber);
    if (!isNumber || !(number >= -1 && number <= 843)) faults << place;
  }
  for (const QString& size : all(svg, "font-size=\"([^\"]*)\""))
    if (!(size.toDouble() >= 10)) faults << size;
  return faults;
}

/// Steps between the ticks of one axis that are not 1, 2 or 5 times a power of ten. The
/// expression finds its texts, by their anchor.
QStringList tickFaults(const QString& svg, const char* expression) {
  const QStringList ticks = all(group(svg, "ticks"), expression);
  if (ticks.isEmpty() || ticks.size() > 14) return {QString::number(ticks.size())};
  QStringList faults;
  for (int i = 1; i < ticks.size(); ++i) {
    const double step = ticks.at(i).toDouble() - ticks.at(i - 1).toDouble();
    const QString digits = QString::number(step, 'e', 2).left(4);
    if (!QStringList{"1.00", "2.00", "5.00"}.contains(digits)) faults << QString::number(step);
  }
  return faults;
}

}  // namespace

class tst_CompensationTables : public QObject {
  Q_OBJECT

 private slots:
  /// Where all texts are numbers and nothing is missing, the points told are those of the check.
  void findsWhatTheCheckFinds() {
    QRandomGenerator random(20261120);
    for (int round = 0; round < 40; ++round) {
      QString words = QString("%1/%2").arg(random.bounded(4)).arg(random.bounded(3, 12));
      const int count = round == 0 ? 520 : random.bounded(12);
      for (int i = 0; i < count; ++i)
        words += QString(" %1/0").arg(random.bounded(3) == 0 ? random.bounded(-1, 13) : i);
      const auto table = compensationTable(words);
      QList<int> expected;
      table->checkAllPoints(&expected);
      const CCompensationFindings findings(*table);
      QCOMPARE(findings.ofPoints().keys(), expected);
      QVERIFY(!findings.ofPoints().values().contains(QStringList()));
      QCOMPARE(findings.ofRange().isEmpty(), table->checkHeader());
      QCOMPARE(findings.isEmpty(), table->checkAll() == ICCompensationFile::CheckOk);
    }
  }

  void draws_data() {
    NGoldenFiles::addTable("compensation/plots.txt", {"name", "table", "good", "bad", "notShown"});
    addTextRow("all that fit", steps(511, 0.5), "511", "0", "0");
    addTextRow("far too many", steps(5000, 0.125), "511", "4489", "0");
  }
  void draws() {
    QFETCH(QString, table);
    const CCompensationPlot plot(*compensationTable(table));
    const QString svg = QString::fromUtf8(plot.toSvg());
    QVERIFY(QDomDocument().setContent(svg));
    QTEST(QString::number(plot.skippedPoints()), "notShown");
    QTEST(QString::number(group(svg, "points").count("<circle")), "good");
    QTEST(QString::number(group(svg, "bad-points").count("<path")), "bad");
    QCOMPARE(faultsOf(svg), QStringList());
    QCOMPARE(tickFaults(svg, "middle\"[^>]*>([^<]*)<"), QStringList());
    QCOMPARE(tickFaults(svg, "end\"[^>]*>([^<]*)<"), QStringList());
  }

  void drawsTexts() {
    const QString wide = u8"\U00020000";
    const QStringList titles{"a<b & \"c\" ]]>", "a\x1b[1m\nb", QString(u8"a\uFFFE\uFFFF"),
                             u8"x \U0001D6FC", wide.repeated(500)};
    const QStringList drawn{"a&lt;b &amp; &quot;c&quot; ]]&gt;", "a\\u001b[1m b", u8"a\uFFFD\uFFFD",
                            u8"x \U0001D6FC", wide.repeated(39) + u8"\u2026"};
    const auto table = compensationTable("0/3e6 0/1e-6 1e6/2e-6");
    const auto texts = [&](const char* place, const CCompensationPlot::STexts& given) {
      const QByteArray svg = CCompensationPlot(*table, given).toSvg();
      return all(group(QString::fromUtf8(svg), place), "<text[^>]*>([^<]*)<");
    };
    for (int i = 0; i < titles.size(); ++i) {
      const QStringList expected{drawn.at(i), "Range 0 to 3e6 · points: 2"};
      QCOMPARE(texts("heading", {titles.at(i), "", ""}), expected);
    }
    QCOMPARE(texts("names", {"", "", ""}), QStringList({"Position in 10⁶", "Adjustment in 10⁻⁶"}));
    QCOMPARE(texts("names", {"", "m", "°"}),
             QStringList({"Position in 10⁶ m", "Adjustment in 10⁻⁶ °"}));
  }
};

QTEST_APPLESS_MAIN(tst_CompensationTables)
#include "tst_CompensationTables.moc"
