#pragma once

#include "CMigrationJudge.h"
#include "CParamValueFile.h"
#include "CSubDeviceMigration.h"

#include <functional>

/// Takes one hardware id through a table: its sub-devices, and what moves between them.
class CHardwareMigration {
  Q_DECLARE_TR_FUNCTIONS(CParameterMigration)

 public:
  using CTypeOf = std::function<NParamDef::ESubDeviceTypes(quint8 subDevId)>;

  CHardwareMigration(const CSubDeviceTrees& before, const CTypeOf& typeOf,
                     const SMigrationInput& input, CMigrationJudge& judge);

  /// To be called once. Nodes that were answered about are added to a list.
  CSubDeviceTrees run(std::set<const CParamTreeNodeImpl*>& answered);
  /// Without hardware id and number of the table.
  const CMigrationSteps& steps() const { return mSteps; }

 private:
  struct SSource {
    int subDevice;  // a position
    int entry;
  };
  struct SMove {
    const SDirectedParam* param;
    std::vector<SSource> sources;
    std::vector<int> targets = {};
  };
  /// A parameter in a new tree.
  struct SPlaced {
    CSubDeviceMigration* source;
    SMigratedNode* entry;
    CParamTreeNodeImpl* node;
  };

  CSubDeviceMigration& subDevice(int position) {
    return mSubDevices[static_cast<size_t>(position)];
  }
  SMigratedNode& entry(const SSource& source) {
    return subDevice(source.subDevice).node(source.entry);
  }
  std::vector<int> subDevicesOf(NParamDef::ESubDeviceTypes type) const;
  void findMoves();
  void settle(SMove& move);
  bool haveOneValue(const SMove& move);
  bool answer(const SMove& move);
  QString problemOf(SMove& move);
  void carryOut(const SMove& move);
  void addSteps(const SMove& move);
  CParamTreeNodeImpl* add(const SMove& move, int target);
  void lookBack(const CSubDeviceTrees& after);
  bool hasShape(const CParamTreeNodeImpl& before, const CParamTreeNodeImpl& again) const;
  void findPlaced();
  void judge();
  void answerNotAllowed();
  static void setAnswer(SMigrationStep& step, const QString& value);
  static std::vector<SMigrationStep>& stepsOf(const SPlaced& placed);
  QString problemOf(const SPlaced& placed, size_t subDevice);
  void collect();

  const SMigrationInput& mInput;
  const CTypeOf& mTypeOf;
  CMigrationJudge& mJudge;
  std::vector<CSubDeviceMigration> mSubDevices;
  std::vector<SMove> mMoves;
  std::vector<std::vector<SPlaced>> mPlaced;  // by sub-device
  CMigrationSteps mSteps;
};
