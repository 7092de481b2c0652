#include "ICParamTreeNode.h"

// Here, not in the header: the class then has one home, and casts work across libraries.
ICParamTreeNode::~ICParamTreeNode() = default;

CParamVal ICParamTreeNode::value() const {
  return CParamVal();
}
