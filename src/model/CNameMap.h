#pragma once

#include <QString>

#include <unordered_map>

/// Hashes names by SipHash-1-3 with the seed of Qt's hashes as its key. Names come from files, and
/// Qt's own hash is linear: names that collide under every seed are easily made, and 40,000 of them
/// would hold up a load for eight seconds, twice as many for four times as long.
/// It does not say that it never throws: then a map keeps the hashes instead of computing them
/// again as it grows.
struct SNameHash {
  size_t operator()(const QString& name) const;
};

/// A hash from name to T whose entries stay where they are. Unlike a QHash it is never shared, and
/// it gives its memory back in the order in which it took it, which makes a hundred thousand
/// entries twice as fast to delete.
template <typename T>
using CNameMap = std::unordered_map<QString, T, SNameHash>;
