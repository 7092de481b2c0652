#include "CInvocation.h"
#include "CLoadedFile.h"
#include "COutput.h"
#include "CParamValueText.h"
#include "CTable.h"
#include "DisplayText.h"
#include "JsonTexts.h"
#include "Show.h"
#include "Tool.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

using NParamDef::SBitValue;
using NParamDef::SCheckValues;
using NParamDef::SNamedI64Value;

constexpr quint8 kNoSubDevice = 0;  // there are no values whose units could differ

QJsonValue valueOrNull(const CParamVal& value) {
  return value.isNull() ? QJsonValue() : QJsonValue(value.asStr());
}

QString limitName(const ICParameterFile& file, unsigned int id) {
  const CParamDefItem definition = file.paramDef(id);
  return definition.valid() ? definition.name() : QString::number(id);
}

QStringList limitNames(const ICParameterFile& file, const QList<unsigned int>& ids) {
  QStringList names;
  for (const unsigned int id : ids) names.append(limitName(file, id));
  return names;
}

// --- Text

QString shownOrNothing(const CParamVal& value) {
  return value.isNull() ? QString() : DisplayText::shown(value.asStr());
}

QString limitCell(const ICParameterFile& file, const CParamVal& limit,
                  const QList<unsigned int>& ids) {
  QStringList parts;
  if (!limit.isEmpty()) parts.append(DisplayText::shown(limit.asStr()));
  for (const QString& name : limitNames(file, ids)) parts.append(DisplayText::shown(name));
  return parts.join(QLatin1String(", "));
}

QString named(qint64 value, const QString& name) {
  return QStringLiteral("%1=%2").arg(QString::number(value), DisplayText::shown(name));
}

QString choicesCell(const CParamDefItem& definition) {
  QStringList parts;
  for (const SNamedI64Value& each :
       CParamValueText::choices(definition, CParamValueText::English)) {
    parts.append(named(each.value, each.name));
  }
  if (definition.hasEnums() && definition.isEnumEditable()) parts.append(QStringLiteral("…"));
  for (const SBitValue& bit : definition.bitset()) {
    const QString place = bit.invert ? Tool::tr("not bit %1") : Tool::tr("bit %1");
    parts.append(QStringLiteral("%1=%2").arg(place.arg(bit.pos), DisplayText::shown(bit.name)));
  }
  return parts.join(QLatin1String(", "));
}

QStringList toCells(const ICParameterFile& file, const CParamDefItem& definition) {
  const QString unit = CParamValueText::unitName(file, definition, kNoSubDevice);
  return {QString::number(definition.id()),
          DisplayText::shown(definition.name()),
          definition.typeStr(),
          DisplayText::shownOrNothing(unit),
          shownOrNothing(definition.defVal()),
          limitCell(file, definition.minVal(), definition.minIds()),
          limitCell(file, definition.maxVal(), definition.maxIds()),
          choicesCell(definition)};
}

// --- JSON

QJsonArray toJson(const QList<SNamedI64Value>& choices) {
  QJsonArray array;
  for (const SNamedI64Value& each : choices) {
    array.append(QJsonObject{{QStringLiteral("value"), QString::number(each.value)},
                             {QStringLiteral("name"), each.name}});
  }
  return array;
}

QJsonValue toJson(const SCheckValues& states) {
  if (!states.isValid()) return {};
  const QString undefined = states.hasUndefined ? QString::number(states.undefined) : QString();
  return QJsonObject{{QStringLiteral("checked"), QString::number(states.checked)},
                     {QStringLiteral("unchecked"), QString::number(states.unchecked)},
                     {QStringLiteral("undefined"), textOrNull(undefined)}};
}

QJsonArray toJson(const QList<SBitValue>& bits) {
  QJsonArray array;
  for (const SBitValue& bit : bits) {
    array.append(QJsonObject{{QStringLiteral("position"), bit.pos},
                             {QStringLiteral("name"), bit.name},
                             {QStringLiteral("inverted"), bit.invert}});
  }
  return array;
}

QJsonValue visibility(const ICParameterFile& file, const CParamDefItem& definition) {
  if (!definition.hasVisibleValues()) return {};
  QJsonArray values;
  for (const qint64 value : definition.visibleVals()) values.append(QString::number(value));
  return QJsonObject{{QStringLiteral("parameter"), limitName(file, definition.visibleId())},
                     {QStringLiteral("values"), values}};
}

QJsonObject toJson(const ICParameterFile& file, const CParamDefItem& definition) {
  const auto names = [&file](const QList<unsigned int>& ids) {
    return QJsonArray::fromStringList(limitNames(file, ids));
  };
  const QString unit = CParamValueText::unitName(file, definition, kNoSubDevice);
  return {{QStringLiteral("id"), qint64(definition.id())},
          {QStringLiteral("name"), definition.name()},
          {QStringLiteral("type"), definition.typeStr()},
          {QStringLiteral("unitId"),
           definition.unitId() == 0 ? QJsonValue() : QJsonValue(qint64(definition.unitId()))},
          {QStringLiteral("unit"), textOrNull(unit)},
          {QStringLiteral("hint"), definition.hint()},
          {QStringLiteral("default"), valueOrNull(definition.defVal())},
          {QStringLiteral("minimum"), valueOrNull(definition.minVal())},
          {QStringLiteral("maximum"), valueOrNull(definition.maxVal())},
          {QStringLiteral("minimumParameters"), names(definition.minIds())},
          {QStringLiteral("maximumParameters"), names(definition.maxIds())},
          {QStringLiteral("choices"), toJson(definition.enums())},
          {QStringLiteral("otherValuesAllowed"), definition.isEnumEditable()},
          {QStringLiteral("radios"), toJson(definition.radios())},
          {QStringLiteral("check"), toJson(definition.checkVals())},
          {QStringLiteral("bits"), toJson(definition.bitset())},
          {QStringLiteral("visibleWhen"), visibility(file, definition)}};
}

}  // namespace

EExitStatus Show::definitions(const CInvocation& invocation, COutput& out) {
  CLoadedFile loaded(out);
  if (!loaded.loadDefinitions(invocation.argument(0))) return ExitFile;

  const ICParameterFile& file = loaded.file();
  const SHead head{file.defDate(), file.defAuthor(), file.defComment()};
  if (invocation.wantsJson()) {
    QJsonArray array;
    for (const QString& name : file.defNames()) array.append(toJson(file, file.paramDef(name)));
    QJsonObject object = headJson(loaded.fileName(), loaded.info(), head);
    object.insert(QStringLiteral("definitions"), array);
    out.json(object);
    return ExitDone;
  }
  CTable table({Tool::tr("ID"), Tool::tr("NAME"), Tool::tr("TYPE"), Tool::tr("UNIT"),
                Tool::tr("DEFAULT"), Tool::tr("MIN"), Tool::tr("MAX"), Tool::tr("CHOICES")});
  for (const QString& name : file.defNames()) table.addRow(toCells(file, file.paramDef(name)));
  out.line(headLine(loaded.info(), head));
  if (!table.isEmpty()) table.print(out);
  return ExitDone;
}
