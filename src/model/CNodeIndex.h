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
  CParamTreeNodeImpl* find(std::string_view name) const;  ///< null for an unknown name
  bool insert(CParamTreeNodeImpl* node);                  ///< false for a name that is known
  void remove(const CParamTreeNodeImpl* node);            ///< which is known

 private:
  // A node is in its home slot or, where that was taken, in the next free one after it.
  size_t home(size_t hash) const { return hash & (mHashes.size() - 1); }
  size_t next(size_t slot) const { return home(slot + 1); }
  size_t slotOf(std::string_view name, quint32 hash) const;
  void resize(size_t size);

  // Slots, a power of two, a quarter of them free at least. Most are judged by the hash alone.
  std::vector<quint32> mHashes;  // 0 for a free one
  std::vector<CParamTreeNodeImpl*> mNodes;
  size_t mCount = 0;
};
