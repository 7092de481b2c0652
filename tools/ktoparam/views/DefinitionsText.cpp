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

/// The lines of one definition; each begins with its name.
class CLines {
 public:
  CLines(const QString& name, CSubjectLines& lines)
      : mName(lines.labels().of(name)), mLines(lines) {}

  void add(const QString& property, const QString& value) {
    mLines.add(mName + QLatin1Char(' ') + property, value);
  }
  void addLabel(const QString& property, const QString& label) {
    add(property, mLines.labels().of(label));
  }
  void addUnlessEmpty(const char* property, const QString& value) {
    if (!value.isEmpty()) add(QString::fromLatin1(property), value);
  }
  void addValue(const char* property, const CParamVal& value) {
    if (!value.isNull()) add(QString::fromLatin1(property), value.asStr());
  }
  void addChoices(const QString& kind, const QList<NParamDef::SNamedI64Value>& choices) {
    for (const NParamDef::SNamedI64Value& each : choices)
      addLabel(QStringLiteral("%1 %2").arg(kind, QString::number(each.value)), each.name);
  }

 private:
  const QString mName;
  CSubjectLines& mLines;
};

void addStates(const QList<NParamDef::SNamedI64Value>& states, CLines& lines) {
  for (const NParamDef::SNamedI64Value& each : states)
    lines.add(each.name, QString::number(each.value));
}

void addBits(const QList<NParamDef::SBitValue>& bits, CLines& lines) {
  for (const NParamDef::SBitValue& bit : bits) {
    const QString kind = bit.invert ? QStringLiteral("not bit %1") : QStringLiteral("bit %1");
    lines.addLabel(kind.arg(bit.pos), bit.name);
  }
}

void addDefinition(const CParamDefItem& definition, CSubjectLines& out) {
  CLines lines(definition.name(), out);
  if (definition.valid()) lines.add(QStringLiteral("id"), QString::number(definition.id()));
  lines.add(QStringLiteral("type"), definition.typeStr());
  if (definition.unitId() != 0)
    lines.add(QStringLiteral("unit"), QString::number(definition.unitId()));
  if (!definition.hint().isEmpty()) lines.addLabel(QStringLiteral("hint"), definition.hint());
  lines.addValue("default", definition.defVal());
  lines.addValue("minimum", definition.minVal());
  lines.addValue("maximum", definition.maxVal());
  lines.addUnlessEmpty("minimum parameters", numbers(definition.minIds()));
  lines.addUnlessEmpty("maximum parameters", numbers(definition.maxIds()));
  lines.addChoices(QStringLiteral("choice"), definition.enums());
  if (definition.hasEnums() && definition.isEnumEditable())
    lines.add(QStringLiteral("other values"), QStringLiteral("allowed"));
  lines.addChoices(QStringLiteral("radio"), definition.radios());
  addStates(CParamValueText::states(definition, CParamValueText::English), lines);
  addBits(definition.bitset(), lines);
  if (definition.hasVisibleValues()) {
    lines.add(QStringLiteral("visible when %1").arg(definition.visibleId()),
              numbers(definition.visibleVals()));
  }
}

}  // namespace

void NViews::addDefinitions(const CLoadedFile& loaded, CSubjectLines& lines) {
  for (const QString& name : loaded.file().defNames())
    addDefinition(loaded.file().paramDef(name), lines);
}
