#pragma once

#include "CParamVal.h"

#include <QJsonArray>
#include <QString>

#include <functional>
#include <map>
#include <optional>
#include <utility>

class CLabels;
class CParamDefItem;
class CParameterWords;
class ICParamTreeNode;
class ICParameterFile;
class QJsonObject;

/// A parameter of the active hardware id with all that its definition says about its value. All
/// texts but the value are as CLabels shortens them.
struct SValueView {
  QString hardwareId;
  QString group;  ///< names of the groups, separated by "/"
  QString name;
  quint32 id = 0;  ///< 0 for none
  quint8 subDevId = 0;
  CParamVal value;
  QString unit;
  QString choice;                         ///< name of the choice, radio button or check box state
  std::optional<QJsonArray> bits;         ///< the active ones; nothing without named bits
  std::optional<QJsonArray> otherBits;    ///< positions of the set ones without a name; likewise
  QString meaning;                        ///< see NValueMeaning::meaning()
  std::optional<CParamVal> defaultValue;  ///< nothing without a definition
  bool isDefault = false;

  /// There is a definition, and the value is not its default.
  bool isChanged() const { return defaultValue && !isDefault; }
  /// The keys are always the same; what does not exist is null.
  QJsonObject toJson() const;
  /// The same with hardware id and sub-device.
  QJsonObject toPlacedJson() const;
};

/// Makes views of the parameters of one file.
class CValueViews {
 public:
  CValueViews(const ICParameterFile& file, const CLabels& labels) : mFile(file), mLabels(labels) {}

  /// The path of its group is NShortText::below() of the groups above it.
  SValueView of(const ICParamTreeNode& node, const QString& groupPath);
  /// The same for a node that is met alone.
  SValueView of(const ICParamTreeNode& node);
  /// All parameters in a group and the groups in it that the words mean, in the order of the tree.
  void visit(const ICParamTreeNode& group, const CParameterWords& words,
             const std::function<void(const SValueView&)>& visitor, const QString& path = {});
  /// The name of a definition's unit.
  QString unit(const CParamDefItem& definition, quint8 subDevId);

 private:
  void noteHardwareId();

  const ICParameterFile& mFile;
  const CLabels& mLabels;
  // Looked up once for each hardware id: a unit serves thousands, and its name may be long.
  std::map<std::pair<quint32, quint8>, QString> mUnits;  // by unit id and sub-device
  QString mHardwareId;                                   // whose they are
  QString mHardwareIdLabel;
};
