#include "CLoadedFile.h"
#include "COutput.h"
#include "CSubjectLines.h"
#include "NCompensationTable.h"
#include "Views.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace NCompensationTable;

void NViews::showCompensation(const CLoadedFile& loaded, bool isJson, COutput& out) {
  const ICCompensationFile& table = *loaded.compensation();
  const CCompensationFindings findings(table);
  if (isJson) {
    QJsonObject object = headJson(loaded);
    addTable(table, findings, object);
    object.insert(QStringLiteral("points"), pointsJson(table, findings, AllPoints));
    return out.json(object);
  }
  out.line(headLine(loaded));
  print(table, findings, out);
  printPoints(table, findings, AllPoints, out);
}

void NViews::addCompensation(const CLoadedFile& loaded, CSubjectLines& lines) {
  const ICCompensationFile& table = *loaded.compensation();
  lines.addUnlessEmpty(QStringLiteral("format"), formatName(table.detectedDataPointFormat()));
  lines.add(QStringLiteral("minimum"), table.header().minimum().asStr());
  lines.add(QStringLiteral("maximum"), table.header().maximum().asStr());
  for (const CCompensationPoint& point : table.allPoints())
    lines.add(QStringLiteral("at %1").arg(point.position().asStr()), point.adjustment().asStr());
}
