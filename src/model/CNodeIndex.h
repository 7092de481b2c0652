#pragma once

#include "CParamTreeNodeImpl.h"

#include <cstddef>
#include <vector>

/// Finds parameters by name. A hash in one piece of memory: the name stands in its node alone, and
/// a parameter that is added, as millions are in a load, needs no memory of its own.
class CNodeIndex {
 public:
  int count() const { return static_cast<int>(mCount); }
  void reserve(int count);
  CParamTreeNodeImpl* find(const QString& name) const;  ///< null for an unknown name
  void insert(CParamTreeNodeImpl* node);                ///< whose name is unknown so far
  void remove(const CParamTreeNodeImpl* node);          ///< which is known

 private:
  struct SSlot {
    CParamTreeNodeImpl* node = nullptr;
    size_t hash = 0;
  };

  // A node stands in the slot that its hash names or, where others were first, in the next free one
  // behind it.
  size_t home(size_t hash) const { return hash & (mSlots.size() - 1); }
  size_t next(size_t slot) const { return home(slot + 1); }
  void place(const SSlot& entry);
  void resize(size_t size);

  std::vector<SSlot> mSlots;  // a power of two, a quarter of them free at least
  size_t mCount = 0;
};
