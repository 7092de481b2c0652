#include "CWorkplace.h"
#include "GoldenFiles.h"
#include "ICCompensationFile.h"
#include "TestRows.h"

#include <QDomDocument>
#include <QJsonArray>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>

#include <cmath>
#include <memory>

namespace {

/// A table as "position/adjustment …", with its range in front as "minimum/maximum".
QByteArray tableOf(const QString& texts, const QByteArray& version = "1.0") {
  const auto pair = [](const QString& text, const char* first, const char* second) {
    return QString("<%1>%3</%1><%2>%4</%2>")
        .arg(first, second, text.section('/', 0, 0), text.section('/', 1));
  };
  QStringList words = texts.split(' ');
  QString xml = "<HEADER>" + pair(words.takeFirst(), "MIN", "MAX") + "</HEADER><POINTLIST>";
  for (const QString& word : words)
    xml += "<POINT>" + pair(word, "POSITION", "ADJUST") + "</POINT>";
  return "<C_COMPENSATION_FORMAT Version=\"" + version + "\">" + xml.toUtf8() +
         "</POINTLIST></C_COMPENSATION_FORMAT>";
}

QString steps(int count, double width) {
  QString words = "0/1000";
  for (int i = 0; i < count; ++i) words += QString(" %1/%2").arg(i * width).arg(std::sin(i));
  return words;
}

/// A workplace with a table, and the picture that the tool has made of it.
struct SPlot {
  explicit SPlot(const QByteArray& table) { NTestFiles::write(place.path("Table.xcomp"), table); }

  SRun run(const QStringList& options = {}) {
    const SRun run = place.run(
        QStringList({"compensation", "plot", "Table.xcomp", "-o", "Table.svg"}) + options);
    bytes = NTestFiles::read(place.path("Table.svg"));
    picture.setContent(bytes);
    return run;
  }

  QDomElement group(const char* id) const {
    QDomElement element = picture.documentElement().firstChildElement("g");
    while (!element.isNull() && element.attribute("id") != id)
      element = element.nextSiblingElement("g");
    return element;
  }

  CWorkplace place;
  QByteArray bytes;
  QDomDocument picture;
};

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

/// The steps between the ticks of one axis, which is told by the anchor of its texts.
QStringList tickFaults(const QDomElement& texts, const char* anchor) {
  QVector<double> ticks;
  for (QDomElement text = texts.firstChildElement(); !text.isNull();
       text = text.nextSiblingElement()) {
    if (text.attribute("text-anchor") == anchor) ticks.append(text.text().toDouble());
  }
  if (ticks.isEmpty() || ticks.size() > 14) return {QString::number(ticks.size())};
  QStringList faults;
  for (int i = 1; i < ticks.size(); ++i) {
    const double step = ticks.at(i) - ticks.at(i - 1);
    const double mantissa = step / std::pow(10, std::floor(std::log10(step * 1.000001)));
    const bool isRound = std::abs(mantissa - 1) < 1e-3 || std::abs(mantissa - 2) < 1e-3 ||
                         std::abs(mantissa - 5) < 1e-3;
    if (!isRound) faults << QString::number(step);
  }
  return faults;
}

}  // namespace

/// Compensation tables: what the sessions cannot show.
class tst_ktoparamCompensation : public QObject {
  Q_OBJECT

 private slots:
  void plots_data() {
    NGoldenFiles::addTable("compensation/plots.txt", {"name", "table", "good", "bad", "notShown"});
    const auto row = [](const char* name, const QString& table, const char* good, const char* bad) {
      addRow(name, name, table, good, bad, "0");
    };
    row("all that fit", steps(511, 0.5), "511", "0");
    row("one too many", steps(512, 0.5), "511", "1");
    row("far too many", steps(5000, 0.125), "511", "4489");
  }
  void plots() {
    QFETCH(QString, table);
    SPlot plot(tableOf(table));
    const SRun run = plot.run({"--json"});
    QCOMPARE(run.err, "");
    QCOMPARE(run.status, 0);
    const QJsonDocument json = QJsonDocument::fromJson(run.out.toUtf8());
    QTEST(QString::number(json["notShown"].toInt()), "notShown");
    QTEST(QString::number(plot.group("points").childNodes().size()), "good");
    QTEST(QString::number(plot.group("bad-points").childNodes().size()), "bad");
    QCOMPARE(faultsOf(plot.picture), QStringList());
    QCOMPARE(tickFaults(plot.group("ticks"), "middle"), QStringList());
    QCOMPARE(tickFaults(plot.group("ticks"), "end"), QStringList());

    const QByteArray first = plot.bytes;
    QCOMPARE(plot.run().status, 0);
    QCOMPARE(plot.bytes, first);
    QCOMPARE(NTestFiles::read(plot.place.path("Table.xcomp")), tableOf(table));
  }

  void plotsTexts_data() {
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("place");
    QTest::addColumn<QStringList>("texts");
    const auto title = [](const char* name, const QString& text, const QString& drawn) {
      addRow(name, QStringList({"--title", text}), "heading",
             QStringList({drawn, "Range 0 to 3e6 · points: 2"}));
    };
    title("mark-up", "a<b & \"c\" ]]>", "a<b & \"c\" ]]>");
    title("control characters", "a\x1b[1m\nb", "a\\u001b[1m b");
    title("no characters", QString("a") + QChar(0xFFFE) + QChar(0xFFFF), u8"a\uFFFD\uFFFD");
    title("beyond the first plane", u8"x \U0001D6FC", u8"x \U0001D6FC");
    const QString wide = u8"\U00020000";
    title("cut", wide.repeated(500), wide.repeated(39) + QChar(0x2026));
    const auto units = [](const char* options, const QStringList& drawn) {
      addRow(options, QString(options).split(' ', Qt::SkipEmptyParts), "names", drawn);
    };
    units("", {"Position in 10⁶", "Adjustment in 10⁻⁶"});
    units("--unit m", {"Position in 10⁶ m", "Adjustment in 10⁻⁶ m"});
    units("--unit m --adjustment-unit °", {"Position in 10⁶ m", "Adjustment in 10⁻⁶ °"});
  }
  void plotsTexts() {
    QFETCH(QStringList, options);
    QFETCH(QString, place);
    SPlot plot(tableOf("0/3e6 0/1e-6 1e6/2e-6"));
    QCOMPARE(plot.run(options).err, "");
    QStringList texts;
    const QDomNodeList drawn = plot.group(qPrintable(place)).childNodes();
    for (int i = 0; i < drawn.size(); ++i) texts << drawn.at(i).toElement().text();
    QTEST(texts, "texts");
  }

  /// The example is as the library writes it, so the way back ends at the same bytes.
  void convertsThereAndBack() {
    const QString name = "SpindleCompensationOld.xcomp";
    const QString toCurrent = "0 Points converted to the current format: 12\n";
    const CWorkplace place;
    const auto convert = [&](const QString& options) -> QString {
      const SRun run = place.runLine("compensation convert " + name + ' ' + options);
      return QString::number(run.status) + ' ' + run.out + run.err;
    };
    QMap<QString, QByteArray> expected = place.files();
    const QByteArray old = expected.value(name);
    QCOMPARE(convert("-o New.xcomp"), toCurrent);
    const QByteArray current = NTestFiles::read(place.path("New.xcomp"));
    expected["New.xcomp"] = current;
    QVERIFY(place.files() == expected);
    const std::unique_ptr<ICCompensationFile> table(ICCompensationFile::create(nullptr));
    QCOMPARE(table->loadFromBuffer(current, "1.0"), int(ICCompensationFile::Ok));
    QCOMPARE(table->detectedDataPointFormat(), ICCompensationFile::CurrentFormat);
    QCOMPARE(table->point(1).adjustment().asStr(), "0.0039");

    QCOMPARE(convert(""), toCurrent);
    QCOMPARE(NTestFiles::read(place.path(name)), current);
    QCOMPARE(convert("--to old"), "0 Points converted to the old format: 12\n");
    QCOMPARE(NTestFiles::read(place.path(name)), old);
  }

  void keepsVersions() {
    const CWorkplace place;
    for (const char* version : {"1.0", "01.050", "0.0", "7", "beta", ""}) {
      QVERIFY(NTestFiles::write(place.path("Table.xcomp"), tableOf("0/1 0/0.5", version)));
      QCOMPARE(place.runLine("compensation convert Table.xcomp --to old").err, "");
      QDomDocument saved;
      QVERIFY(saved.setContent(NTestFiles::read(place.path("Table.xcomp"))));
      QVERIFY(!saved.elementsByTagName("ERROR").isEmpty());
      QCOMPARE(saved.documentElement().attribute("Version"), version);
    }
  }

  /// Where all texts are numbers and nothing is missing, the points told are those of the library.
  void findsWhatTheLibraryFinds() {
    const CWorkplace place;
    const std::unique_ptr<ICCompensationFile> table(ICCompensationFile::create(nullptr));
    QRandomGenerator random(20261120);
    for (int round = 0; round < 40; ++round) {
      QString words = QString("%1/%2").arg(random.bounded(4)).arg(random.bounded(3, 12));
      const int count = round == 0 ? 520 : random.bounded(12);
      for (int i = 0; i < count; ++i)
        words += QString(" %1/0").arg(random.bounded(3) == 0 ? random.bounded(-1, 13) : i);
      QVERIFY(NTestFiles::write(place.path("Table.xcomp"), tableOf(words)));
      QCOMPARE(table->load(place.path("Table.xcomp"), "1.0"), int(ICCompensationFile::Ok));
      QList<int> expected;
      table->checkAllPoints(&expected);

      const SRun run = place.runLine("compensation check Table.xcomp --json");
      const QJsonObject json = QJsonDocument::fromJson(run.out.toUtf8()).object();
      QList<int> told;
      for (const QJsonValue point : json["wrongPoints"].toArray()) {
        told.append(point["number"].toInt() - 1);
        QVERIFY(!point["problems"].toArray().isEmpty());
      }
      QCOMPARE(told, expected);
      QCOMPARE(json["rangeProblems"].toArray().isEmpty(), table->checkHeader());
      QCOMPARE(run.status, table->checkAll() == ICCompensationFile::CheckOk ? 0 : 1);
    }
  }
};

QTEST_GUILESS_MAIN(tst_ktoparamCompensation)
#include "tst_ktoparamCompensation.moc"
