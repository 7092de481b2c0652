#pragma once

#include "CSubDeviceTree.h"

#include <QStringList>

/// Parameter trees in short: "X=1 G( Y#5=2 )" is a parameter X without id and, in a group G, one of
/// id 5.
namespace NTreeText {

/// Adds what a token says to the tree, and goes into the group or out of it.
inline void add(CSubDeviceTree& tree, CParamTreeNodeImpl*& group, const QString& token) {
  if (token == ")") {
    group = static_cast<CParamTreeNodeImpl*>(group->parentPtr());
  } else if (token.endsWith('(')) {
    group = tree.addGroup(group, token.chopped(1));
  } else {
    const QString name = token.section('=', 0, 0);
    tree.addParameter(group, name.section('#', 0, 0), name.section('#', 1).toUInt(),
                      CParamVal(token.section('=', 1)));
  }
}

inline void append(const CSubDeviceTree& tree, const CParamTreeNodeImpl& group,
                   QStringList& tokens) {
  for (int i = 0; i < group.childCount(); ++i) {
    const CParamTreeNodeImpl& node = *group.childNode(i);
    if (node.isGroup()) {
      tokens += node.name() + '(';
      append(tree, node, tokens);
      tokens += ")";
    } else {
      tokens += node.name() + (node.id() != 0 ? "#" + QString::number(node.id()) : QString()) +
                '=' + tree.value(node.name()).asStr();
    }
  }
}

inline CSubDeviceTree fromText(const QString& text, quint8 subDevId = 1) {
  CSubDeviceTree tree(subDevId);
  CParamTreeNodeImpl* group = tree.root();
  for (const QString& token : text.split(' ', Qt::SkipEmptyParts)) add(tree, group, token);
  return tree;
}

inline QString toText(const CSubDeviceTree& tree) {
  QStringList tokens;
  append(tree, *tree.root(), tokens);
  return tokens.join(' ');
}

}  // namespace NTreeText
