#include "CLoadedFile.h"
#include "COutput.h"
#include "CSubjectLines.h"
#include "CTable.h"
#include "CompensationTable.h"
#include "Tool.h"
#include "Views.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

void printPoints(const ICCompensationFile& table, const CCompensationFindings& findings,
                 COutput& out) {
  CTable rows({QString(), Tool::tr("NO"), Tool::tr("POSITION"), Tool::tr("ADJUSTMENT"),
               Tool::tr("PROBLEM")});
  for (int i = 0; i < table.count(); ++i) {
    const bool isBad = findings.isBad(i);
    rows.addRow(QStringList(isBad ? QStringLiteral("!") : QString()) +
                    NCompensationTable::pointCells(table, findings, i),
                isBad);
  }
  rows.print(out, QStringLiteral("  "));
}

}  // namespace

void NViews::showCompensation(const CLoadedFile& loaded, bool isJson, COutput& out) {
  const ICCompensationFile& table = *loaded.compensation();
  const CCompensationFindings findings(table);
  if (isJson) {
    QJsonObject object = headJson(loaded);
    NCompensationTable::addTable(table, findings, object);
    QJsonArray points;
    for (int i = 0; i < table.count(); ++i)
      points.append(NCompensationTable::pointJson(table, findings, i));
    object.insert(QStringLiteral("points"), points);
    return out.json(object);
  }
  out.line(headLine(loaded));
  NCompensationTable::print(table, findings, out);
  printPoints(table, findings, out);
}

void NViews::addCompensation(const CLoadedFile& loaded, CSubjectLines& lines) {
  const ICCompensationFile& table = *loaded.compensation();
  lines.addUnlessEmpty(QStringLiteral("format"),
                       NCompensationTable::formatName(table.detectedDataPointFormat()));
  lines.add(QStringLiteral("minimum"), table.header().minimum().asStr());
  lines.add(QStringLiteral("maximum"), table.header().maximum().asStr());
  for (const CCompensationPoint& point : table.allPoints())
    lines.add(QStringLiteral("at %1").arg(point.position().asStr()), point.adjustment().asStr());
}
