#include "ICSettingsTreeNode.h"

#include "CSettingsFileImpl.h"

// Here, not in the header: the class then has one home, and casts work across libraries.
ICSettingsTreeNode::~ICSettingsTreeNode() = default;

QString ICSettingsTreeNode::typeToStr(ESettingsType type) {
  return CSettingsFileImpl::tagFromType(type);
}
