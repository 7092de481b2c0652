#pragma once

#include "CParameterFileBaseImpl.h"
#include "TreeText.h"

#include <memory>

/// Parameter files in short: "[A:1] X=1 G( Y#5=2 ) [A:2]" is a tree in sub-device 1 of hardware id
/// A, and an empty sub-device 2. Without definitions.
namespace NAnalysisFiles {

using CFilePtr = std::unique_ptr<ICParameterFile>;

inline CFilePtr makeFile() {
  CFilePtr file(ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
  file->addHardwareId("A");
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
    if (!token.startsWith('[')) {
      NTreeText::add(*tree, group, token);
      continue;
    }
    const QStringList place = token.mid(1).chopped(1).split(':');
    const auto subDevId = static_cast<quint8>(place.at(1).toUInt());
    tree = &treesOf(*file)[place.at(0)].try_emplace(subDevId, subDevId).first->second;
    group = tree->root();
  }
  return file;
}

inline CFilePtr fromText(const QString& text) {
  return fromTokens(text.split(' ', Qt::SkipEmptyParts));
}

inline QString toText(ICParameterFile& file) {
  QStringList tokens;
  for (const auto& [hardwareId, trees] : treesOf(file)) {
    for (const auto& [subDevId, tree] : trees) {
      tokens += QStringLiteral("[%1:%2]").arg(hardwareId, QString::number(subDevId));
      NTreeText::append(tree, *tree.root(), tokens);
    }
  }
  return tokens.join(' ');
}

}  // namespace NAnalysisFiles
