#include "CCompensationReport.h"
#include "CLoadedFile.h"
#include "COutput.h"
#include "CSubjectLines.h"
#include "JsonValues.h"
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

void NViews::addCompensation(const CLoadedFile& loaded, CSubjectLines& lines) {
  const ICCompensationFile& file = *loaded.compensation();
  lines.addUnlessEmpty("format", CCompensationReport::formatName(file.detectedDataPointFormat()));
  lines.add("minimum", file.header().minimum().asStr());
  lines.add("maximum", file.header().maximum().asStr());
  for (const CCompensationPoint& point : file.allPoints())
    lines.add(QStringLiteral("at %1").arg(point.position().asStr()), point.adjustment().asStr());
}
