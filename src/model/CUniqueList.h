#pragma once

#include <QList>

#include <set>

/// A list that takes every value once, in the order added. A short one is searched; a long one has
/// a set as well, so that adding hardly costs more in a longer list. std::set by default: hash
/// keys taken from a file can be crafted to collide.
template <typename T, typename Set = std::set<T>>
class CUniqueList {
 public:
  CUniqueList() = default;
  /// Takes the list as it is, with the doubled values that it may hold.
  explicit CUniqueList(const QList<T>& list) : mList(list) { indexWhenLong(); }

  const QList<T>& list() const { return mList; }
  bool isEmpty() const { return mList.isEmpty(); }
  int size() const { return mList.size(); }
  /// True when lookups go through the set, since the list is long.
  bool isIndexed() const { return !mSet.empty(); }
  bool contains(const T& value) const {
    return isIndexed() ? mSet.count(value) > 0 : mList.contains(value);
  }

  bool operator==(const CUniqueList& other) const { return mList == other.mList; }

  /// False, and nothing happens, when the value is there already.
  bool add(const T& value) {
    if (contains(value)) return false;
    mList.append(value);
    if (isIndexed())
      mSet.insert(value);
    else
      indexWhenLong();
    return true;
  }

 private:
  static constexpr int kSearchedSize = 16;

  void indexWhenLong() {
    if (mList.size() > kSearchedSize) mSet = Set(mList.cbegin(), mList.cend());
  }

  QList<T> mList;
  Set mSet;  // of all values when the list is long, else empty
};
