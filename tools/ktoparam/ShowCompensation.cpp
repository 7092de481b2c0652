#include "CInvocation.h"
#include "COutput.h"
#include "CTable.h"
#include "CTableFindings.h"
#include "CompensationTexts.h"
#include "DisplayText.h"
#include "OpenedFile.h"
#include "Show.h"
#include "Tool.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

Show::SHead headOf(const ICCompensationFile& table) {
  const CXMLMetaData data = table.metaData();
  return {data.date(), data.author(), data.comment()};
}

void printPoints(const ICCompensationFile& table, const CTableFindings& findings, COutput& out) {
  CTable rows({QString(), Tool::tr("NO"), Tool::tr("POSITION"), Tool::tr("ADJUSTMENT"),
               Tool::tr("PROBLEM")});
  for (int i = 0; i < table.count(); ++i) {
    const bool isBad = findings.isBad(i);
    rows.addRow(QStringList(isBad ? QStringLiteral("!") : QString()) +
                    CompensationTexts::pointCells(table, findings, i),
                isBad);
  }
  if (!rows.isEmpty()) rows.print(out, QStringLiteral("  "));
}

}  // namespace

EExitStatus Show::compensation(const CInvocation& invocation, COutput& out) {
  const QString fileName = invocation.argument(0);
  const SOpenedFile<ICCompensationFile> opened = OpenedFile::compensation(fileName, out);
  if (!opened.file) return ExitFile;
  const ICCompensationFile& table = *opened.file;
  const CTableFindings findings(table);
  const SHead head = headOf(table);
  if (invocation.wantsJson()) {
    QJsonObject object = headJson(fileName, opened.info, head);
    CompensationTexts::addTable(table, findings, object);
    QJsonArray points;
    for (int i = 0; i < table.count(); ++i)
      points.append(CompensationTexts::pointJson(table, findings, i));
    object.insert(QStringLiteral("points"), points);
    out.json(object);
    return ExitDone;
  }
  out.line(headLine(opened.info, head));
  CompensationTexts::printTable(table, findings, out);
  printPoints(table, findings, out);
  return ExitDone;
}
