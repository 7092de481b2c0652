#pragma once

#include "CDefinitionLookup.h"
#include "CKeyedMap.h"
#include "CMigrationTable.h"
#include "SDefinitionDifference.h"

#include <QCoreApplication>

#include <memory>
#include <set>

/// Finds what is wrong with a migration table beside the definitions at its ends.
class CMigrationCheck {
  Q_DECLARE_TR_FUNCTIONS(CMigrationCheck)

 public:
  CMigrationCheck(const CMigrationTable& table, const ICParameterFile& oldDefinitions,
                  const ICParameterFile& newDefinitions);

  /// By line: first those of the table as a whole and of definitions that no rule is about.
  QList<CMigrationTable::SProblem> run();

 private:
  // Of the table.
  void checkTable();
  void checkRelease(const QString& release, const QString& comment, const QString& text);
  void checkMark();

  // Of one rule, which is mRule.
  void checkRule();
  void checkPlace();
  void checkId(const CParamDefItem& oldOne, const CParamDefItem& newOne);
  void warnOfId(const QString& oldId, const QString& newId);
  void checkValue(const CParamDefItem& oldOne, const CParamDefItem& newOne);
  void checkChoices(const CParamDefItem& oldOne, const CParamDefItem& newOne);
  void checkMerging(const std::set<qint64>& oldChoices);
  void checkBits(const CParamDefItem& oldOne, const CParamDefItem& newOne);
  void checkBit(int position, const CParamDefItem& definition, const std::set<int>& named,
                const QString& noBit, const QString& noName);

  // Of definitions.
  void checkDefinitions();
  void checkDifferences(const CDefinitionDifferences& differences);
  void checkMeaning(const SDefinitionDifference& difference, bool isCoveredElsewhere);
  std::unique_ptr<ICParameterFile> renamedDefinitions() const;

  static QString newNameOf(const SMigrationRule& rule);
  void add(const QString& text, bool isWarning = false);
  void warn(const QString& text) { add(text, true); }

  const CMigrationTable& mTable;
  const ICParameterFile& mOldFile;
  const ICParameterFile& mNewFile;
  CDefinitionLookup mOld;
  CDefinitionLookup mNew;
  CKeyedMap<QString, const SMigrationRule*> mByName;
  CKeyedMap<QString, const SMigrationRule*> mByNewName;  ///< of those that are not dropped
  const SMigrationRule* mRule = nullptr;                 ///< the one that is checked
  QString mName;                                         ///< that the messages name
  QList<CMigrationTable::SProblem> mProblems;
};
