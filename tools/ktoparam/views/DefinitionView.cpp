#include "CDefinitionUses.h"
#include "CLoadedFile.h"
#include "CParamValueText.h"
#include "CReferences.h"
#include "NDefinitionLookup.h"
#include "NValueMeaning.h"
#include "Output.h"
#include "Views.h"
#include "Wrapped.h"

#include <set>
#include <utility>

namespace {

constexpr int kMostNames = 100;  // of those that refer to one definition, as text
const QLatin1String kComma(", ");

/// Labels on the left, and what they stand for on the right, wrapped.
class CBlock {
 public:
  void add(const QString& label, const QStringList& texts) {
    if (!texts.isEmpty()) mEntries.append({label, texts});
  }
  /// Nothing for an empty text.
  void add(const QString& label, const QString& text) {
    if (!text.isEmpty()) add(label, QStringList(text));
  }

  void print(const QString& title, COutput& out) const {
    int widest = 0;
    for (const auto& entry : mEntries) widest = qMax(widest, NDisplayText::width(entry.first));
    out.line(out.styled(title, COutput::Bold));
    for (const auto& entry : mEntries) {
      const int missing = widest - NDisplayText::width(entry.first);
      QString lead = "  " + entry.first + QString(missing + 2, QLatin1Char(' '));
      const QString indent(widest + 4, QLatin1Char(' '));
      for (const QString& text : entry.second) {
        for (const QString& line : wrapped(text, out.columns() - indent.size())) {
          out.line(withoutLastBlanks(lead + line));
          lead = indent;
        }
      }
    }
  }

 private:
  QVector<QPair<QString, QStringList>> mEntries;
};

/// The texts of one definition.
class CDefinitionText {
 public:
  CDefinitionText(const CParamDefItem& definition, CReferences& references)
      : mDefinition(definition), mReferences(references), mLabels(references.labels()) {}

  QString idText() const {
    const unsigned int id = mDefinition.id();
    return mDefinition.valid()
               ? QStringLiteral("%1 (0x%2)").arg(QString::number(id), QString::number(id, 16))
               : QString();
  }

  QString unit() const {
    const unsigned int id = mDefinition.unitId();
    if (id == 0) return {};
    const QString name = NDisplayText::shownOrNothing(mReferences.unit(mDefinition));
    const std::optional<QString> chooser = mReferences.find(id);
    if (!chooser && name.isEmpty()) return undefined(id);
    const QString number = QString::number(id);
    const QString origin =
        chooser ? Tool::tr("%1, chosen by %2").arg(number, NDisplayText::shown(*chooser)) : number;
    return name.isEmpty() ? origin : QStringLiteral("%1 (%2)").arg(name, origin);
  }

  QString defaultValue() const { return withMeaning(mDefinition.defVal()); }

  QString limit(const CParamVal& own, const QList<unsigned int>& ids) const {
    QStringList parts;
    if (!own.isEmpty()) parts.append(withMeaning(own));
    for (const unsigned int each : ids) parts.append(nameOf(each));
    return parts.join(kComma);
  }

  QStringList choices() const {
    QStringList lines = named(mDefinition.enums());
    if (mDefinition.hasEnums() && mDefinition.isEnumEditable())
      lines.append(Tool::tr("or another value"));
    return lines;
  }
  QStringList radios() const { return named(mDefinition.radios()); }
  QStringList states() const {
    return named(CParamValueText::states(mDefinition, CParamValueText::English));
  }

  QStringList bits() const {
    QStringList lines;
    for (const NParamDef::SBitValue& bit : mDefinition.bitset()) {
      const QString name = mLabels.shown(bit.name);
      lines.append(
          numbered(bit.pos, 2, bit.invert ? Tool::tr("%1 (while clear)").arg(name) : name));
    }
    return lines;
  }

  QString visibleWhen() const {
    if (!mDefinition.hasVisibleValues()) return {};
    const unsigned int id = mDefinition.visibleId();
    QStringList values;
    for (const qint64 value : mDefinition.visibleVals()) {
      const QString meaning = NDisplayText::shownOrNothing(mReferences.choice(id, value));
      values.append(withMeaning(QString::number(value), meaning));
    }
    return QStringLiteral("%1 = %2").arg(nameOf(id), values.join(kComma));
  }

  /// In its own lines.
  QStringList hint() const {
    QStringList lines;
    if (!mDefinition.hint().isEmpty())
      for (const QString& line : mDefinition.hint().split(QLatin1Char('\n')))
        lines.append(NDisplayText::escaped(line));
    return lines;
  }

  static QString listed(const QStringList& names) {
    QStringList shown;
    for (const QString& name : names.mid(0, kMostNames)) shown.append(NDisplayText::shown(name));
    const QString text = shown.join(kComma);
    return names.size() <= kMostNames
               ? text
               : Tool::tr("%1, … (%2 in all)").arg(text, QString::number(names.size()));
  }

 private:
  static QString undefined(unsigned int id) { return Tool::tr("%1 (not defined)").arg(id); }

  QString nameOf(unsigned int id) const {
    const std::optional<QString> found = mReferences.find(id);
    return found ? NDisplayText::shown(*found) : undefined(id);
  }

  static QString withMeaning(const QString& value, const QString& meaning) {
    return meaning.isEmpty() ? value : QStringLiteral("%1 (%2)").arg(value, meaning);
  }
  QString withMeaning(const CParamVal& value) const {
    if (value.isNull()) return {};
    return withMeaning(NDisplayText::shown(value.asStr()),
                       NValueMeaning::meaning(mDefinition, value, mLabels));
  }

  static QString numbered(qint64 number, int columns, const QString& name) {
    return QStringLiteral("%1  %2").arg(number, columns).arg(name);
  }

  QStringList named(const QList<NParamDef::SNamedI64Value>& list) const {
    int columns = 0;
    for (const auto& each : list) columns = qMax(columns, QString::number(each.value).size());
    QStringList lines;
    for (const auto& each : list)
      lines.append(numbered(each.value, columns, mLabels.shown(each.name)));
    return lines;
  }

  const CParamDefItem& mDefinition;
  CReferences& mReferences;
  const CLabels& mLabels;
};

void print(const CParamDefItem& definition, const SDefinitionUse& use, const CDefinitionText& text,
           COutput& out) {
  CBlock block;
  block.add(Tool::tr("Id"), text.idText());
  block.add(Tool::tr("Type"), definition.typeStr());
  block.add(Tool::tr("Unit"), text.unit());
  block.add(Tool::tr("Default"), text.defaultValue());
  block.add(Tool::tr("Minimum"), text.limit(definition.minVal(), definition.minIds()));
  block.add(Tool::tr("Maximum"), text.limit(definition.maxVal(), definition.maxIds()));
  block.add(Tool::tr("Minimum of"), CDefinitionText::listed(use.minimumOf));
  block.add(Tool::tr("Maximum of"), CDefinitionText::listed(use.maximumOf));
  block.add(Tool::tr("Choices"), text.choices());
  block.add(Tool::tr("Radio buttons"), text.radios());
  block.add(Tool::tr("Check box"), text.states());
  block.add(Tool::tr("Bits"), text.bits());
  block.add(Tool::tr("Visible when"), text.visibleWhen());
  block.add(Tool::tr("Visibility of"), CDefinitionText::listed(use.visibilityOf));
  block.add(Tool::tr("Unit of"), CDefinitionText::listed(use.unitOf));
  block.add(Tool::tr("Hint"), text.hint());
  block.print(out.labels().shown(definition.name()), out);
}

/// Ids that a definition refers to and no definition has, ascending.
QJsonArray undefinedIds(const CParamDefItem& definition, CReferences& references) {
  const QList<unsigned int> limits = definition.minIds() + definition.maxIds();
  std::set<unsigned int> ids(limits.begin(), limits.end());
  if (definition.hasVisibleValues()) ids.insert(definition.visibleId());
  if (definition.unitId() != 0 && references.unit(definition).isEmpty())
    ids.insert(definition.unitId());
  QJsonArray array;
  for (const unsigned int id : ids)
    if (!references.find(id)) array.append(qint64(id));
  return array;
}

QJsonObject toJson(const CParamDefItem& definition, const SDefinitionUse& use,
                   CReferences& references) {
  QJsonObject json = NViews::definitionJson(definition, references);
  json.insert("hint", definition.hint());
  json.insert("minimumOf", QJsonArray::fromStringList(use.minimumOf));
  json.insert("maximumOf", QJsonArray::fromStringList(use.maximumOf));
  json.insert("visibilityOf", QJsonArray::fromStringList(use.visibilityOf));
  json.insert("unitOf", QJsonArray::fromStringList(use.unitOf));
  json.insert("undefinedIds", undefinedIds(definition, references));
  return json;
}

}  // namespace

EExitStatus NViews::showWholeDefinitions(const CLoadedFile& loaded, const QStringList& words,
                                         bool isJson, COutput& out) {
  const ICParameterFile& file = loaded.file();
  const CDefinitionUses uses(file, out.labels());
  CReferences references(file, out.labels());
  QStringList unknown;
  QJsonArray array;
  bool isFirst = true;
  for (const QString& name : NDefinitionLookup::namesOf(words, loaded, unknown)) {
    const CParamDefItem definition = file.paramDef(name);
    const SDefinitionUse use = uses.of(definition);
    if (isJson) {
      array.append(toJson(definition, use, references));
      continue;
    }
    if (!std::exchange(isFirst, false)) out.line({});
    print(definition, use, CDefinitionText(definition, references), out);
  }
  if (isJson) {
    QJsonObject object = headJson(loaded);
    object.insert("definitions", array);
    out.json(object);
  }
  return unknown.isEmpty() ? ExitDone : ExitFindings;
}
