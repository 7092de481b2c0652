#include "NCompensationTable.h"

#include "COutput.h"
#include "CTable.h"
#include "JsonValues.h"
#include "NDisplayText.h"
#include "Tool.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

QString shown(const CParamVal& value) {
  return NDisplayText::shown(value.asStr());
}

QString countText(const ICCompensationFile& table) {
  const QString count = QString::number(table.count());
  switch (table.detectedDataPointFormat()) {
    case ICCompensationFile::CurrentFormat:
      return Tool::tr("Points: %1").arg(count);
    case ICCompensationFile::OldFormat:
      return Tool::tr("Points: %1, in the old format").arg(count);
    default:
      return Tool::tr("Points: none");
  }
}

QList<int> indices(const ICCompensationFile& table, const CCompensationFindings& findings,
                   NCompensationTable::EPoints which) {
  if (which == NCompensationTable::WrongPoints) return findings.ofPoints().keys();
  QList<int> all;
  for (int i = 0; i < table.count(); ++i) all.append(i);
  return all;
}

}  // namespace

QString NCompensationTable::formatName(ICCompensationFile::EDataPointFormat format) {
  switch (format) {
    case ICCompensationFile::CurrentFormat:
      return QStringLiteral("current");
    case ICCompensationFile::OldFormat:
      return QStringLiteral("old");
    default:
      return {};
  }
}

void NCompensationTable::print(const ICCompensationFile& table,
                               const CCompensationFindings& findings, COutput& out) {
  const CCompensationHeader header = table.header();
  out.line(Tool::tr("Range: %1 to %2").arg(shown(header.minimum()), shown(header.maximum())));
  for (const QString& problem : findings.ofRange()) out.line(QStringLiteral("! ") + problem);
  const int wrong = findings.ofPoints().size();
  const QString wrongText = wrong > 0 ? Tool::tr("; wrong: %1").arg(wrong) : QString();
  out.line(countText(table) + wrongText);
}

void NCompensationTable::addTable(const ICCompensationFile& table,
                                  const CCompensationFindings& findings, QJsonObject& object) {
  const CCompensationHeader header = table.header();
  object.insert(QStringLiteral("pointFormat"),
                textOrNull(formatName(table.detectedDataPointFormat())));
  object.insert(QStringLiteral("minimum"), header.minimum().asStr());
  object.insert(QStringLiteral("maximum"), header.maximum().asStr());
  object.insert(QStringLiteral("rangeProblems"), QJsonArray::fromStringList(findings.ofRange()));
  object.insert(QStringLiteral("count"), table.count());
  object.insert(QStringLiteral("wrong"), findings.ofPoints().size());
}

void NCompensationTable::printPoints(const ICCompensationFile& table,
                                     const CCompensationFindings& findings, EPoints which,
                                     COutput& out) {
  CTable rows({QString(), Tool::tr("NO"), Tool::tr("POSITION"), Tool::tr("ADJUSTMENT"),
               Tool::tr("PROBLEM")});
  for (const int index : indices(table, findings, which)) {
    const CCompensationPoint point = table.point(index);
    const bool isMarked = which == AllPoints && findings.isBad(index);
    rows.addRow({isMarked ? QStringLiteral("!") : QString(), QString::number(index + 1),
                 shown(point.position()), shown(point.adjustment()),
                 findings.ofPoints().value(index).join(QLatin1String("; "))},
                isMarked);
  }
  rows.print(out, QStringLiteral("  "));
}

QJsonArray NCompensationTable::pointsJson(const ICCompensationFile& table,
                                          const CCompensationFindings& findings, EPoints which) {
  QJsonArray points;
  for (const int index : indices(table, findings, which)) {
    const CCompensationPoint point = table.point(index);
    points.append(QJsonObject{{QStringLiteral("number"), index + 1},
                              {QStringLiteral("position"), point.position().asStr()},
                              {QStringLiteral("adjustment"), point.adjustment().asStr()},
                              {QStringLiteral("problems"),
                               QJsonArray::fromStringList(findings.ofPoints().value(index))}});
  }
  return points;
}
