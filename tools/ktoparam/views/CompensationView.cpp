#include "CCompensationReport.h"
#include "CLoadedFile.h"
#include "COutput.h"
#include "CSubjectLines.h"
#include "JsonValues.h"
#include "SAddress.h"
#include "Views.h"

void NViews::showCompensation(const CLoadedFile& loaded, bool isJson, COutput& out) {
  const CCompensationReport table(*loaded.compensation());
  if (isJson) {
    QJsonObject object = headJson(loaded);
    table.addTo(object);
    object.insert("points", table.pointsJson(CCompensationReport::AllPoints));
    return out.json(object);
  }
  out.line(headLine(loaded));
  table.print(out);
  table.printPoints(CCompensationReport::AllPoints, out);
}

namespace {

/// What a point lacks, or has in the other format, is told in brackets, which no position has.
void addPoint(const CCompensationPoint& point, CSubjectLines& lines) {
  const CCompensationPoint::EGaps gaps = point.gaps();
  QString subject("at ");
  subject += gaps.testFlag(CCompensationPoint::NoPosition)
                 ? QStringLiteral("[no position]")
                 : SAddress::quoted(point.position().asStr());
  if (gaps.testFlag(CCompensationPoint::OtherAdjustment)) subject += " [other format]";
  if (gaps.testFlag(CCompensationPoint::NoAdjustment))
    lines.addBare(subject);
  else
    lines.add(subject, point.adjustment().asStr());
}

}  // namespace

void NViews::addCompensation(const CLoadedFile& loaded, CSubjectLines& lines) {
  const ICCompensationFile& file = *loaded.compensation();
  lines.addUnlessEmpty("format", CCompensationReport::formatName(file.detectedDataPointFormat()));
  lines.add("minimum", file.header().minimum().asStr());
  lines.add("maximum", file.header().maximum().asStr());
  for (const CCompensationPoint& point : file.allPoints()) addPoint(point, lines);
}
