#pragma once

#include "CParamTreeNodeImpl.h"

#include <cstddef>
#include <vector>

/// Finds parameters by name. An open-addressing hash table: names are read from the nodes, so that
/// a parameter that is added, as millions are in a load, needs no allocation.
class CNodeIndex {
 public:
  int count() const { return static_cast<int>(mCount); }
  void reserve(int count);
  CParamTreeNodeImpl* find(const QString& name) const;  ///< null for an unknown name
  bool insert(CParamTreeNodeImpl* node);                ///< false for a name that is known
  void remove(const CParamTreeNodeImpl* node);          ///< which is known

 private:
  struct SSlot {
    CParamTreeNodeImpl* node = nullptr;
    size_t hash = 0;
  };

  // A node is in its home slot or, where that was taken, in the next free one after
  // it.
  size_t home(size_t hash) const { return hash & (mSlots.size() - 1); }
  size_t next(size_t slot) const { return home(slot + 1); }
  size_t slotOf(const QString& name, size_t hash) const;
  void place(const SSlot& entry);
  void resize(size_t size);

  std::vector<SSlot> mSlots;  // a power of two, a quarter of them free at least
  size_t mCount = 0;
};
