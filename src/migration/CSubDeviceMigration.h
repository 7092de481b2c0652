#pragma once

#include "CDirectedTable.h"
#include "CSubDeviceTree.h"
#include "SMigrationStep.h"

#include <QCoreApplication>

#include <set>
#include <vector>

/// What one table finds when it takes values from release to release.
struct SMigrationInput {
  CDirectedTable& table;
  const QMap<QString, QString>& answers;  ///< by the name after the table
  /// Parameters that were answered about at an earlier table; they keep the answer.
  const std::set<const CParamTreeNodeImpl*>& answered;
  bool isLast = true;                  ///< no other table follows
  CDirectedTable* opposite = nullptr;  ///< to see what comes back; null: nobody wants to know
};

/// What becomes of a node.
struct SMigratedNode {
  static constexpr int kNone = -1;

  const CParamTreeNodeImpl* node = nullptr;
  int group = kNone;                      ///< the entry of its group; kNone for the root
  const SDirectedParam* param = nullptr;  ///< null for a group
  int tableGroup = CDirectedTable::kNoGroup;
  QString path;            ///< of a group before, as SMigrationStep has it
  QString newName;         ///< of a group; null: it keeps its name
  QString value;           ///< null: it keeps its text
  bool isRenamed = false;  ///< of a parameter
  bool isKept = false;     ///< as it is, whatever its rule says
  bool isAnswered = false;
  bool wantsMove = false;
  bool isMoved = false;
  bool isDropped = false;
  CParamTreeNodeImpl* placed = nullptr;  ///< in the new tree
  std::vector<SMigrationStep> steps;     ///< several where it moves to several sub-devices

  bool isGroup() const { return param == nullptr; }
  bool stays() const { return !isMoved && !isDropped; }
};

/// Takes one sub-device through a table: what becomes of each node, and then the new tree. What
/// moves from and to other sub-devices is settled by CHardwareMigration.
class CSubDeviceMigration {
  Q_DECLARE_TR_FUNCTIONS(CParameterMigration)

 public:
  CSubDeviceMigration(const CSubDeviceTree& tree, NParamDef::ESubDeviceTypes type,
                      const SMigrationInput& input);

  quint8 subDevId() const { return mBefore.subDevId(); }
  NParamDef::ESubDeviceTypes type() const { return mType; }
  const CSubDeviceTree& before() const { return mBefore; }
  CSubDeviceTree& after() { return mAfter; }
  std::vector<SMigratedNode>& nodes() { return mNodes; }
  SMigratedNode& node(int entry) { return mNodes[static_cast<size_t>(entry)]; }

  /// A human decides: its value and its place stay.
  void leaveOpen(SMigratedNode& entry, const QString& why);
  /// Likewise, and so do its name and its id.
  void keep(SMigratedNode& entry, const QString& why);
  SMigrationStep stepFor(const SMigratedNode& entry) const;

  /// Whether a parameter has the name now, or gets it.
  bool hasName(std::string_view name);
  void addName(const std::string& name) { mNames.insert(name); }
  /// The groups in which an entry lies, from the outermost inwards, by their new names.
  QStringList groupsOf(const SMigratedNode& entry) const;

  /// To be called when it is settled what moves away.
  void build();
  /// To be called when everything has come in.
  void removeEmptied();

 private:
  void read(const CParamTreeNodeImpl& group, int entry);
  void addGroup(const CParamTreeNodeImpl& group, int parent);
  void plan(SMigratedNode& entry);
  void follow(SMigratedNode& entry);
  CValueConversion::SResult newValue(SMigratedNode& entry) const;
  void settleGroups();
  void settleNames();
  void findEmptied();
  void place(SMigratedNode& entry);

  const CSubDeviceTree& mBefore;
  const NParamDef::ESubDeviceTypes mType;
  const SMigrationInput& mInput;
  std::vector<SMigratedNode> mNodes;  // in tree order, the first is the root
  std::set<int> mGroupsOfRenamed;     // in which groups are renamed
  bool mHasRenamed = false;
  CKeyedSet<std::string> mNames;  // of parameters, when they were asked for
  std::vector<int> mEmptied;      // groups of which all went elsewhere
  CSubDeviceTree mAfter;
};
