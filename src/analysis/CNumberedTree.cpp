#include "CNumberedTree.h"

#include "CKeyedMap.h"

#include <algorithm>

namespace {

/// Marks, in a list of numbers, one longest ascending subsequence.
std::vector<bool> ascending(const std::vector<int>& numbers) {
  // Of each length, where the subsequence with the smallest end ends; and what precedes each.
  std::vector<size_t> ends;
  std::vector<size_t> previous(numbers.size());
  for (size_t i = 0; i < numbers.size(); ++i) {
    const auto end =
        std::lower_bound(ends.begin(), ends.end(), numbers[i],
                         [&numbers](size_t index, int number) { return numbers[index] < number; });
    previous[i] = end == ends.begin() ? i : *(end - 1);
    if (end == ends.end())
      ends.push_back(i);
    else
      *end = i;
  }
  std::vector<bool> marked(numbers.size());
  size_t index = ends.empty() ? 0 : ends.back();
  for (size_t length = ends.size(); length > 0; --length) {
    marked[index] = true;
    index = previous[index];
  }
  return marked;
}

}  // namespace

CNumberedTree::CNumberedTree(const CSubDeviceTree* tree, CNodeNumbers& keys) {
  if (tree != nullptr) {
    mNodes.resize(1);
    mNodes[CNodeNumbers::kRoot].node = tree->root();
    add(*tree->root(), CNodeNumbers::kRoot, keys);
  }
}

const CNumberedTree::SNode& CNumberedTree::at(int key) const {
  static const SNode none;
  const auto index = static_cast<size_t>(key);
  return index < mNodes.size() ? mNodes[index] : none;
}

void CNumberedTree::add(const CParamTreeNodeImpl& group, int groupKey, CNodeNumbers& keys) {
  CKeyedMap<QString, int> places;
  QVector<int> childKeys;
  childKeys.reserve(group.childCount());
  for (int i = 0; i < group.childCount(); ++i) {
    const CParamTreeNodeImpl* child = group.childNode(i);
    const QString name = child->name();
    const int key =
        child->isParam() ? keys.parameter(name) : keys.group(groupKey, name, places[name]++);
    if (static_cast<size_t>(key) >= mNodes.size()) mNodes.resize(static_cast<size_t>(key) + 1);
    mNodes[static_cast<size_t>(key)] = {child, groupKey, i, {}};
    childKeys.append(key);
    if (child->isGroup()) add(*child, key, keys);
  }
  mNodes[static_cast<size_t>(groupKey)].children = childKeys;
}

CParamVal CNumberedTree::value(int key) const {
  const CParamTreeNodeImpl* node = at(key).node;
  return node != nullptr ? node->value() : CParamVal();
}

std::vector<bool> CNumberedTree::placedSince(const CNumberedTree& base, int count) const {
  std::vector<bool> placed(static_cast<size_t>(count));
  for (size_t key = 0; key < mNodes.size(); ++key) markPlaced(static_cast<int>(key), base, placed);
  return placed;
}

void CNumberedTree::markPlaced(int group, const CNumberedTree& base,
                               std::vector<bool>& placed) const {
  std::vector<int> stayed;
  std::vector<int> positions;
  for (const int key : children(group)) {
    if (base.contains(key) && base.parent(key) == group) {
      stayed.push_back(key);
      positions.push_back(base.position(key));
    } else {
      placed[static_cast<size_t>(key)] = true;
    }
  }
  const std::vector<bool> isInOrder = ascending(positions);
  for (size_t i = 0; i < stayed.size(); ++i) placed[static_cast<size_t>(stayed[i])] = !isInOrder[i];
}
