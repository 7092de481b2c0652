#pragma once

#include "CParamVal.h"

#include <QStringList>

#include <optional>

class ICParamTreeNode;
class ICParameterFile;
class QJsonObject;

/// A parameter of the active hardware id with all that its definition says about its value.
struct SValueView {
  QString group;  ///< names of the groups, separated by "/"
  QString name;
  quint32 id = 0;  ///< 0 for none
  quint8 subDevId = 0;
  CParamVal value;
  QString unit;
  QString choice;                         ///< name of the choice, radio button or check box state
  std::optional<QStringList> bits;        ///< see CParamValueText::activeBits()
  QString meaning;                        ///< see ValueTexts::meaning()
  std::optional<CParamVal> defaultValue;  ///< nothing without a definition
  bool isDefault = false;

  static SValueView of(const ICParameterFile& file, const ICParamTreeNode& node);

  /// There is a definition, and the value is not its default.
  bool isChanged() const { return defaultValue && !isDefault; }
  /// The keys are always the same; what does not exist is null.
  QJsonObject toJson() const;
};
