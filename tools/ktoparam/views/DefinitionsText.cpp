#include "CLabels.h"
#include "CLoadedFile.h"
#include "CParamDefItem.h"
#include "CParamValueText.h"
#include "CSubjectLines.h"
#include "Views.h"

namespace {

template <class Number>
QString numbers(const QList<Number>& list) {
  QStringList texts;
  for (const Number number : list) texts.append(QString::number(number));
  return texts.join(QLatin1Char(' '));
}

void addValue(const QString& property, const CParamVal& value, CSubjectLines& lines) {
  if (!value.isNull()) lines.add(property, value.asStr());
}

void addChoices(const QString& kind, const QList<NParamDef::SNamedI64Value>& choices,
                CSubjectLines& lines) {
  for (const NParamDef::SNamedI64Value& each : choices)
    lines.add(QStringLiteral("%1 %2").arg(kind, QString::number(each.value)),
              lines.labels().of(each.name));
}

void addBits(const QList<NParamDef::SBitValue>& bits, CSubjectLines& lines) {
  for (const NParamDef::SBitValue& bit : bits) {
    const QString kind = bit.invert ? "not bit %1" : "bit %1";
    lines.add(kind.arg(bit.pos), lines.labels().of(bit.name));
  }
}

void addDefinition(const CParamDefItem& definition, const CSubjectLines& all) {
  CSubjectLines lines = all.of(all.labels().of(definition.name()));
  if (definition.valid()) lines.add("id", QString::number(definition.id()));
  lines.add("type", definition.typeStr());
  if (definition.unitId() != 0) lines.add("unit", QString::number(definition.unitId()));
  lines.addUnlessEmpty("hint", lines.labels().of(definition.hint()));
  addValue("default", definition.defVal(), lines);
  addValue("minimum", definition.minVal(), lines);
  addValue("maximum", definition.maxVal(), lines);
  lines.addUnlessEmpty("minimum parameters", numbers(definition.minIds()));
  lines.addUnlessEmpty("maximum parameters", numbers(definition.maxIds()));
  addChoices("choice", definition.enums(), lines);
  if (definition.hasEnums() && definition.isEnumEditable()) lines.add("other values", "allowed");
  addChoices("radio", definition.radios(), lines);
  for (const auto& state : CParamValueText::states(definition, CParamValueText::English))
    lines.add(state.name, QString::number(state.value));
  addBits(definition.bitset(), lines);
  if (definition.hasVisibleValues()) {
    lines.add(QStringLiteral("visible when %1").arg(definition.visibleId()),
              numbers(definition.visibleVals()));
  }
}

}  // namespace

void NViews::addDefinitions(const CLoadedFile& loaded, const CSubjectLines& lines) {
  for (const QString& name : loaded.file().defNames())
    addDefinition(loaded.file().paramDef(name), lines);
}
