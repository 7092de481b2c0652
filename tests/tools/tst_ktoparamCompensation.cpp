#include "CWorkplace.h"
#include "ICCompensationFile.h"

#include <QDomDocument>
#include <QJsonArray>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>

#include <cmath>
#include <memory>

namespace {

const QString kTable = QStringLiteral("Table.xcomp");
const QString kPicture = QStringLiteral("Table.svg");

/// A table as "position/adjustment …", with its range in front as "minimum/maximum".
QByteArray tableOf(const QString& texts, const QByteArray& version = "1.0") {
  const auto pair = [](const QString& text, const char* first, const char* second) {
    return QStringLiteral("<%1>%3</%1><%2>%4</%2>")
        .arg(QLatin1String(first), QLatin1String(second), text.section(QLatin1Char('/'), 0, 0),
             text.section(QLatin1Char('/'), 1));
  };
  QStringList words = texts.split(QLatin1Char(' '));
  QString xml =
      QStringLiteral("<HEADER>%1</HEADER><POINTLIST>").arg(pair(words.takeFirst(), "MIN", "MAX"));
  for (const QString& word : words) {
    xml += QStringLiteral("<POINT>%1</POINT>").arg(pair(word, "POSITION", "ADJUST"));
  }
  return "<C_COMPENSATION_FORMAT Version=\"" + version + "\">" + xml.toUtf8() +
         "</POINTLIST></C_COMPENSATION_FORMAT>";
}

QString steps(int count, double width) {
  QStringList words(QStringLiteral("0/1000"));
  for (int i = 0; i < count; ++i) {
    words.append(QStringLiteral("%1/%2").arg(i * width).arg(std::sin(i)));
  }
  return words.join(QLatin1Char(' '));
}

QDomElement group(const QDomDocument& picture, const char* id) {
  QDomElement element = picture.documentElement().firstChildElement(QStringLiteral("g"));
  while (!element.isNull() && element.attribute(QStringLiteral("id")) != QLatin1String(id)) {
    element = element.nextSiblingElement(QStringLiteral("g"));
  }
  return element;
}

/// Every number in the attributes that place something.
QVector<double> coordinates(const QDomElement& element) {
  QVector<double> found;
  for (const char* name : {"x", "y", "x1", "y1", "x2", "y2", "cx", "cy", "d"}) {
    const QString text = element.attribute(QLatin1String(name));
    for (const QString& number :
         text.split(QRegularExpression(QStringLiteral("[ MLZ]")), Qt::SkipEmptyParts)) {
      bool isNumber = false;
      const double value = number.toDouble(&isNumber);
      found.append(isNumber ? value : std::nan(""));
    }
  }
  return found;
}

/// What no picture may have: a place outside the page, or letters too small to read.
QStringList faultsOf(const QDomDocument& picture) {
  QStringList faults;
  const QDomNodeList all = picture.elementsByTagName(QStringLiteral("*"));
  for (int i = 0; i < all.size(); ++i) {
    const QDomElement element = all.at(i).toElement();
    for (const double value : coordinates(element)) {
      if (!(value >= -1 && value <= 843)) faults << element.tagName() + QString::number(value);
    }
    const QString size = element.attribute(QStringLiteral("font-size"), QStringLiteral("10"));
    if (size.toDouble() < 10) faults << element.tagName() + size;
  }
  return faults;
}

/// The steps between the ticks of one axis, which is told by the anchor of its texts.
QStringList tickFaults(const QDomDocument& picture, const char* anchor) {
  QVector<double> ticks;
  for (QDomElement text = group(picture, "ticks").firstChildElement(); !text.isNull();
       text = text.nextSiblingElement()) {
    if (text.attribute(QStringLiteral("text-anchor")) == QLatin1String(anchor)) {
      ticks.append(text.text().toDouble());
    }
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
  void plots_data();
  void plots();
  void plotsAnyTitle_data();
  void plotsAnyTitle();
  void labelsUnits();
  void convertsThereAndBack();
  void keepsVersions_data();
  void keepsVersions();
  void findsWhatTheLibraryFinds();
};

void tst_ktoparamCompensation::plots_data() {
  QTest::addColumn<QString>("table");
  QTest::addColumn<int>("good");
  QTest::addColumn<int>("bad");
  QTest::addColumn<int>("notShown");
  const auto row = [](const char* name, const QString& table, int good, int bad, int notShown) {
    QTest::newRow(name) << table << good << bad << notShown;
  };
  row("no points", QStringLiteral("0/10"), 0, 0, 0);
  row("nothing at all", QStringLiteral("0/0"), 0, 0, 0);
  row("one point", QStringLiteral("0/10 5/0.1"), 1, 0, 0);
  row("wrong points", QStringLiteral("0/10 -1/1 0/2 5/3 12/4 7/5"), 1, 4, 0);
  row("all positions equal", QStringLiteral("5/5 5/1 5/1 5/1"), 1, 2, 0);
  row("range reversed", QStringLiteral("10/0 1/1 2/2"), 0, 2, 0);
  row("no numbers", QStringLiteral("nan/inf nan/1 inf/1 1/nan 2/-inf x/1 3/ 4,5/6"), 0, 0, 7);
  row("too large", QStringLiteral("-1.7e308/1.7e308 -1.7e308/1 0/1 1/1.7e308"), 1, 0, 2);
  row("very large", QStringLiteral("-1e100/1e100 -1e100/-1e100 1e100/1e100"), 2, 0, 0);
  row("very small", QStringLiteral("0/4e-308 1e-308/1e-308 2e-308/5e-324"), 2, 0, 0);
  row("small", QStringLiteral("0/3e-7 1e-7/1e-150 2e-7/2e-150"), 2, 0, 0);
  row("far from zero", QStringLiteral("1e9/1000000010 1e9/12345678 1000000005/12345679"), 2, 0, 0);
  row("closer than numbers are", QStringLiteral("1e15/1e16 1e15/1 1000000000000000.125/1"), 2, 0,
      0);
  row("range far away", QStringLiteral("1e12/2e12 0/1 1/1"), 0, 2, 0);
  row("all that fit", steps(511, 0.5), 511, 0, 0);
  row("one too many", steps(512, 0.5), 511, 1, 0);
  row("far too many", steps(5000, 0.125), 511, 4489, 0);
}

void tst_ktoparamCompensation::plots() {
  QFETCH(QString, table);
  const CWorkplace workplace;
  QVERIFY(NTestFiles::write(workplace.path(kTable), tableOf(table)));
  const QStringList words = {QStringLiteral("compensation"), QStringLiteral("plot"), kTable,
                             QStringLiteral("-o"), kPicture};
  const SRun run = workplace.run(words + QStringList(QStringLiteral("--json")));
  QCOMPARE(run.err, QString());
  QCOMPARE(run.status, 0);
  const QJsonObject json = QJsonDocument::fromJson(run.out.toUtf8()).object();
  QTEST(json[QLatin1String("notShown")].toInt(), "notShown");

  const QByteArray bytes = NTestFiles::read(workplace.path(kPicture));
  QDomDocument picture;
  QVERIFY(picture.setContent(bytes));
  QTEST(group(picture, "points").childNodes().size(), "good");
  QTEST(group(picture, "bad-points").childNodes().size(), "bad");
  QCOMPARE(faultsOf(picture), QStringList());
  QCOMPARE(tickFaults(picture, "middle"), QStringList());
  QCOMPARE(tickFaults(picture, "end"), QStringList());

  QCOMPARE(workplace.run(words).status, 0);
  QCOMPARE(NTestFiles::read(workplace.path(kPicture)), bytes);
  QCOMPARE(NTestFiles::read(workplace.path(kTable)), tableOf(table));
}

void tst_ktoparamCompensation::plotsAnyTitle_data() {
  QTest::addColumn<QString>("title");
  QTest::addColumn<QString>("drawn");
  const auto row = [](const char* name, const QString& title, const QString& drawn) {
    QTest::newRow(name) << title << drawn;
  };
  row("mark-up", QStringLiteral("a<b & \"c\" ]]>"), QStringLiteral("a<b & \"c\" ]]>"));
  row("control characters", QStringLiteral("a\x1b[1m\nb"), QStringLiteral("a\\u001b[1m b"));
  row("no characters", QStringLiteral("a") + QChar(0xFFFE) + QChar(0xFFFF),
      QStringLiteral("a\uFFFD\uFFFD"));
  row("beyond the first plane", QStringLiteral("x \U0001D6FC"), QStringLiteral("x \U0001D6FC"));
  row("cut", QStringLiteral("\U00020000").repeated(500),
      QStringLiteral("\U00020000").repeated(39) + QChar(0x2026));
}

void tst_ktoparamCompensation::plotsAnyTitle() {
  QFETCH(QString, title);
  const CWorkplace workplace;
  const SRun run = workplace.run({QStringLiteral("compensation"), QStringLiteral("plot"),
                                  QStringLiteral("SpindleCompensation.xcomp"), QStringLiteral("-o"),
                                  kPicture, QStringLiteral("--title"), title});
  QCOMPARE(run.err, QString());
  QDomDocument picture;
  QVERIFY(picture.setContent(NTestFiles::read(workplace.path(kPicture))));
  QTEST(group(picture, "heading").firstChildElement().text(), "drawn");
}

void tst_ktoparamCompensation::labelsUnits() {
  const CWorkplace workplace;
  QVERIFY(
      NTestFiles::write(workplace.path(kTable), tableOf(QStringLiteral("0/3e6 0/1e-6 1e6/2e-6"))));
  const auto names = [&](const QString& options) -> QStringList {
    const QString command = QStringLiteral("compensation plot Table.xcomp -o Table.svg ") + options;
    const SRun run = workplace.run(QProcess::splitCommand(command));
    QDomDocument picture;
    picture.setContent(NTestFiles::read(workplace.path(kPicture)));
    const QDomElement first = group(picture, "names").firstChildElement();
    return {run.err, first.text(), first.nextSiblingElement().text()};
  };
  QCOMPARE(names(QString()), QStringList({QString(), QStringLiteral("Position in 10⁶"),
                                          QStringLiteral("Adjustment in 10⁻⁶")}));
  QCOMPARE(names(QStringLiteral("--unit m")),
           QStringList({QString(), QStringLiteral("Position in 10⁶ m"),
                        QStringLiteral("Adjustment in 10⁻⁶ m")}));
  QCOMPARE(names(QStringLiteral("--unit m --adjustment-unit °")),
           QStringList({QString(), QStringLiteral("Position in 10⁶ m"),
                        QStringLiteral("Adjustment in 10⁻⁶ °")}));
}

// The example is as the library writes it, so the way back ends at the same bytes.
void tst_ktoparamCompensation::convertsThereAndBack() {
  const CWorkplace workplace;
  const QString name = QStringLiteral("SpindleCompensationOld.xcomp");
  const QMap<QString, QByteArray> before = workplace.files();
  const auto convert = [&](const QString& rest) -> QString {
    const SRun run = workplace.run(
        QProcess::splitCommand(QStringLiteral("compensation convert %1 %2").arg(name, rest)));
    return run.status == 0 ? run.out + run.err : run.err;
  };

  QCOMPARE(convert(QStringLiteral("-o New.xcomp")),
           QStringLiteral("Points converted to the current format: 12\n"));
  QMap<QString, QByteArray> after = workplace.files();
  const QByteArray current = after.take(QStringLiteral("New.xcomp"));
  QVERIFY(after == before);
  const std::unique_ptr<ICCompensationFile> table(ICCompensationFile::create(nullptr));
  QCOMPARE(table->loadFromBuffer(current, QStringLiteral("1.0")), int(ICCompensationFile::Ok));
  QCOMPARE(table->detectedDataPointFormat(), ICCompensationFile::CurrentFormat);
  QCOMPARE(table->point(1).adjustment().asStr(), QStringLiteral("0.0039"));

  QCOMPARE(convert(QString()), QStringLiteral("Points converted to the current format: 12\n"));
  QCOMPARE(NTestFiles::read(workplace.path(name)), current);
  QCOMPARE(convert(QStringLiteral("--to old")),
           QStringLiteral("Points converted to the old format: 12\n"));
  QCOMPARE(NTestFiles::read(workplace.path(name)), before.value(name));
}

void tst_ktoparamCompensation::keepsVersions_data() {
  QTest::addColumn<QByteArray>("version");
  for (const char* version : {"1.0", "01.050", "0.0", "7", "beta", ""}) {
    QTest::newRow(version) << QByteArray(version);
  }
}

void tst_ktoparamCompensation::keepsVersions() {
  QFETCH(QByteArray, version);
  const CWorkplace workplace;
  QVERIFY(NTestFiles::write(workplace.path(kTable), tableOf(QStringLiteral("0/1 0/0.5"), version)));
  const SRun run = workplace.run(
      QProcess::splitCommand(QStringLiteral("compensation convert Table.xcomp --to old")));
  QCOMPARE(run.err, QString());
  QDomDocument saved;
  QVERIFY(saved.setContent(NTestFiles::read(workplace.path(kTable))));
  QCOMPARE(saved.documentElement().attribute(QStringLiteral("Version")),
           QString::fromLatin1(version));
}

// Where all texts are numbers and nothing is missing, the points told are those of the library.
void tst_ktoparamCompensation::findsWhatTheLibraryFinds() {
  const CWorkplace workplace;
  const std::unique_ptr<ICCompensationFile> table(ICCompensationFile::create(nullptr));
  QRandomGenerator random(20261120);
  for (int round = 0; round < 40; ++round) {
    QStringList words(QStringLiteral("%1/%2").arg(random.bounded(4)).arg(random.bounded(3, 12)));
    const int count = round == 0 ? 520 : random.bounded(12);
    for (int i = 0; i < count; ++i) {
      words.append(QStringLiteral("%1/0").arg(random.bounded(3) == 0 ? random.bounded(-1, 13) : i));
    }
    const QByteArray bytes = tableOf(words.join(QLatin1Char(' ')));
    QVERIFY(NTestFiles::write(workplace.path(kTable), bytes));
    QCOMPARE(table->loadFromBuffer(bytes, QStringLiteral("1.0")), int(ICCompensationFile::Ok));
    QList<int> expected;
    table->checkAllPoints(&expected);

    const SRun run = workplace.run(
        QProcess::splitCommand(QStringLiteral("compensation check Table.xcomp --json")));
    const QJsonObject json = QJsonDocument::fromJson(run.out.toUtf8()).object();
    QList<int> told;
    for (const QJsonValue point : json[QLatin1String("wrongPoints")].toArray()) {
      told.append(point[QLatin1String("number")].toInt() - 1);
      QVERIFY(!point[QLatin1String("problems")].toArray().isEmpty());
    }
    QCOMPARE(told, expected);
    QCOMPARE(json[QLatin1String("rangeProblems")].toArray().isEmpty(), table->checkHeader());
    QCOMPARE(run.status, table->checkAll() == ICCompensationFile::CheckOk ? 0 : 1);
  }
}

QTEST_GUILESS_MAIN(tst_ktoparamCompensation)
#include "tst_ktoparamCompensation.moc"
