#pragma once

#include "CParameterFileBaseImpl.h"

#include <memory>

/// Parameter files in short: "[A:1] X=1 G( Y#5=2 ) [A:2]" is a parameter X and, in a group G, one
/// of id 5, in sub-device 1 of hardware id A, and an empty sub-device 2. Without definitions.
namespace NAnalysisFiles {

using CFilePtr = std::unique_ptr<ICParameterFile>;

inline CFilePtr makeFile(const QString& hardwareId = QStringLiteral("A")) {
  CFilePtr file(ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
  file->addHardwareId(hardwareId);
  return file;
}

inline CHardwareIdTrees& treesOf(ICParameterFile& file) {
  return dynamic_cast<CParameterFileBaseImpl&>(file).allTrees();
}

inline CFilePtr fromTokens(const QStringList& tokens) {
  CFilePtr file = makeFile();
  CSubDeviceTree* tree = nullptr;
  CParamTreeNodeImpl* group = nullptr;
  for (const QString& token : tokens) {
    if (token.startsWith('[')) {
      const QStringList place = token.mid(1).chopped(1).split(':');
      const auto subDevId = static_cast<quint8>(place.at(1).toUInt());
      tree = &treesOf(*file)[place.at(0)].try_emplace(subDevId, subDevId).first->second;
      group = tree->root();
    } else if (token.endsWith('(')) {
      group = tree->addGroup(group, token.chopped(1));
    } else if (token == ")") {
      group = static_cast<CParamTreeNodeImpl*>(group->parentPtr());
    } else {
      const QString name = token.section('=', 0, 0);
      tree->addParameter(group, name.section('#', 0, 0), name.section('#', 1).toUInt(),
                         CParamVal(token.section('=', 1)));
    }
  }
  return file;
}

inline CFilePtr fromText(const QString& text) {
  return fromTokens(text.split(' ', Qt::SkipEmptyParts));
}

inline void appendTokens(const CSubDeviceTree& tree, const CParamTreeNodeImpl& group,
                         QStringList& tokens) {
  for (int i = 0; i < group.childCount(); ++i) {
    const CParamTreeNodeImpl& node = *group.childNode(i);
    if (node.isGroup()) {
      tokens += node.name() + '(';
      appendTokens(tree, node, tokens);
      tokens += ")";
    } else {
      tokens += node.name() + (node.id() != 0 ? "#" + QString::number(node.id()) : QString()) +
                '=' + tree.value(node.name()).asStr();
    }
  }
}

inline QString toText(ICParameterFile& file) {
  QStringList tokens;
  for (const auto& [hardwareId, trees] : treesOf(file)) {
    for (const auto& [subDevId, tree] : trees) {
      tokens += QStringLiteral("[%1:%2]").arg(hardwareId, QString::number(subDevId));
      appendTokens(tree, *tree.root(), tokens);
    }
  }
  return tokens.join(' ');
}

}  // namespace NAnalysisFiles
