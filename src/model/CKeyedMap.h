#pragma once

#include <QString>

#include <string_view>
#include <unordered_map>
#include <unordered_set>

/// SipHash-1-3 under a key of 128 bits that each process draws once from the system's random
/// source. Names and numbers come from files, and Qt's hashes are linear: keys that collide under
/// every seed are easily made, and 40,000 of them would hold up a load for eight seconds, twice as
/// many for four times as long.
/// Deliberately not noexcept: libstdc++ then keeps the hashes in the nodes.
struct SKeyedHash {
  size_t operator()(const QString& name) const;
  size_t operator()(std::string_view utf8) const;
  size_t operator()(quint64 number) const;
};

/// Containers for keys that a file chooses: QString, or an integer. Entries stay where they are;
/// unlike a QHash they are never shared, and they free their nodes in the order in which they took
/// them, which makes a hundred thousand entries twice as fast to delete.
template <typename Key, typename T>
using CKeyedMap = std::unordered_map<Key, T, SKeyedHash>;
template <typename Key>
using CKeyedSet = std::unordered_set<Key, SKeyedHash>;
