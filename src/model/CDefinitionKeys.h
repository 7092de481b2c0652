#pragma once

#include "CKeyedMap.h"

#include <set>
#include <utility>

class CParamDefItem;

/// Finds definitions by a key that several of them may have for a while: the one that got it last,
/// and when that lets go of it another one.
template <typename Key>
class CDefinitionsByKey {
 public:
  CParamDefItem* find(const Key& key) const {
    const auto last = mLast.find(key);
    return last == mLast.end() ? nullptr : last->second;
  }

  void add(const Key& key, CParamDefItem* definition) {
    const auto [last, isNew] = mLast.try_emplace(key, definition);
    if (!isNew) mOthers.emplace(key, std::exchange(last->second, definition));
  }

  void remove(const Key& key, CParamDefItem* definition) {
    const auto last = mLast.find(key);
    const auto other = mOthers.lower_bound({key, nullptr});
    if (last->second != definition) {
      mOthers.erase({key, definition});
    } else if (other != mOthers.end() && other->first == key) {
      last->second = other->second;
      mOthers.erase(other);
    } else {
      mLast.erase(last);
    }
  }

  void reserve(size_t count) { mLast.reserve(count); }

  void clear() {
    mLast.clear();
    mOthers.clear();
  }

 private:
  CKeyedMap<Key, CParamDefItem*> mLast;
  std::set<std::pair<Key, CParamDefItem*>> mOthers;
};

/// Finds the definitions of a set by their present names and ids: a definition that was added tells
/// of every change of either, so that an edit through a pointer counts at once. Definitions stay
/// where they are as long as they are in here.
class CDefinitionKeys {
 public:
  void add(CParamDefItem* definition);
  // Called by a definition that was added.
  void nameChanged(CParamDefItem* definition, const QString& oldName);
  void idChanged(CParamDefItem* definition, quint32 oldId);
  void reserve(size_t count);
  void clear();

  /// Null for an unknown name.
  CParamDefItem* byName(const QString& name) const { return mByName.find(name); }
  /// Null for an unknown id, and for those that mean "no id".
  CParamDefItem* byId(quint32 id) const { return mById.find(id); }

 private:
  CDefinitionsByKey<QString> mByName;
  CDefinitionsByKey<quint32> mById;
};
