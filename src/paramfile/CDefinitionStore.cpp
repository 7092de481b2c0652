#include "CDefinitionStore.h"

CDefinitionStore::CDefinitionStore(const CDefinitionStore& other)
    : mReferences(other.mReferences), mMetaData(other.mMetaData) {
  mKeys.reserve(other.mDefinitions.size());
  for (const CParamDefItem& definition : other.mDefinitions) append(definition);
}

void CDefinitionStore::clear() {
  mKeys.clear();
  mDefinitions.clear();
  mReferences.clear();
  mMetaData = CXMLMetaData();
  mChanged = false;
}

CParamDefItem* CDefinitionStore::findForEdit(const QString& name) {
  CParamDefItem* definition = mKeys.byName(name);
  if (definition != nullptr) definition->setChangedFlag(&mChanged);
  return definition;
}

QVector<const CParamDefItem*> CDefinitionStore::sorted() const {
  QVector<const CParamDefItem*> definitions;
  definitions.reserve(static_cast<int>(mDefinitions.size()));
  for (const CParamDefItem& definition : mDefinitions) definitions.append(&definition);
  CParamDefFile::sortByIdAndName(definitions);
  return definitions;
}

CParamDefItem* CDefinitionStore::add(const CParamDefItem& definition) {
  mChanged = true;
  return append(definition);
}

void CDefinitionStore::unite(const CParamDefinitions& definitions) {
  mKeys.reserve(mDefinitions.size() + definitions.size());
  for (const auto& [name, definition] : definitions) {
    CParamDefItem* known = mKeys.byName(name);
    if (known == nullptr) {
      append(definition);
    } else {
      known->setChangedFlag(nullptr);  // a load marks nothing
      *known = definition;
      known->setChangedFlag(&mChanged);
    }
  }
}

void CDefinitionStore::replace(const CParamDefinitions& definitions) {
  mKeys.clear();
  mDefinitions.clear();
  mReferences.clear();
  unite(definitions);
  updateReferenceIdList(definitions);
  mChanged = true;
}

void CDefinitionStore::updateReferenceIdList(const CParamDefinitions& definitions) {
  QVector<const CParamDefItem*> referring;
  for (const auto& [name, definition] : definitions)
    if (definition.id() != 0 && definition.hasVisibleValues()) referring.append(&definition);
  CParamDefFile::sortByIdAndName(referring);
  for (const CParamDefItem* definition : referring) {
    mReferences[definition->visibleId()].add(definition->id());
    mReferences[definition->unitId()].add(definition->id());
  }
}

CParamDefItem* CDefinitionStore::append(const CParamDefItem& definition) {
  CParamDefItem* added = &mDefinitions.emplace_back(definition);
  added->setChangedFlag(&mChanged);
  mKeys.add(added);
  return added;
}
