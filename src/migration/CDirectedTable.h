#pragma once

#include "CKeyedMap.h"
#include "CMigrationTable.h"
#include "CValueConversion.h"

#include <map>
#include <optional>
#include <string>

class ICParameterFile;

/// What a table does to one parameter, in the direction in which it is used.
struct SDirectedParam {
  using CTypes = QPair<NParamDef::ESubDeviceTypes, NParamDef::ESubDeviceTypes>;

  const SMigrationRule* rule = nullptr;  ///< null when none is about it
  QString newName;                       ///< also of what keeps its name
  std::string newNameUtf8;
  std::optional<QPair<quint32, quint32>> id;  ///< before and after
  std::optional<CTypes> move;                 ///< of the sub-devices before and after
  std::optional<CValueConversion> conversion;
  std::optional<CValueConversion> opposite;
  bool wasDefined = false;  ///< before
  bool isVanished = false;  ///< defined before, not after, and no rule is about it

  quint32 newId(quint32 stored) const { return id && stored == id->first ? id->second : stored; }
  bool idComesBack(quint32 stored) const {
    return !id || stored == id->first || stored != id->second;
  }
  bool isRenamed(const QString& name) const { return newName != name; }
};

/// A migration table and the definitions at its ends, as it is used: Back, names, groups, ids,
/// sub-devices, choices, bits and factors are taken the other way round. What it dropped is not
/// missed there, and what it replaced or asked about has no value that is known.
class CDirectedTable {
 public:
  using EDirection = CRescaling::EDirection;
  static constexpr int kNoGroup = -1;
  static constexpr int kRoot = 0;

  /// All must live as long as this.
  CDirectedTable(const CMigrationTable& table, const ICParameterFile& oldDefinitions,
                 const ICParameterFile& newDefinitions, EDirection direction);

  /// The definitions before it and after it.
  const ICParameterFile& from() const { return mFrom; }
  const ICParameterFile& to() const { return mTo; }
  bool isBack() const { return mDirection == CRescaling::Back; }

  const SDirectedParam& paramOf(std::string_view name);

  /// A group that is named in the table, by the one that it lies in, or kNoGroup.
  int groupIn(int parent, const QString& name) const;
  /// Null for a group that keeps its name, as kNoGroup does.
  QString newGroupName(int group) const;
  int groupLine(int group) const { return mGroups[static_cast<size_t>(group)].line; }

  /// Each with the name that it has after the table.
  QMap<QString, QString> byNameBefore(const QMap<QString, QString>& byNameAfter) const;

 private:
  struct SGroup {
    int parent = kNoGroup;
    QString name;
    QString newName;  // null: it keeps its name
    int line = 0;
  };
  using CGroupKey = std::pair<int, QString>;

  void readRules(const CMigrationTable& table);
  void readGroups(const CMigrationTable& table);
  void turnGroups();
  SDirectedParam directed(const QString& name) const;
  QString nameAfter(const SMigrationRule& rule) const;

  const ICParameterFile& mFrom;
  const ICParameterFile& mTo;
  const EDirection mDirection;
  std::map<QString, const SMigrationRule*> mRules;  // by name before
  CKeyedMap<std::string, SDirectedParam> mParams;   // that were asked for
  std::vector<SGroup> mGroups;                      // the first is the root
  std::map<CGroupKey, int> mPlaces;                 // by group and name before
};
