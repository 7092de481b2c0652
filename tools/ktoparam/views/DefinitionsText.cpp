#include "CLabels.h"
#include "CLoadedFile.h"
#include "CParamDefItem.h"
#include "CReferences.h"
#include "CSubjectLines.h"
#include "NShortText.h"
#include "SAddress.h"
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

/// The definition that an id means is called by its name, which no other has: where definitions get
/// other ids, only the lines of ids change.
void addReference(const QString& property, quint32 id, CReferences& references,
                  CSubjectLines& lines) {
  const std::optional<QString> name = references.find(id);
  if (name)
    lines.add(property, *name);
  else
    lines.add(property + QLatin1String(" id"), QString::number(id));
}

void addLimits(const CParamDefItem& definition, CReferences& references, CSubjectLines& lines) {
  addValue("minimum", definition.minVal(), lines);
  addValue("maximum", definition.maxVal(), lines);
  for (const quint32 id : definition.minIds())
    addReference("minimum parameter", id, references, lines);
  for (const quint32 id : definition.maxIds())
    addReference("maximum parameter", id, references, lines);
}

void addCheck(const NParamDef::SCheckValues& states, CSubjectLines& lines) {
  if (states == NParamDef::SCheckValues()) return;
  lines.add("checked", QString::number(states.checked));
  lines.add("unchecked", QString::number(states.unchecked));
  if (states.hasUndefined) lines.add("undefined", QString::number(states.undefined));
}

void addVisibility(const CParamDefItem& definition, CReferences& references, CSubjectLines& lines) {
  if (definition.visibleId() != NParamDef::NO_ID)
    addReference("visible values of", definition.visibleId(), references, lines);
  lines.addUnlessEmpty("visible values", numbers(definition.visibleVals()));
}

CSubjectLines linesOf(const CParamDefItem& definition, const CSubjectLines& all) {
  return all.of(NShortText::of(SAddress::quoted(definition.name())));
}

void addDefinition(const CParamDefItem& definition, CReferences& references,
                   const CSubjectLines& all) {
  CSubjectLines lines = linesOf(definition, all);
  lines.add("type", definition.typeStr());
  if (definition.unitId() != 0) addReference("unit", definition.unitId(), references, lines);
  lines.addUnlessEmpty("hint", lines.labels().of(definition.hint()));
  addValue("default", definition.defVal(), lines);
  addLimits(definition, references, lines);
  addChoices("choice", definition.enums(), lines);
  if (definition.isEnumEditable()) lines.add("other values", "allowed");
  addChoices("radio", definition.radios(), lines);
  addCheck(definition.checkVals(), lines);
  addBits(definition.bitset(), lines);
  addVisibility(definition, references, lines);
}

}  // namespace

// Ids come last, as those of values do, and do not tell the order.
void NViews::addDefinitions(const CLoadedFile& loaded, const CSubjectLines& lines) {
  const ICParameterFile& file = loaded.file();
  QStringList names = file.defNames();
  names.sort();
  CReferences references(file, lines.labels());
  for (const QString& name : qAsConst(names)) addDefinition(file.paramDef(name), references, lines);
  for (const QString& name : qAsConst(names)) {
    const CParamDefItem definition = file.paramDef(name);
    if (definition.valid()) linesOf(definition, lines).add("id", QString::number(definition.id()));
  }
}
