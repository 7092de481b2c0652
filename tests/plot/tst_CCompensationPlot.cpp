#include "CCompensationPlot.h"
#include "CompensationTables.h"
#include "GoldenFiles.h"
#include "TestRows.h"

#include <QDomDocument>

#include <cmath>

namespace {

QString steps(int count, double width) {
  QString words = "0/1000";
  for (int i = 0; i < count; ++i) words += QString(" %1/%2").arg(i * width).arg(std::sin(i));
  return words;
}

QDomElement group(const QDomDocument& picture, const QString& id) {
  QDomElement element = picture.documentElement().firstChildElement("g");
  while (!element.isNull() && element.attribute("id") != id)
    element = element.nextSiblingElement("g");
  return element;
}

QStringList textsOf(const QDomElement& group, const QString& anchor = {}) {
  QStringList texts;
  for (QDomElement each = group.firstChildElement(); !each.isNull();
       each = each.nextSiblingElement())
    if (anchor.isEmpty() || each.attribute("text-anchor") == anchor) texts << each.text();
  return texts;
}

/// What no picture may have: a place outside the page, or letters too small to read.
QStringList faultsOf(const QDomDocument& picture) {
  QStringList faults;
  const QDomNodeList all = picture.elementsByTagName("*");
  for (int i = 0; i < all.size(); ++i) {
    const QDomElement element = all.at(i).toElement();
    for (const char* name : {"x", "y", "x1", "y1", "x2", "y2", "cx", "cy", "d"}) {
      const QString text = element.attribute(name);
      for (const QString& number : text.split(QRegularExpression("[ MLZ]"), Qt::SkipEmptyParts)) {
        bool isNumber = false;
        const double place = number.toDouble(&isNumber);
        if (!isNumber || !(place >= -1 && place <= 843)) faults << element.tagName() + number;
      }
    }
    const QString size = element.attribute("font-size", "10");
    if (size.toDouble() < 10) faults << element.tagName() + size;
  }
  return faults;
}

/// Steps between the ticks of one axis that are not 1, 2 or 5 times a power of ten. The anchor of
/// its texts tells the axis.
QStringList tickFaults(const QDomDocument& picture, const char* anchor) {
  const QStringList ticks = textsOf(group(picture, "ticks"), anchor);
  if (ticks.isEmpty() || ticks.size() > 14) return {QString::number(ticks.size())};
  QStringList faults;
  for (int i = 1; i < ticks.size(); ++i) {
    const double step = ticks.at(i).toDouble() - ticks.at(i - 1).toDouble();
    const double mantissa = step / std::pow(10, std::floor(std::log10(step * 1.000001)));
    const double nearest = mantissa < 1.5 ? 1 : mantissa < 3.5 ? 2 : 5;
    if (std::abs(mantissa - nearest) >= 1e-3) faults << QString::number(step);
  }
  return faults;
}

}  // namespace

class tst_CCompensationPlot : public QObject {
  Q_OBJECT

 private slots:
  void draws_data() {
    NGoldenFiles::addTable("compensation/plots.txt", {"name", "table", "good", "bad", "notShown"});
    addTextRow("all that fit", steps(511, 0.5), "511", "0", "0");
    addTextRow("one too many", steps(512, 0.5), "511", "1", "0");
    addTextRow("far too many", steps(5000, 0.125), "511", "4489", "0");
  }
  void draws() {
    QFETCH(QString, table);
    const CCompensationPlot plot(*compensationTable(table));
    QDomDocument picture;
    QVERIFY(picture.setContent(plot.toSvg()));
    QTEST(QString::number(plot.skippedPoints()), "notShown");
    QTEST(QString::number(group(picture, "points").childNodes().size()), "good");
    QTEST(QString::number(group(picture, "bad-points").childNodes().size()), "bad");
    QCOMPARE(faultsOf(picture), QStringList());
    QCOMPARE(tickFaults(picture, "middle"), QStringList());
    QCOMPARE(tickFaults(picture, "end"), QStringList());
    QCOMPARE(CCompensationPlot(*compensationTable(table)).toSvg(), plot.toSvg());
  }

  void drawsTexts() {
    const QString wide = u8"\U00020000";
    const QStringList titles{"a<b & \"c\" ]]>", "a\x1b[1m\nb", QString(u8"a\uFFFE\uFFFF"),
                             u8"x \U0001D6FC", wide.repeated(500)};
    const QStringList drawn{"a<b & \"c\" ]]>", "a\\u001b[1m b", u8"a\uFFFD\uFFFD", u8"x \U0001D6FC",
                            wide.repeated(39) + u8"\u2026"};
    const auto table = compensationTable("0/3e6 0/1e-6 1e6/2e-6");
    const auto texts = [&](const char* place, const CCompensationPlot::STexts& given) {
      QDomDocument picture;
      picture.setContent(CCompensationPlot(*table, given).toSvg());
      return textsOf(group(picture, place));
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

QTEST_APPLESS_MAIN(tst_CCompensationPlot)
#include "tst_CCompensationPlot.moc"
