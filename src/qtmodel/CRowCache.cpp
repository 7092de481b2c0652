#include "CRowCache.h"

#include "ICParamTreeNode.h"

#include <algorithm>

CRowCache::CRowCache() : mRoot(std::make_unique<SRowGroup>()) {}

CRowCache::~CRowCache() = default;

void CRowCache::reset(const std::vector<ICParamTreeNode*>& subDevices) {
  mGroups.clear();
  mRoot = std::make_unique<SRowGroup>();
  mSubDevices = subDevices;
  mRoot->count = static_cast<int>(mSubDevices.size());
}

ICParamTreeNode* CRowCache::child(const SRowGroup& group, int row) const {
  if (row < 0 || row >= group.count) return nullptr;
  return group.node ? group.node->childPtr(row) : mSubDevices[static_cast<size_t>(row)];
}

SRowGroup* CRowCache::group(ICParamTreeNode* node, SRowGroup* parent, int row) {
  std::unique_ptr<SRowGroup>& entry = mGroups[node];
  if (!entry) {
    entry = std::make_unique<SRowGroup>();
    entry->node = node;
    entry->parent = parent;
    entry->row = row;
    entry->count = node->childCnt();
    parent->groups.push_back(entry.get());
  }
  return entry.get();
}

SRowGroup* CRowCache::group(ICParamTreeNode* node) {
  const auto entry = mGroups.find(node);
  if (entry != mGroups.end()) return entry->second.get();
  ICParamTreeNode* parentNode = node->parentPtr();
  SRowGroup* parent = parentNode ? group(parentNode) : mRoot.get();
  const int row = parent ? rowOf(*parent, node) : -1;
  return row < 0 ? nullptr : group(node, parent, row);
}

const SRowGroup* CRowCache::known(const ICParamTreeNode* node) const {
  const auto entry = mGroups.find(node);
  return entry == mGroups.end() ? nullptr : entry->second.get();
}

void CRowCache::makeRows(SRowGroup& group) const {
  group.rows.clear();
  group.rows.reserve(group.count);
  for (int row = 0; row < group.count; ++row) group.rows.insert(this->child(group, row), row);
  group.removed = 0;
  group.steps = 0;
}

/// Searches from both ends of the rows in which the child can be, since removals mostly go in tree
/// order or in reverse. Where they do not, the rows are made again in time.
int CRowCache::rowOf(SRowGroup& group, const ICParamTreeNode* child) const {
  if (group.rows.isEmpty() || group.steps > group.count) makeRows(group);
  const int place = group.rows.value(child, -1);
  int last = std::min(place, group.count - 1);
  for (int first = std::max(0, place - group.removed); first <= last; ++first, --last) {
    if (this->child(group, first) == child) return first;
    if (this->child(group, last) == child) return last;
    ++group.steps;
  }
  return -1;
}

void CRowCache::append(SRowGroup& group) {
  if (!group.rows.isEmpty()) group.rows.insert(group.node->childPtr(group.count), group.count);
  ++group.count;
}

void CRowCache::remove(SRowGroup& group, int first, int count) {
  std::vector<SRowGroup*> kept;
  for (SRowGroup* each : group.groups) {
    if (each->row >= first && each->row < first + count) {
      forget(each);
      continue;
    }
    if (each->row >= first + count) each->row -= count;
    kept.push_back(each);
  }
  group.groups = std::move(kept);
  group.count -= count;
  group.removed += count;
}

void CRowCache::forget(SRowGroup* group) {
  for (SRowGroup* each : group->groups) forget(each);
  mGroups.erase(group->node);
}

std::vector<SRowGroup*> CRowCache::all() const {
  std::vector<SRowGroup*> groups{mRoot.get()};
  for (const auto& entry : mGroups) groups.push_back(entry.second.get());
  return groups;
}
