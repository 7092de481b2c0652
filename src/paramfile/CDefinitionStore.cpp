#include "CDefinitionStore.h"

CDefinitionStore::CDefinitionStore(const CDefinitionStore& other)
    : mNameById(other.mNameById), mReferences(other.mReferences), mMetaData(other.mMetaData) {
  mByName.reserve(other.mByName.size());
  for (const auto& [name, definition] : other.mByName) {
    store(name, definition);
  }
}

void CDefinitionStore::clear() {
  mByName.clear();
  mNameById.clear();
  mReferences.clear();
  mMetaData = CXMLMetaData();
  mChanged = false;
}

const CParamDefItem* CDefinitionStore::find(const QString& name) const {
  const auto it = mByName.find(name);
  return it == mByName.end() ? nullptr : &it->second;
}

CParamDefItem* CDefinitionStore::findForEdit(const QString& name) {
  const auto it = mByName.find(name);
  return it == mByName.end() ? nullptr : &it->second;
}

QString CDefinitionStore::nameById(quint32 id) const {
  const auto it = mNameById.find(id);
  return it == mNameById.end() ? QString() : it->second;
}

QVector<const CParamDefItem*> CDefinitionStore::sorted() const {
  QVector<const CParamDefItem*> definitions;
  definitions.reserve(static_cast<int>(mByName.size()));
  for (const auto& entry : mByName) {
    definitions.append(&entry.second);
  }
  CParamDefFile::sortByIdAndName(definitions);
  return definitions;
}

CParamDefItem* CDefinitionStore::add(const CParamDefItem& definition) {
  mNameById.insert_or_assign(definition.id(), definition.name());
  mChanged = true;
  return store(definition.name(), definition);
}

void CDefinitionStore::unite(const CParamDefinitions& definitions, const CNamesById& nameById) {
  mByName.reserve(mByName.size() + definitions.size());
  for (const auto& [name, definition] : definitions) {
    store(name, definition);
  }
  for (const auto& [id, name] : nameById) {
    mNameById.insert_or_assign(id, name);
  }
}

void CDefinitionStore::updateReferenceIdList(const CParamDefinitions& definitions) {
  QVector<const CParamDefItem*> referring;
  for (const auto& [name, definition] : definitions) {
    if (definition.id() != 0 && definition.hasVisibleValues()) {
      referring.append(&definition);
    }
  }
  CParamDefFile::sortByIdAndName(referring);
  for (const CParamDefItem* definition : referring) {
    mReferences[definition->visibleId()].add(definition->id());
    mReferences[definition->unitId()].add(definition->id());
  }
}

CParamDefItem* CDefinitionStore::store(const QString& name, const CParamDefItem& definition) {
  CParamDefItem& stored = mByName.insert_or_assign(name, definition).first->second;
  stored.setChangedFlag(&mChanged);
  return &stored;
}
