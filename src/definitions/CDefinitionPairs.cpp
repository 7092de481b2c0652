#include "CDefinitionPairs.h"

#include "CDefinitionLookup.h"

#include <algorithm>
#include <iterator>

namespace {

QStringList sortedNames(const CDefinitionLookup& set) {
  QStringList names = set.names();
  names.sort();
  return names;
}

QStringList without(const QStringList& names, const QStringList& others) {
  QStringList rest;
  std::set_difference(names.begin(), names.end(), others.begin(), others.end(),
                      std::back_inserter(rest));
  return rest;
}

/// Of several names with one id the first.
CKeyedMap<quint32, QString> byId(const CDefinitionLookup& set, const QStringList& names) {
  CKeyedMap<quint32, QString> map;
  for (const QString& name : names) {
    const quint32 id = set.find(name).id();
    if (NParamDef::isRealId(id)) map.try_emplace(id, name);
  }
  return map;
}

}  // namespace

CDefinitionPairs::CDefinitionPairs(const CDefinitionLookup& oldSet,
                                   const CDefinitionLookup& newSet) {
  const QStringList oldNames = sortedNames(oldSet);
  const QStringList newNames = sortedNames(newSet);
  const QStringList removed = without(oldNames, newNames);
  CKeyedMap<quint32, QString> removedIds = byId(oldSet, removed);
  for (const auto& [id, newName] : byId(newSet, without(newNames, oldNames))) {
    const auto renamed = removedIds.find(id);
    if (renamed != removedIds.end()) mNewNames[renamed->second] = newName;
  }
  CKeyedMap<QString, QString> oldNamesOf;
  for (const auto& [oldName, newName] : mNewNames) oldNamesOf[newName] = oldName;
  for (const QString& name : without(oldNames, removed)) {
    mNewNames[name] = name;
    oldNamesOf[name] = name;
  }
  for (const QString& name : newNames) {
    const auto oldName = oldNamesOf.find(name);
    mPairs.append({oldName == oldNamesOf.end() ? QString() : oldName->second, name});
  }
  for (const QString& name : removed)
    if (newNameOf(name).isNull()) mPairs.append({name, {}});
  std::sort(mPairs.begin(), mPairs.end(),
            [](const SPair& a, const SPair& b) { return a.name() < b.name(); });
}

QString CDefinitionPairs::newNameOf(const QString& oldName) const {
  const auto found = mNewNames.find(oldName);
  return found == mNewNames.end() ? QString() : found->second;
}
