#include "CNodeIndex.h"

#include "CKeyedMap.h"

#include <algorithm>
#include <utility>

namespace {

constexpr size_t kFewest = 16;

quint32 hashOf(std::string_view name) {
  return std::max(static_cast<quint32>(SKeyedHash()(name)), 1U);
}

}  // namespace

CParamTreeNodeImpl* CNodeIndex::find(std::string_view name) const {
  return mNodes.empty() ? nullptr : mNodes[slotOf(name, hashOf(name))];
}

/// Where a name is, or would be.
size_t CNodeIndex::slotOf(std::string_view name, quint32 hash) const {
  size_t slot = home(hash);
  while (mHashes[slot] != 0 && (mHashes[slot] != hash || mNodes[slot]->nameUtf8() != name))
    slot = next(slot);
  return slot;
}

bool CNodeIndex::insert(CParamTreeNodeImpl* node) {
  reserve(count() + 1);
  const quint32 hash = hashOf(node->nameUtf8());
  const size_t slot = slotOf(node->nameUtf8(), hash);
  if (mHashes[slot] != 0) return false;
  mHashes[slot] = hash;
  mNodes[slot] = node;
  ++mCount;
  return true;
}

void CNodeIndex::remove(const CParamTreeNodeImpl* node) {
  size_t gap = home(hashOf(node->nameUtf8()));
  while (mNodes[gap] != node) gap = next(gap);
  // Backward-shift deletion: close the gap unless an entry would precede its home slot.
  for (size_t slot = next(gap); mHashes[slot] != 0; slot = next(slot)) {
    if (home(slot - mHashes[slot]) >= home(slot - gap)) {
      mHashes[gap] = mHashes[slot];
      mNodes[gap] = mNodes[slot];
      gap = slot;
    }
  }
  mHashes[gap] = 0;
  mNodes[gap] = nullptr;
  --mCount;
}

void CNodeIndex::reserve(int count) {
  size_t size = std::max(kFewest, mHashes.size());
  while (static_cast<size_t>(count) * 4 > size * 3) size *= 2;
  if (size > mHashes.size()) resize(size);
}

void CNodeIndex::resize(size_t size) {
  const auto hashes = std::exchange(mHashes, std::vector<quint32>(size));
  const auto nodes = std::exchange(mNodes, std::vector<CParamTreeNodeImpl*>(size));
  for (size_t i = 0; i < hashes.size(); ++i) {
    if (hashes[i] == 0) continue;
    size_t slot = home(hashes[i]);
    while (mHashes[slot] != 0) slot = next(slot);
    mHashes[slot] = hashes[i];
    mNodes[slot] = nodes[i];
  }
}
