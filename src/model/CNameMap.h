#pragma once

#include <QHash>
#include <QString>

#include <unordered_map>

/// Hashes names as QHash does. It does not say that it never throws: then the map keeps the hashes
/// instead of computing them again as it grows.
struct SNameHash {
  size_t operator()(const QString& name) const {
    return qHash(name, static_cast<uint>(qGlobalQHashSeed()));
  }
};

/// A hash from name to T whose entries stay where they are. Unlike a QHash it is never shared, and
/// it gives its memory back in the order in which it took it, which makes a hundred thousand
/// entries twice as fast to delete.
template <typename T>
using CNameMap = std::unordered_map<QString, T, SNameHash>;
