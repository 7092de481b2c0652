// Writing of definition files.

#include "CParamDefFile.h"
#include "CParamNodeData.h"
#include "NLumoXmlTags.h"

#include <algorithm>
#include <utility>
#include <vector>

using namespace NLumoXmlTags;

namespace {

// One of two definitions of the same name, null without such. Sorting by hashes brings equal names
// together without looking at the others, and without the memory of a set.
const CParamDefItem* doubledName(const QVector<const CParamDefItem*>& definitions) {
  using CEntry = std::pair<uint, const CParamDefItem*>;
  std::vector<CEntry> entries;
  entries.reserve(static_cast<size_t>(definitions.size()));
  for (const CParamDefItem* definition : definitions)
    entries.emplace_back(qHash(definition->name(), 0), definition);
  std::sort(entries.begin(), entries.end(), [](const CEntry& a, const CEntry& b) {
    return a.first != b.first ? a.first < b.first : a.second->name() < b.second->name();
  });
  const auto doubled =
      std::adjacent_find(entries.begin(), entries.end(), [](const CEntry& a, const CEntry& b) {
        return a.first == b.first && a.second->name() == b.second->name();
      });
  return doubled != entries.end() ? doubled->second : nullptr;
}

template <typename T>
QString joined(const QList<T>& numbers) {
  QStringList texts;
  texts.reserve(numbers.size());
  for (const T number : numbers) texts.append(QString::number(number));
  return texts.join(QLatin1Char(' '));
}

}  // namespace

bool CParamDefFile::save(const QString& fileName, const CParamDefinitions& definitions,
                         const QString& version) {
  QVector<const CParamDefItem*> sorted;
  sorted.reserve(static_cast<int>(definitions.size()));
  for (const auto& [name, definition] : definitions) sorted.append(&definition);
  sortByIdAndName(sorted);
  return save(fileName, sorted, version);
}

bool CParamDefFile::save(const QString& fileName, const QVector<const CParamDefItem*>& sorted,
                         const QString& version) {
  if (!canBeReadAgain(sorted)) return false;
  createDocumentWithHead(TAG_ROOT_PARAM_DEFINITION, version);
  const CDomElement data = domElement(TAG_DATA, domDocument().documentElement());
  for (const CParamDefItem* definition : sorted) appendParamDefinitionToDom(data, *definition);
  return CXmlAbstractLumoFile::save(fileName, mErrorMsg);
}

bool CParamDefFile::canBeReadAgain(const QVector<const CParamDefItem*>& sorted) {
  if (const CParamDefItem* doubled = doubledName(sorted))
    return fail(tr("Two definitions have the name \"%1\".").arg(doubled->name()));
  const CParamDefItem* previous = nullptr;
  for (const CParamDefItem* definition : sorted) {
    if (previous != nullptr && NParamDef::isRealId(definition->id()) &&
        previous->id() == definition->id()) {
      mErrorMsg = tr("The definitions \"%1\" and \"%2\" have the same id %3.")
                      .arg(previous->name(), definition->name(), QString::number(previous->id()));
    } else if (definition->name() == CParamNodeData::mStandardConstructedStr) {
      mErrorMsg = reservedNameMessage(definition->id(), definition->name());
    } else if (!limitsFit(*definition)) {
      mErrorMsg = limitsMessage(*definition);
    } else {
      previous = definition;
      continue;
    }
    return false;
  }
  return true;
}

void CParamDefFile::appendParamDefinitionToDom(CDomElement data, const CParamDefItem& definition) {
  CDomElement param = data.appendElement(TAG_PARAM);
  param.setAttribute(ATTR_ID, definition.id());
  const auto append = [&param](QLatin1String tag, const QString& text) {
    param.appendElement(tag).setText(text);
  };
  const auto appendUnlessEmpty = [&append](QLatin1String tag, const QString& text) {
    if (!text.isEmpty()) append(tag, text);
  };
  append(TAG_NAME, definition.name());
  append(TAG_TYPE, definition.typeStr());
  appendUnlessEmpty(TAG_UNIT,
                    definition.unitId() == 0 ? QString() : QString::number(definition.unitId()));
  appendUnlessEmpty(TAG_HINT, definition.hint());
  appendUnlessEmpty(TAG_DEF_VAL, definition.defVal().asStr());
  appendUnlessEmpty(TAG_MIN_VAL, definition.minVal().asStr());
  appendUnlessEmpty(TAG_MAX_VAL, definition.maxVal().asStr());
  appendUnlessEmpty(TAG_MIN_OBJ, idListToStr(definition.minIds()));
  appendUnlessEmpty(TAG_MAX_OBJ, idListToStr(definition.maxIds()));
  appendChoicesToDom(param, definition);
}

void CParamDefFile::appendParamDefinitionToDom(QDomElement& data, const CParamDefItem& definition) {
  CDomDoc document;
  appendParamDefinitionToDom(document.createRoot(TAG_DATA), definition);
  document.documentElement().firstChildElement().toDom(data);
}

void CParamDefFile::appendChoicesToDom(CDomElement param, const CParamDefItem& definition) {
  if (definition.hasEnums()) {
    CDomElement section = param.appendElement(TAG_ENUM);
    section.setAttribute(ATTR_EDIT, definition.isEnumEditable() ? VAL_TRUE : VAL_FALSE);
    appendNamedI64ValuesToDom(section, definition.enums());
  }
  if (definition.hasRadios())
    appendNamedI64ValuesToDom(param.appendElement(TAG_RADIO), definition.radios());
  const NParamDef::SCheckValues check = definition.checkVals();
  if (check != NParamDef::SCheckValues()) {
    CDomElement section = param.appendElement(TAG_CHECK);
    section.appendElement(TAG_CHECKED).setText(QString::number(check.checked));
    section.appendElement(TAG_UNCHECKED).setText(QString::number(check.unchecked));
    if (check.hasUndefined)
      section.appendElement(TAG_UNDEFINED).setText(QString::number(check.undefined));
  }
  if (definition.hasBitset())
    appendBitsetToDom(param.appendElement(TAG_BIT_SET), definition.bitset());
  if (definition.hasVisibleValues()) {
    CDomElement section = param.appendElement(TAG_VISIBLE_VALUES);
    section.setAttribute(ATTR_REF_ID, definition.visibleId());
    section.setText(valueListToStr(definition.visibleVals()));
  }
}

void CParamDefFile::appendNamedI64ValuesToDom(CDomElement section,
                                              const QList<NParamDef::SNamedI64Value>& values) {
  for (const NParamDef::SNamedI64Value& value : values) {
    CDomElement item = section.appendElement(TAG_ITEM);
    item.setAttribute(ATTR_VALUE, value.value);
    item.setText(value.name);
  }
}

void CParamDefFile::appendBitsetToDom(CDomElement section,
                                      const QList<NParamDef::SBitValue>& bits) {
  for (const NParamDef::SBitValue& bit : bits) {
    CDomElement element = section.appendElement(TAG_BIT);
    element.setAttribute(ATTR_POS, bit.pos);
    element.setAttribute(ATTR_INVERT, bit.invert ? VAL_TRUE : VAL_FALSE);
    element.setText(bit.name);
  }
}

QString CParamDefFile::idListToStr(const QList<quint32>& ids) {
  return joined(ids);
}

QString CParamDefFile::valueListToStr(const QList<qint64>& values) {
  return joined(values);
}
