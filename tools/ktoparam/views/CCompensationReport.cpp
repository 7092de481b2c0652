#include "CCompensationReport.h"

#include "Output.h"

namespace {

QString shown(const CParamVal& value) {
  return NDisplayText::shown(value.asStr());
}

}  // namespace

QString CCompensationReport::formatName(ICCompensationFile::EDataPointFormat format) {
  if (format == ICCompensationFile::CurrentFormat) return "current";
  return format == ICCompensationFile::OldFormat ? "old" : QString();
}

void CCompensationReport::print(COutput& out) const {
  const CCompensationHeader header = mFile.header();
  out.line(Tool::tr("Range: %1 to %2").arg(shown(header.minimum()), shown(header.maximum())));
  for (const QString& problem : mFindings.ofRange()) out.line("! " + problem);
  const int wrong = mFindings.ofPoints().size();
  const QString wrongText = wrong > 0 ? Tool::tr("; wrong: %1").arg(wrong) : QString();
  out.line(countText() + wrongText);
}

QString CCompensationReport::countText() const {
  const QString count = QString::number(mFile.count());
  const ICCompensationFile::EDataPointFormat format = mFile.detectedDataPointFormat();
  if (format == ICCompensationFile::CurrentFormat) return Tool::tr("Points: %1").arg(count);
  if (format == ICCompensationFile::OldFormat)
    return Tool::tr("Points: %1, in the old format").arg(count);
  return Tool::tr("Points: none");
}

void CCompensationReport::addTo(QJsonObject& object) const {
  object.insert("pointFormat", textOrNull(formatName(mFile.detectedDataPointFormat())));
  object.insert("minimum", mFile.header().minimum().asStr());
  object.insert("maximum", mFile.header().maximum().asStr());
  object.insert("rangeProblems", QJsonArray::fromStringList(mFindings.ofRange()));
  object.insert("count", mFile.count());
  object.insert("wrong", mFindings.ofPoints().size());
}

QList<int> CCompensationReport::indices(EPoints which) const {
  if (which == WrongPoints) return mFindings.ofPoints().keys();
  QList<int> all;
  for (int i = 0; i < mFile.count(); ++i) all.append(i);
  return all;
}

void CCompensationReport::printPoints(EPoints which, COutput& out) const {
  CTable rows({QString(), Tool::tr("NO"), Tool::tr("POSITION"), Tool::tr("ADJUSTMENT"),
               Tool::tr("PROBLEM")});
  for (const int index : indices(which)) {
    const CCompensationPoint point = mFile.point(index);
    const bool isMarked = which == AllPoints && mFindings.isBad(index);
    rows.addRow(
        {isMarked ? "!" : QString(), QString::number(index + 1), shown(point.position()),
         shown(point.adjustment()), mFindings.ofPoints().value(index).join(QLatin1String("; "))},
        isMarked);
  }
  rows.print(out, "  ");
}

QJsonArray CCompensationReport::pointsJson(EPoints which) const {
  QJsonArray points;
  for (const int index : indices(which)) {
    const CCompensationPoint point = mFile.point(index);
    const QStringList problems = mFindings.ofPoints().value(index);
    points.append(QJsonObject{{"number", index + 1},
                              {"position", point.position().asStr()},
                              {"adjustment", point.adjustment().asStr()},
                              {"problems", QJsonArray::fromStringList(problems)}});
  }
  return points;
}
