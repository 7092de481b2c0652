#include "NDifferences.h"

#include "COutput.h"
#include "CTable.h"
#include "ICParameterFile.h"
#include "JsonValues.h"
#include "NDisplayText.h"
#include "NValueMeaning.h"
#include "Tool.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

QString kindName(SParamDifference::EKind kind) {
  switch (kind) {
    case SParamDifference::SubDeviceTypeChanged:
      return Tool::tr("other type");
    case SParamDifference::SubDeviceNameChanged:
      return Tool::tr("other name");
    case SParamDifference::HardwareIdAdded:
      return Tool::tr("hardware id added");
    case SParamDifference::HardwareIdRemoved:
      return Tool::tr("hardware id removed");
    case SParamDifference::SubDeviceAdded:
      return Tool::tr("sub-device added");
    case SParamDifference::SubDeviceRemoved:
      return Tool::tr("sub-device removed");
    case SParamDifference::ParameterAdded:
      return Tool::tr("added");
    case SParamDifference::ParameterRemoved:
      return Tool::tr("removed");
    case SParamDifference::ParameterMoved:
      return Tool::tr("moved");
    case SParamDifference::IdChanged:
      return Tool::tr("other id");
    case SParamDifference::ValueChanged:
      break;
  }
  return Tool::tr("changed");
}

QString valueCell(const QString& value) {
  return value.isNull() ? QString() : NDisplayText::shown(value);
}

/// A moved parameter has groups where others have values.
QString groupCell(const QString& path) {
  return path.isEmpty() ? QStringLiteral("/") : NDisplayText::shown(path);
}

QStringList toCells(const SParamDifference& each, const ICParameterFile& definitions,
                    const CLabels& labels) {
  const bool isMoved = each.kind == SParamDifference::ParameterMoved;
  const bool hasSubDevice = each.subDevId != SParamDifference::kNoSubDevice;
  return {kindName(each.kind),
          labels.shownOrNothing(each.hardwareId),
          hasSubDevice ? QString::number(each.subDevId) : QString(),
          labels.shownOrNothing(each.name),
          isMoved ? groupCell(each.oldGroupPath) : valueCell(each.oldValue),
          isMoved ? groupCell(each.newGroupPath) : valueCell(each.newValue),
          each.kind == SParamDifference::ValueChanged
              ? NValueMeaning::change(definitions.paramDef(each.name), each.oldValue, each.newValue,
                                      labels)
              : QString()};
}

QJsonObject toJson(const SParamDifference& each, const CLabels& labels) {
  const bool hasSubDevice = each.subDevId != SParamDifference::kNoSubDevice;
  return {{QStringLiteral("kind"), SParamDifference::kindText(each.kind)},
          {QStringLiteral("hardwareId"), labels.of(each.hardwareId)},
          {QStringLiteral("subDevice"), hasSubDevice ? QJsonValue(each.subDevId) : QJsonValue()},
          {QStringLiteral("oldGroup"), each.oldGroupPath},
          {QStringLiteral("newGroup"), each.newGroupPath},
          {QStringLiteral("name"), labels.of(each.name)},
          {QStringLiteral("old"), presentOrNull(each.oldValue)},
          {QStringLiteral("new"), presentOrNull(each.newValue)}};
}

}  // namespace

void NDifferences::print(const CParamDifferences& differences, const ICParameterFile& definitions,
                         COutput& out) {
  CTable table({Tool::tr("CHANGE"), Tool::tr("HARDWARE ID"), Tool::tr("SUB-DEVICE"),
                Tool::tr("NAME"), Tool::tr("OLD"), Tool::tr("NEW"), Tool::tr("MEANING")});
  for (const SParamDifference& each : differences)
    table.addRow(toCells(each, definitions, out.labels()));
  table.print(out);
}

QJsonArray NDifferences::toJson(const CParamDifferences& differences, const CLabels& labels) {
  QJsonArray array;
  for (const SParamDifference& each : differences) array.append(::toJson(each, labels));
  return array;
}
