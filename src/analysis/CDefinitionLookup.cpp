#include "CDefinitionLookup.h"

#include "ICParameterFile.h"
#include "NShortText.h"

#include <algorithm>

QStringList CDefinitionLookup::names() const {
  return mFile.defNames();
}

CParamDefItem CDefinitionLookup::find(const QString& name) const {
  return mFile.paramDef(name);
}

CParamDefItem CDefinitionLookup::find(quint32 id) {
  const auto [known, isNew] = mFound.try_emplace(id);
  if (isNew) {
    const QString name = nameOf(id);
    known->second = name.isEmpty() ? CParamDefItem() : find(name);
  }
  return known->second;
}

QString CDefinitionLookup::shortNameOf(quint32 id) {
  const auto [known, isNew] = mShortNames.try_emplace(id);
  if (isNew) known->second = NShortText::of(nameOf(id));
  return known->second;
}

void CDefinitionLookup::readNamesById() {
  for (const QString& name : names()) {
    const quint32 id = mFile.paramDef(name).id();
    if (isId(id) && (mNamesById.empty() || mNamesById.back().first != id))
      mNamesById.emplace_back(id, name);
  }
  mHasNamesById = true;
}

// The file itself is asked as well, since others may answer for it.
QString CDefinitionLookup::nameOf(quint32 id) {
  if (!isId(id)) return {};
  if (!mHasNamesById) readNamesById();
  const auto known =
      std::lower_bound(mNamesById.begin(), mNamesById.end(), id,
                       [](const auto& entry, quint32 key) { return entry.first < key; });
  const bool isKnown = known != mNamesById.end() && known->first == id;
  return isKnown ? known->second : mFile.nameById(id);
}

CParamValueRules CDefinitionLookup::rulesOf(const CParamDefItem& definition) {
  return CParamValueRules(definition, [this](quint32 id) { return find(id); });
}
