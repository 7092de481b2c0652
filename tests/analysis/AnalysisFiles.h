#pragma once

#include "TreeText.h"
#include "paramfile/ExampleDrive.h"

#include <QRegularExpression>

/// Parameter files in short: "[A:1] X=1 G( Y#5=2 ) [A:2]" is a tree in sub-device 1 of hardware id
/// A, and an empty sub-device 2. Places may have the sub-device's type and name, as "[A:1:3:Axis]";
/// in front may stand author and comment, as "@author:comment", and definitions, as "X:u8".
namespace NAnalysisFiles {

inline CHardwareIdTrees& treesOf(ICParameterFile& file) {
  return dynamic_cast<CParameterFileBaseImpl&>(file).allTrees();
}

inline CParameterFilePtr fromTokens(const QStringList& tokens) {
  CParameterFilePtr file = makeFile();
  file->addHardwareId("A");
  CSubDeviceTree* tree = nullptr;
  CParamTreeNodeImpl* group = nullptr;
  for (const QString& token : tokens) {
    static const QRegularExpression separators("[]:@[]");
    const QStringList parts = token.split(separators);
    if (token.startsWith('@')) {
      file->setMetaData(parts.at(1), parts.value(2));
    } else if (token.startsWith('[')) {
      const auto subDevId = static_cast<quint8>(parts.at(2).toUInt());
      if (parts.size() > 4) {
        file->setSubDevType(subDevId, NParamDef::ESubDeviceTypes(parts.at(3).toInt()));
        file->setSubDevName(subDevId, parts.at(4));
      }
      tree = &treesOf(*file)[parts.at(1)].try_emplace(subDevId, subDevId).first->second;
      group = tree->root();
    } else if (token.contains(':')) {
      file->addDef(parts.at(0), CParamDefItem::typeFromString(parts.at(1)), 0);
    } else if (tree != nullptr) {
      NTreeText::add(*tree, group, token);
    }
  }
  return file;
}

inline CParameterFilePtr fromText(const QString& text) {
  return fromTokens(text.split(' ', Qt::SkipEmptyParts));
}

inline QString toText(ICParameterFile& file) {
  QStringList tokens{"@" + file.author() + ':' + file.comment()};
  for (const auto& [hardwareId, trees] : treesOf(file)) {
    for (const auto& [subDevId, tree] : trees) {
      tokens += QStringLiteral("[%1:%2:%3:%4]")
                    .arg(hardwareId, QString::number(subDevId),
                         QString::number(file.subDevType(subDevId)), file.subDevName(subDevId));
      NTreeText::append(tree, *tree.root(), tokens);
    }
  }
  return tokens.join(' ');
}

}  // namespace NAnalysisFiles
