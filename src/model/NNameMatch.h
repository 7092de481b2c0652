#pragma once

#include "CKeyedMap.h"

#include <algorithm>
#include <string_view>
#include <vector>

/// Matches the elements of two lists by their names.
namespace NNameMatch {

/// For each element of a list, the position of the element of the same name in another, or -1. The
/// names within a list must differ; nameOf() gives views of what the lists hold. Two files of one
/// device begin and end alike, so only what is between is hashed.
template <typename CList, typename F>
std::vector<int> positionsOf(const CList& of, const CList& in, const F& nameOf) {
  const auto name = [&nameOf](const CList& list, int i) {
    return nameOf(list[static_cast<typename CList::size_type>(i)]);
  };
  const int count = static_cast<int>(of.size());
  const int inCount = static_cast<int>(in.size());
  const int shorter = std::min(count, inCount);
  int front = 0;
  while (front < shorter && name(of, front) == name(in, front)) ++front;
  int back = 0;
  while (back < shorter - front && name(of, count - 1 - back) == name(in, inCount - 1 - back))
    ++back;

  CKeyedMap<std::string_view, int> between;
  between.reserve(static_cast<size_t>(inCount - back - front));
  for (int i = front; i < inCount - back; ++i) between.emplace(name(in, i), i);
  const auto positionBetween = [&between](std::string_view wanted) {
    const auto found = between.find(wanted);
    return found != between.end() ? found->second : -1;
  };

  std::vector<int> positions;
  positions.reserve(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) {
    const bool isBack = i >= count - back;
    positions.push_back(i < front ? i
                        : isBack  ? i + inCount - count
                                  : positionBetween(name(of, i)));
  }
  return positions;
}

}  // namespace NNameMatch
