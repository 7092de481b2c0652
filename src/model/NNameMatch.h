#pragma once

#include "CKeyedMap.h"

#include <QString>
#include <QVector>

#include <algorithm>

/// Matches the elements of two lists by their names.
namespace NNameMatch {

/// For each element of a list, the position of the element of the same name in another, or -1. The
/// names within a list must differ. Two files of one device begin and end alike, so only what is
/// between is hashed.
template <typename CList, typename F>
QVector<int> positionsOf(const CList& of, const CList& in, const F& nameOf) {
  const int shorter = std::min(of.size(), in.size());
  int front = 0;
  while (front < shorter && nameOf(of.at(front)) == nameOf(in.at(front))) ++front;
  int back = 0;
  while (back < shorter - front &&
         nameOf(of.at(of.size() - 1 - back)) == nameOf(in.at(in.size() - 1 - back))) {
    ++back;
  }

  CKeyedMap<QString, int> between;
  between.reserve(static_cast<size_t>(in.size() - back - front));
  for (int i = front; i < in.size() - back; ++i) between.emplace(nameOf(in.at(i)), i);
  const auto positionBetween = [&between](const QString& name) {
    const auto found = between.find(name);
    return found != between.end() ? found->second : -1;
  };

  QVector<int> positions(of.size());
  for (int i = 0; i < of.size(); ++i) {
    const bool isFront = i < front;
    const bool isBack = i >= of.size() - back;
    positions[i] = isFront  ? i
                   : isBack ? i + in.size() - of.size()
                            : positionBetween(nameOf(of.at(i)));
  }
  return positions;
}

}  // namespace NNameMatch
