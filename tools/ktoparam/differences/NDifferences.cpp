#include "NDifferences.h"

#include "ICParameterFile.h"
#include "NValueMeaning.h"
#include "Output.h"

#include <QMap>

namespace {

QString valueCell(const QString& value) {
  return value.isNull() ? QString() : NDisplayText::shown(value);
}

/// A moved parameter has groups where others have values.
QString groupCell(const QString& path) {
  return path.isEmpty() ? "/" : NDisplayText::shown(path);
}

QStringList toCells(const SParamDifference& each, const ICParameterFile& definitions,
                    const CLabels& labels) {
  const bool isMoved = each.kind == SParamDifference::ParameterMoved;
  const bool hasSubDevice = each.subDevId != SParamDifference::kNoSubDevice;
  return {NDifferences::kindName(each.kind),
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
  return {{"kind", SParamDifference::kindText(each.kind)},
          {"hardwareId", labels.of(each.hardwareId)},
          {"subDevice", hasSubDevice ? QJsonValue(each.subDevId) : QJsonValue()},
          {"oldGroup", each.oldGroupPath},
          {"newGroup", each.newGroupPath},
          {"name", labels.of(each.name)},
          {"old", presentOrNull(each.oldValue)},
          {"new", presentOrNull(each.newValue)}};
}

}  // namespace

QString NDifferences::kindName(SParamDifference::EKind kind) {
  static const QMap<SParamDifference::EKind, const char*> kNames = {
      {SParamDifference::SubDeviceTypeChanged, QT_TRANSLATE_NOOP("ktoparam", "other type")},
      {SParamDifference::SubDeviceNameChanged, QT_TRANSLATE_NOOP("ktoparam", "other name")},
      {SParamDifference::HardwareIdAdded, QT_TRANSLATE_NOOP("ktoparam", "hardware id added")},
      {SParamDifference::HardwareIdRemoved, QT_TRANSLATE_NOOP("ktoparam", "hardware id removed")},
      {SParamDifference::SubDeviceAdded, QT_TRANSLATE_NOOP("ktoparam", "sub-device added")},
      {SParamDifference::SubDeviceRemoved, QT_TRANSLATE_NOOP("ktoparam", "sub-device removed")},
      {SParamDifference::ParameterAdded, QT_TRANSLATE_NOOP("ktoparam", "added")},
      {SParamDifference::ParameterRemoved, QT_TRANSLATE_NOOP("ktoparam", "removed")},
      {SParamDifference::ParameterMoved, QT_TRANSLATE_NOOP("ktoparam", "moved")},
      {SParamDifference::IdChanged, QT_TRANSLATE_NOOP("ktoparam", "other id")},
      {SParamDifference::ValueChanged, QT_TRANSLATE_NOOP("ktoparam", "changed")},
  };
  return Tool::tr(kNames.value(kind));
}

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
