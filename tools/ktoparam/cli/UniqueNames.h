#pragma once

#include <QStringList>

#include <set>

/// The names without doubles, in their order. Unlike QStringList::removeDuplicates() no hash is
/// asked, in which names from a file could be made to collide.
inline QStringList uniqueNames(const QStringList& names) {
  std::set<QString> seen;
  QStringList unique;
  for (const QString& name : names)
    if (seen.insert(name).second) unique.append(name);
  return unique;
}
