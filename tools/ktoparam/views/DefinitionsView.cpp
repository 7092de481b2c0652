#include "CLoadedFile.h"
#include "CParamValueText.h"
#include "CReferences.h"
#include "Output.h"
#include "Views.h"

namespace {

using NParamDef::SBitValue;
using NParamDef::SCheckValues;
using NParamDef::SNamedI64Value;

QJsonValue valueOrNull(const CParamVal& value) {
  return value.isNull() ? QJsonValue() : QJsonValue(value.asStr());
}

// --- Text

QString shownOrNothing(const CParamVal& value) {
  return value.isNull() ? QString() : NDisplayText::shown(value.asStr());
}

QString limitCell(const CParamVal& limit, const QList<unsigned int>& ids, CReferences& references) {
  QStringList parts;
  if (!limit.isEmpty()) parts.append(NDisplayText::shown(limit.asStr()));
  for (const QString& name : references.names(ids)) parts.append(NDisplayText::shown(name));
  return parts.join(QLatin1String(", "));
}

QString choicesCell(const CParamDefItem& definition, const CLabels& labels) {
  QStringList parts;
  for (const SNamedI64Value& each : CParamValueText::choices(definition, CParamValueText::English))
    parts.append(QStringLiteral("%1=%2").arg(QString::number(each.value), labels.shown(each.name)));
  if (definition.hasEnums() && definition.isEnumEditable()) parts.append("…");
  for (const SBitValue& bit : definition.bitset()) {
    const QString place = bit.invert ? Tool::tr("not bit %1") : Tool::tr("bit %1");
    parts.append(QStringLiteral("%1=%2").arg(place.arg(bit.pos), labels.shown(bit.name)));
  }
  return parts.join(QLatin1String(", "));
}

QStringList toCells(const CParamDefItem& definition, CReferences& references) {
  const CLabels& labels = references.labels();
  return {QString::number(definition.id()),
          labels.shown(definition.name()),
          definition.typeStr(),
          NDisplayText::shownOrNothing(references.unit(definition)),
          shownOrNothing(definition.defVal()),
          limitCell(definition.minVal(), definition.minIds(), references),
          limitCell(definition.maxVal(), definition.maxIds(), references),
          choicesCell(definition, labels)};
}

// --- JSON

QJsonArray toJson(const QList<SNamedI64Value>& choices, const CLabels& labels) {
  QJsonArray array;
  for (const SNamedI64Value& each : choices) {
    array.append(
        QJsonObject{{"value", QString::number(each.value)}, {"name", labels.of(each.name)}});
  }
  return array;
}

QJsonValue toJson(const SCheckValues& states) {
  if (!states.isValid()) return {};
  const QString undefined = states.hasUndefined ? QString::number(states.undefined) : QString();
  return QJsonObject{{"checked", QString::number(states.checked)},
                     {"unchecked", QString::number(states.unchecked)},
                     {"undefined", textOrNull(undefined)}};
}

QJsonArray toJson(const QList<SBitValue>& bits, const CLabels& labels) {
  QJsonArray array;
  for (const SBitValue& bit : bits) {
    array.append(QJsonObject{
        {"position", bit.pos}, {"name", labels.of(bit.name)}, {"inverted", bit.invert}});
  }
  return array;
}

QJsonValue visibility(const CParamDefItem& definition, CReferences& references) {
  if (!definition.hasVisibleValues()) return {};
  QJsonArray values;
  for (const qint64 value : definition.visibleVals()) values.append(QString::number(value));
  return QJsonObject{{"parameter", references.name(definition.visibleId())}, {"values", values}};
}

}  // namespace

QJsonObject NViews::definitionJson(const CParamDefItem& definition, CReferences& references) {
  const auto names = [&references](const QList<unsigned int>& ids) {
    return QJsonArray::fromStringList(references.names(ids));
  };
  const CLabels& labels = references.labels();
  return {
      {"id", qint64(definition.id())},
      {"name", labels.of(definition.name())},
      {"type", definition.typeStr()},
      {"unitId", definition.unitId() == 0 ? QJsonValue() : QJsonValue(qint64(definition.unitId()))},
      {"unit", textOrNull(references.unit(definition))},
      {"hint", labels.of(definition.hint())},
      {"default", valueOrNull(definition.defVal())},
      {"minimum", valueOrNull(definition.minVal())},
      {"maximum", valueOrNull(definition.maxVal())},
      {"minimumParameters", names(definition.minIds())},
      {"maximumParameters", names(definition.maxIds())},
      {"choices", toJson(definition.enums(), labels)},
      {"otherValuesAllowed", definition.isEnumEditable()},
      {"radios", toJson(definition.radios(), labels)},
      {"check", toJson(definition.checkVals())},
      {"bits", toJson(definition.bitset(), labels)},
      {"visibleWhen", visibility(definition, references)}};
}

void NViews::showDefinitions(const CLoadedFile& loaded, bool isJson, COutput& out) {
  const ICParameterFile& file = loaded.file();
  CReferences references(file, out.labels());
  if (isJson) {
    QJsonArray array;
    for (const QString& name : file.defNames())
      array.append(definitionJson(file.paramDef(name), references));
    QJsonObject object = headJson(loaded);
    object.insert("definitions", array);
    return out.json(object);
  }
  CTable table({Tool::tr("ID"), Tool::tr("NAME"), Tool::tr("TYPE"), Tool::tr("UNIT"),
                Tool::tr("DEFAULT"), Tool::tr("MIN"), Tool::tr("MAX"), Tool::tr("CHOICES")});
  for (const QString& name : file.defNames())
    table.addRow(toCells(file.paramDef(name), references));
  out.line(headLine(loaded));
  table.print(out);
}
