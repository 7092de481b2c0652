#pragma once

#include <QHash>
#include <QString>
#include <QVector>

/// Numbers for the nodes of several trees, the same for what is the same node: a parameter by its
/// name, a group by its parent, its name, and its place among the groups of that name.
class CNodeKeys {
 public:
  static constexpr int kRoot = 0;
  static constexpr int kNone = -1;

  CNodeKeys() : mParents(1, kNone) {}

  int parameter(const QString& name) { return key(mParameters, name, kNone); }
  int group(int parent, const QString& name, int place) {
    return key(mGroups, {{parent, place}, name}, parent);
  }

  int count() const { return mParents.size(); }
  bool isGroup(int key) const { return key == kRoot || mParents.at(key) != kNone; }
  /// Of a group; kNone for the root, and for parameters, which move.
  int parentOfGroup(int key) const { return mParents.at(key); }

 private:
  template <typename K>
  int key(QHash<K, int>& keys, const K& identity, int parent) {
    const auto known = keys.find(identity);
    if (known != keys.end()) {
      return *known;
    }
    mParents.append(parent);
    keys.insert(identity, mParents.size() - 1);
    return mParents.size() - 1;
  }

  QVector<int> mParents;
  QHash<QString, int> mParameters;
  QHash<QPair<QPair<int, int>, QString>, int> mGroups;
};
