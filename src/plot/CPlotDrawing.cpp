#include "CPlotDrawing.h"

#include "CSvgWriter.h"
#include "ICCompensationFile.h"
#include "NDisplayText.h"

#include <QPointF>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kFont = 11;
constexpr double kTitleFont = 17;
constexpr double kPageLeft = 36;
constexpr double kPageRight = 806;
constexpr double kMaxBadRadius = 4.5;
constexpr int kMaxNumbered = 40;  // bad points that have their number written next to them

// Colours that stay apart in grey; shapes and dashes tell the same.
const QString kInk = QStringLiteral("#222222");
const QString kSoftInk = QStringLiteral("#555555");
const QString kGrid = QStringLiteral("#dddddd");
const QString kCourse = QStringLiteral("#1a4f9c");
const QString kBad = QStringLiteral("#c2181b");
const QString kHatch = QStringLiteral("#c8c8c8");
const QString kRangeDashes = QStringLiteral("9 3 2 3");
const QString kBadDashes = QStringLiteral("3 3");
const QString kLineWidth = QStringLiteral("1.2");
const QString kBadWidth = QStringLiteral("1.8");
const QString kHatchFill = QStringLiteral("url(#hatch)");

std::optional<double> drawable(const CParamVal& value) {
  double number = 0;
  const bool isGood = value.value(number) && std::abs(number) <= CPlotAxis::kMaxAmount;
  return isGood ? std::optional<double>(number) : std::nullopt;
}

/// The smallest and the largest of some numbers, or the default when there are none.
struct SExtent {
  std::optional<double> low;
  std::optional<double> high;

  void add(double value) {
    low = std::min(low.value_or(value), value);
    high = std::max(high.value_or(value), value);
  }
};

QString elided(const QString& text, double fontSize, double width) {
  constexpr int kMaxShown = 400;
  const QString line = NDisplayText::escaped(text.simplified());
  QString shown = line.left(kMaxShown);
  while (CSvgWriter::textWidth(shown, fontSize) > width) shown.chop(1);
  if (shown == line) return line;
  if (!shown.isEmpty() && shown.at(shown.size() - 1).isHighSurrogate()) shown.chop(1);
  return shown + QChar(0x2026);
}

QString listed(const QStringList& numbers) {
  constexpr int kListed = 12;
  const QString text = numbers.mid(0, kListed).join(QLatin1String(", "));
  return numbers.size() <= kListed ? text
                                   : CCompensationPlot::tr("%1, … (%2 in all)")
                                         .arg(text, QString::number(numbers.size()));
}

QString withUnit(const QString& text, const QString& unit) {
  return unit.isEmpty() ? text : text + QChar(0xA0) + unit;
}

QString superscript(int exponent) {
  QString text = QString::number(exponent);
  const QString digits =
      QStringLiteral("\u2070\u00b9\u00b2\u00b3\u2074\u2075\u2076\u2077\u2078\u2079");
  for (QChar& each : text) each = each.isDigit() ? digits.at(each.digitValue()) : QChar(0x207B);
  return text;
}

/// "Position in 10⁶ mm"
QString axisName(const QString& name, const CPlotAxis& axis, const QString& unit) {
  const QString factor =
      axis.exponent() == 0 ? QString() : QStringLiteral("10") + superscript(axis.exponent());
  const QString scale = QStringLiteral("%1 %2").arg(factor, unit).trimmed();
  return scale.isEmpty() ? name : CCompensationPlot::tr("%1 in %2").arg(name, scale);
}

QString cross(double x, double y, double radius) {
  const auto corner = [&](double dx, double dy) -> QString {
    return CSvgWriter::number(x + dx * radius) + QLatin1Char(' ') +
           CSvgWriter::number(y + dy * radius);
  };
  return QStringLiteral("M%1L%2M%3L%4")
      .arg(corner(-1, -1), corner(1, 1), corner(-1, 1), corner(1, -1));
}

}  // namespace

CPlotDrawing::CPlotDrawing(const ICCompensationFile& table, const CCompensationPlot::STexts& texts)
    : mTable(table),
      mFindings(table),
      mTexts(texts),
      mPoints(drawablePoints()),
      mMinimum(drawable(table.header().minimum())),
      mMaximum(drawable(table.header().maximum())),
      mFrame(frame()) {}

std::vector<CPlotDrawing::SPoint> CPlotDrawing::drawablePoints() {
  std::vector<SPoint> points;
  for (int i = 0; i < mTable.count(); ++i) {
    const CCompensationPoint point = mTable.point(i);
    const std::optional<double> position = drawable(point.position());
    const std::optional<double> adjustment = drawable(point.adjustment());
    if (position && adjustment)
      points.push_back({i, *position, *adjustment, mFindings.isBad(i)});
    else
      mSkipped.append(QString::number(i + 1));
  }
  return points;
}

CPlotFrame CPlotDrawing::frame() const {
  SExtent positions;
  SExtent adjustments;
  for (const SPoint& point : mPoints) {
    positions.add(point.position);
    adjustments.add(point.adjustment);
  }
  if (mMinimum) positions.add(*mMinimum);
  if (mMaximum) positions.add(*mMaximum);
  const double low = adjustments.low.value_or(0);
  const double high = adjustments.high.value_or(0);
  // Adjustments mean something against 0, which is left out only where it would flatten the course.
  if (low == high || std::min(std::abs(low), std::abs(high)) <= high - low) adjustments.add(0);
  return {positions.low.value_or(0), positions.high.value_or(0), adjustments.low.value_or(0),
          adjustments.high.value_or(0)};
}

int CPlotDrawing::badCount() const {
  return static_cast<int>(std::count_if(mPoints.begin(), mPoints.end(),
                                        [](const SPoint& point) { return point.isBad; }));
}

double CPlotDrawing::spacing() const {
  return mFrame.width() / static_cast<double>(std::max<std::size_t>(mPoints.size(), 1));
}

QByteArray CPlotDrawing::toSvg() const {
  CSvgWriter svg(CPlotFrame::kPageWidthMm, CPlotFrame::kPageHeightMm, title());
  svg.hatch("hatch", 6, kHatch);
  svg.beginGroup("page", {{"fill", QStringLiteral("#ffffff")}});
  svg.rect(0, 0, 842, 596);
  svg.endGroup();
  writeOutside(svg);
  writeGrid(svg);
  writeTickTexts(svg);
  writeAxisNames(svg);
  writeRange(svg);
  writeCourse(svg);
  writeGoodPoints(svg);
  writeBadPoints(svg);
  writeBadNumbers(svg);
  writeHeading(svg);
  writeLegend(svg);
  writeNotes(svg);
  return svg.finish();
}

QString CPlotDrawing::title() const {
  if (!mTexts.title.isEmpty()) return mTexts.title;
  const QString comment = mTable.metaData().comment();
  return comment.isEmpty() ? CCompensationPlot::tr("Compensation table") : comment;
}

/// What identifies a print: range, number of points, date, author, and the comment when it is not
/// the title.
QString CPlotDrawing::subtitle() const {
  const CCompensationHeader header = mTable.header();
  const CXMLMetaData data = mTable.metaData();
  QStringList parts(CCompensationPlot::tr("Range %1 to %2")
                        .arg(withUnit(header.minimum().asStr(), mTexts.positionUnit),
                             withUnit(header.maximum().asStr(), mTexts.positionUnit)));
  const bool isOld = mTable.detectedDataPointFormat() == ICCompensationFile::OldFormat;
  parts.append((isOld ? CCompensationPlot::tr("points: %1 (old format)")
                      : CCompensationPlot::tr("points: %1"))
                   .arg(mTable.count()));
  if (data.date().isValid()) parts.append(data.date().toString(Qt::ISODate));
  if (!data.author().isEmpty()) parts.append(data.author());
  if (!mTexts.title.isEmpty() && !data.comment().isEmpty()) parts.append(data.comment());
  return parts.join(QStringLiteral(" \u00b7 "));
}

void CPlotDrawing::writeHeading(CSvgWriter& svg) const {
  svg.beginGroup("heading", {{"fill", kInk}});
  const double width = kPageRight - kPageLeft;
  svg.text(
      kPageLeft, 44, "start", elided(title(), kTitleFont, width),
      {{"font-size", CSvgWriter::number(kTitleFont)}, {"font-weight", QStringLiteral("bold")}});
  svg.text(kPageLeft, 64, "start", elided(subtitle(), kFont, width),
           {{"font-size", CSvgWriter::number(kFont)}, {"fill", kSoftInk}});
  svg.endGroup();
}

void CPlotDrawing::writeOutside(CSvgWriter& svg) const {
  if (!mTable.checkHeader()) return;
  svg.beginGroup("outside", {{"fill", kHatchFill}});
  const auto area = [&](double from, double to) {
    svg.rect(from, mFrame.top(), to - from, mFrame.height());
  };
  if (mMinimum) area(mFrame.left(), mFrame.x(*mMinimum));
  if (mMaximum) area(mFrame.x(*mMaximum), mFrame.right());
  svg.endGroup();
}

void CPlotDrawing::writeGrid(CSvgWriter& svg) const {
  svg.beginGroup("grid", {{"stroke", kGrid}, {"stroke-width", QStringLiteral("0.7")}});
  for (const CPlotAxis::STick& tick : mFrame.xAxis().ticks()) {
    const double x = mFrame.x(tick.value);
    svg.line(x, mFrame.top(), x, mFrame.bottom() + 5);
  }
  for (const CPlotAxis::STick& tick : mFrame.yAxis().ticks()) {
    const double y = mFrame.y(tick.value);
    svg.line(mFrame.left() - 5, y, mFrame.right(), y);
  }
  svg.endGroup();
  svg.beginGroup("frame", {{"stroke", kSoftInk},
                           {"stroke-width", QStringLiteral("0.8")},
                           {"fill", QStringLiteral("none")}});
  if (mFrame.yAxis().low() < 0 && mFrame.yAxis().high() > 0)
    svg.line(mFrame.left(), mFrame.y(0), mFrame.right(), mFrame.y(0));
  svg.rect(mFrame.left(), mFrame.top(), mFrame.width(), mFrame.height());
  svg.endGroup();
}

void CPlotDrawing::writeTickTexts(CSvgWriter& svg) const {
  svg.beginGroup("ticks",
                 {{"font-size", CSvgWriter::number(CPlotFrame::kTickFont)}, {"fill", kInk}});
  for (const CPlotAxis::STick& tick : mFrame.xAxis().ticks())
    svg.text(mFrame.x(tick.value), mFrame.bottom() + 18, "middle", tick.text);
  for (const CPlotAxis::STick& tick : mFrame.yAxis().ticks())
    svg.text(mFrame.left() - 9, mFrame.y(tick.value) + 4, "end", tick.text);
  svg.endGroup();
}

void CPlotDrawing::writeAxisNames(CSvgWriter& svg) const {
  const QString position =
      axisName(CCompensationPlot::tr("Position"), mFrame.xAxis(), mTexts.positionUnit);
  const QString adjustment =
      axisName(CCompensationPlot::tr("Adjustment"), mFrame.yAxis(), mTexts.adjustmentUnit);
  const double middle = (mFrame.top() + mFrame.bottom()) / 2;
  svg.beginGroup("names", {{"font-size", QStringLiteral("12")}, {"fill", kInk}});
  svg.text((mFrame.left() + mFrame.right()) / 2, mFrame.bottom() + 38, "middle",
           elided(position, 12, mFrame.width()));
  svg.text(
      kPageLeft - 8, middle, "middle", elided(adjustment, 12, mFrame.height()),
      {{"transform", QStringLiteral("rotate(-90 %1 %2)")
                         .arg(CSvgWriter::number(kPageLeft - 8), CSvgWriter::number(middle))}});
  svg.endGroup();
}

void CPlotDrawing::writeRange(CSvgWriter& svg) const {
  const CCompensationHeader header = mTable.header();
  // Texts between the lines where these are far enough from each other, else on their outer sides.
  const bool isWide =
      mMinimum && mMaximum && mFrame.x(*mMaximum) - mFrame.x(*mMinimum) > mFrame.width() / 2;
  const auto limit = [&](double value, const char* anchor, const QString& text) {
    const double x = mFrame.x(value);
    svg.line(x, mFrame.top() - 8, x, mFrame.bottom());
    const double gap = qstrcmp(anchor, "start") == 0 ? 5 : -5;
    svg.text(x + gap, mFrame.top() - 6, anchor, elided(text, kFont, mFrame.width() / 4),
             {{"stroke", QStringLiteral("none")}});
  };
  svg.beginGroup("range", {{"stroke", kInk},
                           {"fill", kInk},
                           {"stroke-width", kLineWidth},
                           {"stroke-dasharray", kRangeDashes},
                           {"font-size", CSvgWriter::number(kFont)}});
  if (mMinimum) {
    limit(*mMinimum, isWide ? "start" : "end",
          withUnit(CCompensationPlot::tr("min %1").arg(header.minimum().asStr()),
                   mTexts.positionUnit));
  }
  if (mMaximum) {
    limit(*mMaximum, isWide ? "end" : "start",
          withUnit(CCompensationPlot::tr("max %1").arg(header.maximum().asStr()),
                   mTexts.positionUnit));
  }
  svg.endGroup();
}

/// The lines between points that follow each other in the table: those between two good ones, or
/// those with a bad one at an end.
QString CPlotDrawing::coursePath(bool throughBad) const {
  QString path;
  std::size_t last = 0;  // the point where the path is
  for (std::size_t i = 1; i < mPoints.size(); ++i) {
    const SPoint& from = mPoints[i - 1];
    const SPoint& to = mPoints[i];
    if (to.index != from.index + 1 || (from.isBad || to.isBad) != throughBad) continue;
    const auto add = [&](QLatin1Char command, const SPoint& point) {
      path += command + CSvgWriter::number(mFrame.x(point.position)) + QLatin1Char(' ') +
              CSvgWriter::number(mFrame.y(point.adjustment));
    };
    if (path.isEmpty() || last != i - 1) add(QLatin1Char('M'), from);
    add(QLatin1Char('L'), to);
    last = i;
  }
  return path;
}

void CPlotDrawing::writeCourse(CSvgWriter& svg) const {
  svg.beginGroup("course",
                 {{"fill", QStringLiteral("none")}, {"stroke-linejoin", QStringLiteral("round")}});
  const QString good = coursePath(false);
  const QString bad = coursePath(true);
  if (!bad.isEmpty()) {
    svg.path(bad,
             {{"stroke", kBad}, {"stroke-width", kLineWidth}, {"stroke-dasharray", kBadDashes}});
  }
  if (!good.isEmpty()) svg.path(good, {{"stroke", kCourse}, {"stroke-width", kLineWidth}});
  svg.endGroup();
}

void CPlotDrawing::writeGoodPoints(CSvgWriter& svg) const {
  const double radius = qBound(1.4, spacing() * 0.45, 3.2);
  svg.beginGroup("points", {{"fill", kCourse}});
  for (const SPoint& point : mPoints)
    if (!point.isBad) svg.circle(mFrame.x(point.position), mFrame.y(point.adjustment), radius);
  svg.endGroup();
}

void CPlotDrawing::writeBadPoints(CSvgWriter& svg) const {
  const double radius = qBound(2.5, spacing() * 1.5, kMaxBadRadius);
  svg.beginGroup(
      "bad-points",
      {{"stroke", kBad}, {"stroke-width", kBadWidth}, {"stroke-linecap", QStringLiteral("round")}});
  for (const SPoint& point : mPoints) {
    if (!point.isBad) continue;
    svg.path(cross(mFrame.x(point.position), mFrame.y(point.adjustment), radius));
  }
  svg.endGroup();
}

// The numbers lead from the picture to the findings. Where points crowd, the first one has it.
void CPlotDrawing::writeBadNumbers(CSvgWriter& svg) const {
  constexpr double kClear = 16;
  if (badCount() > kMaxNumbered) return;
  svg.beginGroup("bad-numbers", {{"font-size", QStringLiteral("10")}, {"fill", kBad}});
  QVector<QPointF> places;
  for (const SPoint& point : mPoints) {
    const QPointF place(mFrame.x(point.position), mFrame.y(point.adjustment));
    const bool isCrowded = std::any_of(places.begin(), places.end(), [&](const QPointF& other) {
      return (other - place).manhattanLength() < kClear;
    });
    if (!point.isBad || isCrowded) continue;
    writeBadNumber(svg, place, point.index + 1);
    places.append(place);
  }
  svg.endGroup();
}

// On white, since lines run everywhere.
void CPlotDrawing::writeBadNumber(CSvgWriter& svg, const QPointF& place, int number) const {
  const bool isAtEdge = place.x() > mFrame.right() - 40;
  const double x = place.x() + (isAtEdge ? -7 : 7);
  const char* anchor = isAtEdge ? "end" : "start";
  const QString text = QString::number(number);
  const QString white = QStringLiteral("#ffffff");
  svg.text(x, place.y() - 5, anchor, text,
           {{"aria-hidden", QStringLiteral("true")},
            {"stroke", white},
            {"fill", white},
            {"stroke-width", QStringLiteral("3")},
            {"stroke-linejoin", QStringLiteral("round")}});
  svg.text(x, place.y() - 5, anchor, text);
}

void CPlotDrawing::writeLegend(CSvgWriter& svg) const {
  constexpr double kSample = 30;
  const double y = 556;
  double x = mFrame.left();
  const auto sampleLine = [&](const QString& colour, const QString& dashes) {
    svg.line(x, y, x + kSample, y,
             {{"stroke", colour}, {"stroke-dasharray", dashes}, {"stroke-width", kLineWidth}});
  };
  const auto label = [&](const QString& text) {
    svg.text(x + kSample + 6, y + 4, "start", text);
    x += kSample + 6 + CSvgWriter::textWidth(text, kFont) + 14;
  };
  svg.beginGroup("legend", {{"font-size", CSvgWriter::number(kFont)}, {"fill", kInk}});
  sampleLine(kCourse, QStringLiteral("none"));
  svg.circle(x + kSample / 2, y, 2.6, {{"fill", kCourse}});
  label(CCompensationPlot::tr("points and linear course"));
  if (const int bad = badCount()) {
    sampleLine(kBad, kBadDashes);
    svg.path(cross(x + kSample / 2, y, kMaxBadRadius),
             {{"stroke", kBad}, {"stroke-width", kBadWidth}});
    label(CCompensationPlot::tr("wrong points: %1").arg(bad));
  }
  if (mMinimum || mMaximum) {
    sampleLine(kInk, kRangeDashes);
    label(CCompensationPlot::tr("range"));
  }
  if (mTable.checkHeader() && (mMinimum || mMaximum)) {
    svg.rect(x, y - 6, kSample, 12, {{"fill", kHatchFill}, {"stroke", kHatch}});
    label(CCompensationPlot::tr("outside the range"));
  }
  svg.endGroup();
}

/// What the picture cannot show, or shows too quietly.
void CPlotDrawing::writeNotes(CSvgWriter& svg) const {
  QStringList notes = mFindings.ofRange();
  if (notes.isEmpty() && !(mMinimum && mMaximum))
    notes.append(CCompensationPlot::tr("the range is too large to be shown"));
  if (mTable.count() == 0) notes.append(CCompensationPlot::tr("the table has no points"));
  if (!mSkipped.isEmpty()) {
    notes.append(
        CCompensationPlot::tr("points not shown because they are not finite or too large: %1")
            .arg(listed(mSkipped)));
  }
  if (notes.isEmpty()) return;
  svg.beginGroup("notes", {{"font-size", CSvgWriter::number(kFont)}, {"fill", kBad}});
  svg.text(mFrame.left(), 578, "start",
           elided(notes.join(QStringLiteral("; ")), kFont, mFrame.width()));
  svg.endGroup();
}
