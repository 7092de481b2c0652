#include "ICSettingsTreeNode.h"

// Here, not in the header: the class then has one home, and casts work across libraries.
ICSettingsTreeNode::~ICSettingsTreeNode() = default;
