// Compensation tables: their files, their checks and their pictures.

#include "CCompensationFindings.h"
#include "CCompensationPlot.h"
#include "GoldenFiles.h"
#include "ICCompensationFile.h"
#include "NClock.h"

#include <QDomDocument>
#include <QRandomGenerator>

#include <cmath>
#include <memory>

using namespace NTestFiles;
using CIndices = QList<int>;
using Format = ICCompensationFile::EDataPointFormat;

namespace {

const QString kVersion = "1.0";

/// A table from words as "position/adjustment …", with its range in front as "minimum/maximum".
std::unique_ptr<ICCompensationFile> compensationTable(const QString& text) {
  std::unique_ptr<ICCompensationFile> table(ICCompensationFile::create(nullptr));
  CCompensationHeader header;
  header.setMinimum(text.section(' ', 0, 0).section('/', 0, 0));
  header.setMaximum(text.section(' ', 0, 0).section('/', 1));
  table->setHeader(header);
  for (const QString& word : text.split(' ').mid(1)) {
    CCompensationPoint point;
    point.setPosition(word.section('/', 0, 0));
    point.setAdjustment(word.section('/', 1));
    table->appendPoint(point);
  }
  return table;
}

/// The texts of all points, as the words of a table.
QString words(const ICCompensationFile& file) {
  QStringList words;
  for (const CCompensationPoint& point : file.allPoints())
    words << point.position().asStr() + '/' + point.adjustment().asStr();
  return words.join(' ');
}

QString told(const CIndices& indices) {
  QStringList numbers;
  for (const int index : indices) numbers << QString::number(index);
  return numbers.isEmpty() ? QString("-") : numbers.join(' ');
}

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

class tst_Compensation : public QObject {
  Q_OBJECT

 private slots:
  void init() { mFile.reset(ICCompensationFile::create(nullptr)); }

  /// Empty meta data is filled by a save and stays; data that is partly there is left alone.
  void metaDataIsFilled() {
    qputenv("USER", "tester");
    NClock::setToday([] { return QDate(2027, 2, 28); });
    QByteArray buffer;
    QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
    NClock::setToday(nullptr);
    QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
    QCOMPARE(mFile->metaData().author() + mFile->metaData().date().toString(Qt::ISODate),
             "tester2027-02-28");
    CXMLMetaData comment;
    comment.setComment("only this");
    mFile->setMetaData(comment);
    QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 0);
    QVERIFY(mFile->metaData().author().isEmpty() && mFile->metaData().date().isNull());
  }

  /// The save format is the application's: a load does not choose it, nor does it reset it.
  void saveFormats() {
    QByteArray buffer;
    const auto reload = [&] {
      return mFile->saveToBuffer(buffer, kVersion) == 0 &&
             mFile->loadFromBuffer(buffer, kVersion) == 0;
    };
    QCOMPARE(mFile->load(data("compensation/valid/old.xml"), kVersion), 0);
    QVERIFY(reload() && mFile->detectedDataPointFormat() == Format::CurrentFormat);
    QCOMPARE(words(*mFile), "0/0.1 25/0.2 50/0.0");
    mFile->setDataPointSaveFormat(Format::NoFormat);  // as the old one
    QVERIFY(reload() && reload() && mFile->detectedDataPointFormat() == Format::OldFormat);
    QCOMPARE(mFile->load(data("compensation/valid/table.xml"), kVersion), 0);
    QVERIFY(reload());
    QCOMPARE(buffer, read(data("compensation/table.old.xml")));

    mFile->clear();
    QCOMPARE(mFile->count(), 0);
    QCOMPARE(mFile->header().maximum(), CParamVal("0"));
    QVERIFY(mFile->metaData().isEmpty());
    QVERIFY(mFile->loadFromBuffer("", kVersion) != 0 && !mFile->errorMsg().isEmpty());
    mFile->clear();
    QCOMPARE(mFile->errorMsg(), "");
    mFile->appendPoint(CCompensationPoint());
    QVERIFY(reload() && mFile->detectedDataPointFormat() == Format::CurrentFormat);
  }

  /// A save that fails leaves the old buffer.
  void unsavableText() {
    QByteArray buffer = "old";
    mFile = compensationTable("0/9 \x1b/1");
    QCOMPARE(mFile->saveToBuffer(buffer, kVersion), 5);
    QCOMPARE(mFile->errorMsg(),
             "<POSITION>: the text of <POSITION> holds the character \\u001B, which "
             "XML cannot hold.");
    QCOMPARE(buffer, QByteArray("old"));
    mFile->clear();
    QCOMPARE(mFile->save("/no/such", kVersion), 5);
    QVERIFY(mFile->errorMsg().startsWith("File \"/no/such\": the file cannot be written"));
  }

  void checks_data() {
    NGoldenFiles::addTable("compensation/points.txt", {"name", "table", "points", "all", "result"});
  }
  void checks() {
    QFETCH(QString, table);
    mFile = compensationTable(table);
    CIndices bad;
    for (int i = 0; i < mFile->count(); ++i)
      if (!mFile->checkPoint(i)) bad << i;
    QTEST(told(bad), "points");
    bad = {7, 8};
    const bool isGood = mFile->checkAllPoints(&bad);
    QCOMPARE(isGood, bad.isEmpty());
    QTEST(told(bad), "all");
    QTEST(QString::number(mFile->checkAll()), "result");
    QCOMPARE(mFile->checkHeader(), mFile->checkAll() != 1);
  }

  /// A table can use 511 points; more are still read, checked and written.
  void longTable() {
    QString text = "0/1e6";
    for (int i = 0; i < 513; ++i) text += QString(" %1/-%1").arg(i);
    mFile = compensationTable(text);
    QVERIFY(mFile->checkPoint(510) && !mFile->checkPoint(511));
    QByteArray buffer;
    QVERIFY(mFile->saveToBuffer(buffer, kVersion) == 0);
    QVERIFY(mFile->loadFromBuffer(buffer, kVersion) == 0 && text.endsWith(' ' + words(*mFile)));
  }

  /// The count is refused as an index as well: appending is what appendPoint() is for.
  void editing() {
    CCompensationPoint point;
    point.setPosition("1");
    QVERIFY(!mFile->insertPoint(0, point));
    mFile = compensationTable("0/9 0/b 2/a");
    QVERIFY(mFile->insertPoint(1, point) && mFile->insertPoint(0, point));
    QCOMPARE(words(*mFile), "1/0 0/b 1/0 2/a");
    point.setAdjustment("d");
    QVERIFY(mFile->setPoint(1, point) && mFile->setPoint(3, point));
    for (const int index : {-1, 4, 1000000}) {
      QVERIFY(!mFile->setPoint(index, point) && !mFile->insertPoint(index, point));
      QVERIFY(!mFile->removePoint(index) && !mFile->checkPoint(index));
      QCOMPARE(mFile->point(index).position().asStr() + mFile->point(index).adjustment().asStr(),
               "00");
    }
    QCOMPARE(words(*mFile), "1/0 1/d 1/0 1/d");
    QVERIFY(mFile->size() == 4 && mFile->point(3).adjustment() == CParamVal("d"));
    QVERIFY(mFile->removePoint(3) && mFile->removePoint(0));
    QCOMPARE(words(*mFile), "1/d 1/0");
  }

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
    const QStringList drawn{"a&lt;b &amp; &quot;c&quot; ]]&gt;", "a\\u001b[1m b", "a\\ufffe\\uffff",
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

 private:
  std::unique_ptr<ICCompensationFile> mFile;
};

QTEST_GUILESS_MAIN(tst_Compensation)
#include "tst_Compensation.moc"
