#include "CNodeIndex.h"

#include "CKeyedMap.h"

#include <algorithm>
#include <utility>

namespace {

constexpr size_t kFewest = 16;

}  // namespace

CParamTreeNodeImpl* CNodeIndex::find(const QString& name) const {
  return mSlots.empty() ? nullptr : mSlots[slotOf(name, SKeyedHash()(name))].node;
}

/// Where a name is, or would be.
size_t CNodeIndex::slotOf(const QString& name, size_t hash) const {
  size_t slot = home(hash);
  while (mSlots[slot].node &&
         (mSlots[slot].hash != hash || mSlots[slot].node->dataRef().name() != name)) {
    slot = next(slot);
  }
  return slot;
}

bool CNodeIndex::insert(CParamTreeNodeImpl* node) {
  reserve(count() + 1);
  const QString name = node->dataRef().name();
  const size_t hash = SKeyedHash()(name);
  SSlot& slot = mSlots[slotOf(name, hash)];
  if (slot.node) return false;
  slot = {node, hash};
  ++mCount;
  return true;
}

void CNodeIndex::remove(const CParamTreeNodeImpl* node) {
  size_t gap = home(SKeyedHash()(node->dataRef().name()));
  while (mSlots[gap].node != node) gap = next(gap);
  // Backward-shift deletion: close the gap unless an entry would precede its home slot.
  for (size_t slot = next(gap); mSlots[slot].node; slot = next(slot)) {
    if (home(slot - mSlots[slot].hash) >= home(slot - gap)) {
      mSlots[gap] = mSlots[slot];
      gap = slot;
    }
  }
  mSlots[gap] = SSlot();
  --mCount;
}

void CNodeIndex::reserve(int count) {
  size_t size = std::max(kFewest, mSlots.size());
  while (static_cast<size_t>(count) * 4 > size * 3) size *= 2;
  if (size > mSlots.size()) resize(size);
}

void CNodeIndex::resize(size_t size) {
  const std::vector<SSlot> entries = std::exchange(mSlots, std::vector<SSlot>(size));
  for (const SSlot& entry : entries)
    if (entry.node) place(entry);
}

void CNodeIndex::place(const SSlot& entry) {
  size_t slot = home(entry.hash);
  while (mSlots[slot].node) slot = next(slot);
  mSlots[slot] = entry;
}
