#include "CLoadedFile.h"
#include "COutput.h"
#include "CParamValueText.h"
#include "CTable.h"
#include "JsonValues.h"
#include "NDisplayText.h"
#include "SValueView.h"
#include "Tool.h"
#include "Views.h"

#include <QJsonArray>
#include <QJsonObject>

#include <map>

namespace {

using NParamDef::SBitValue;
using NParamDef::SCheckValues;
using NParamDef::SNamedI64Value;

constexpr quint8 kNoSubDevice = 0;  // there are no values whose units could differ

QJsonValue valueOrNull(const CParamVal& value) {
  return value.isNull() ? QJsonValue() : QJsonValue(value.asStr());
}

/// How definitions are called that others refer to. Each is looked up once, since one may be the
/// limit of thousands, and its name long.
class CReferences {
 public:
  CReferences(const ICParameterFile& file, const CLabels& labels)
      : mFile(file), mLabels(labels), mViews(file, labels) {}

  const CLabels& labels() const { return mLabels; }

  QString name(unsigned int id) {
    const auto [known, isNew] = mNames.try_emplace(id);
    if (isNew) {
      const CParamDefItem definition = mFile.paramDef(id);
      known->second = definition.valid() ? mLabels.of(definition.name()) : QString::number(id);
    }
    return known->second;
  }
  QStringList names(const QList<unsigned int>& ids) {
    QStringList names;
    for (const unsigned int id : ids) names.append(name(id));
    return names;
  }
  QString unit(const CParamDefItem& definition) { return mViews.unit(definition, kNoSubDevice); }

 private:
  const ICParameterFile& mFile;
  const CLabels& mLabels;
  CValueViews mViews;
  std::map<unsigned int, QString> mNames;
};

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

QString named(qint64 value, const QString& name) {
  return QStringLiteral("%1=%2").arg(QString::number(value), NDisplayText::shown(name));
}

QString named(const SNamedI64Value& choice, const CLabels& labels) {
  return named(choice.value, labels.of(choice.name));
}

QString choicesCell(const CParamDefItem& definition, const CLabels& labels) {
  QStringList parts;
  for (const SNamedI64Value& each : CParamValueText::choices(definition, CParamValueText::English))
    parts.append(named(each, labels));
  if (definition.hasEnums() && definition.isEnumEditable()) parts.append(QStringLiteral("…"));
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
    array.append(QJsonObject{{QStringLiteral("value"), QString::number(each.value)},
                             {QStringLiteral("name"), labels.of(each.name)}});
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

QJsonArray toJson(const QList<SBitValue>& bits, const CLabels& labels) {
  QJsonArray array;
  for (const SBitValue& bit : bits) {
    array.append(QJsonObject{{QStringLiteral("position"), bit.pos},
                             {QStringLiteral("name"), labels.of(bit.name)},
                             {QStringLiteral("inverted"), bit.invert}});
  }
  return array;
}

QJsonValue visibility(const CParamDefItem& definition, CReferences& references) {
  if (!definition.hasVisibleValues()) return {};
  QJsonArray values;
  for (const qint64 value : definition.visibleVals()) values.append(QString::number(value));
  return QJsonObject{{QStringLiteral("parameter"), references.name(definition.visibleId())},
                     {QStringLiteral("values"), values}};
}

QJsonObject toJson(const CParamDefItem& definition, CReferences& references) {
  const auto names = [&references](const QList<unsigned int>& ids) {
    return QJsonArray::fromStringList(references.names(ids));
  };
  const CLabels& labels = references.labels();
  return {{QStringLiteral("id"), qint64(definition.id())},
          {QStringLiteral("name"), labels.of(definition.name())},
          {QStringLiteral("type"), definition.typeStr()},
          {QStringLiteral("unitId"),
           definition.unitId() == 0 ? QJsonValue() : QJsonValue(qint64(definition.unitId()))},
          {QStringLiteral("unit"), textOrNull(references.unit(definition))},
          {QStringLiteral("hint"), labels.of(definition.hint())},
          {QStringLiteral("default"), valueOrNull(definition.defVal())},
          {QStringLiteral("minimum"), valueOrNull(definition.minVal())},
          {QStringLiteral("maximum"), valueOrNull(definition.maxVal())},
          {QStringLiteral("minimumParameters"), names(definition.minIds())},
          {QStringLiteral("maximumParameters"), names(definition.maxIds())},
          {QStringLiteral("choices"), toJson(definition.enums(), labels)},
          {QStringLiteral("otherValuesAllowed"), definition.isEnumEditable()},
          {QStringLiteral("radios"), toJson(definition.radios(), labels)},
          {QStringLiteral("check"), toJson(definition.checkVals())},
          {QStringLiteral("bits"), toJson(definition.bitset(), labels)},
          {QStringLiteral("visibleWhen"), visibility(definition, references)}};
}

}  // namespace

void NViews::showDefinitions(const CLoadedFile& loaded, bool isJson, COutput& out) {
  const ICParameterFile& file = loaded.file();
  CReferences references(file, out.labels());
  if (isJson) {
    QJsonArray array;
    for (const QString& name : file.defNames())
      array.append(toJson(file.paramDef(name), references));
    QJsonObject object = headJson(loaded);
    object.insert(QStringLiteral("definitions"), array);
    return out.json(object);
  }
  CTable table({Tool::tr("ID"), Tool::tr("NAME"), Tool::tr("TYPE"), Tool::tr("UNIT"),
                Tool::tr("DEFAULT"), Tool::tr("MIN"), Tool::tr("MAX"), Tool::tr("CHOICES")});
  for (const QString& name : file.defNames())
    table.addRow(toCells(file.paramDef(name), references));
  out.line(headLine(loaded));
  table.print(out);
}
