#pragma once

#include "CKeyedMap.h"

#include <QString>
#include <QVector>

#include <map>
#include <tuple>

/// Numbers for the nodes of several trees, the same for what is the same node: a parameter by its
/// name, a group by its parent, its name, and its place among the groups of that name.
class CNodeKeys {
 public:
  static constexpr int kRoot = 0;
  static constexpr int kNone = -1;

  CNodeKeys() : mParents(1, kNone) {}

  int parameter(const QString& name) { return key(mParameters, name, kNone); }
  int group(int parent, const QString& name, int place) {
    return key(mGroups, CGroup(parent, place, name), parent);
  }

  int count() const { return mParents.size(); }
  bool isGroup(int key) const { return key == kRoot || mParents.at(key) != kNone; }
  /// Of a group; kNone for the root, and for parameters, which move.
  int parentOfGroup(int key) const { return mParents.at(key); }

 private:
  using CGroup = std::tuple<int, int, QString>;  // parent, place, name

  template <typename CKeys, typename K>
  int key(CKeys& keys, const K& identity, int parent) {
    const auto [known, isNew] = keys.try_emplace(identity, mParents.size());
    if (isNew) {
      mParents.append(parent);
    }
    return known->second;
  }

  QVector<int> mParents;
  CKeyedMap<QString, int> mParameters;
  std::map<CGroup, int> mGroups;
};
