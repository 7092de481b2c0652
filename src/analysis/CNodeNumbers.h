#pragma once

#include "CKeyedMap.h"
#include "NShortText.h"

#include <QString>

#include <map>
#include <tuple>
#include <vector>

/// Numbers for the nodes of several trees, the same for what is the same node: a parameter by its
/// name, a group by its parent, its name, and its place among the groups of that name. The path of
/// a group is kept here, once for all trees and all that lies in it.
class CNodeNumbers {
 public:
  static constexpr int kRoot = 0;
  static constexpr int kNone = -1;

  CNodeNumbers() : mKeys(1) {}

  int parameter(const QString& name) { return key(mParameters, name, kNone); }
  int group(int parent, const QString& name, int place) {
    const int group = key(mGroups, CGroup(parent, place, name), parent);
    QString& path = at(group).path;
    if (path.isNull()) path = NShortText::below(at(parent).path, name);
    return group;
  }

  int count() const { return static_cast<int>(mKeys.size()); }
  bool isGroup(int key) const { return key == kRoot || at(key).parent != kNone; }
  /// Of a group; kNone for the root, and for parameters, which move.
  int parentOfGroup(int key) const { return at(key).parent; }
  /// Of a group: names joined by "/", shortened when long; empty for the root.
  QString pathOfGroup(int key) const { return at(key).path; }

 private:
  using CGroup = std::tuple<int, int, QString>;  // parent, place, name

  struct SKey {
    int parent = kNone;  // of a group
    QString path;        // likewise
  };

  SKey& at(int key) { return mKeys[static_cast<size_t>(key)]; }
  const SKey& at(int key) const { return mKeys[static_cast<size_t>(key)]; }

  template <typename CKeys, typename K>
  int key(CKeys& keys, const K& identity, int parent) {
    const auto [known, isNew] = keys.try_emplace(identity, count());
    if (isNew) mKeys.push_back({parent, {}});
    return known->second;
  }

  std::vector<SKey> mKeys;
  CKeyedMap<QString, int> mParameters;
  std::map<CGroup, int> mGroups;
};
