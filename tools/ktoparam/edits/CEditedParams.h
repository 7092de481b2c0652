#pragma once

#include "SEditCounts.h"

#include <map>

class CLabels;
class COutput;
class ICParamTreeNode;
class ICParameterFile;
class QJsonArray;

/// What an edit did to each parameter, by name, as a table and as JSON. Values and groups are those
/// of the active hardware ids of two files: the one before the edit and the edited one.
class CEditedParams {
 public:
  CEditedParams(ICParameterFile& before, ICParameterFile& after, const CLabels& labels)
      : mBefore(before), mAfter(after), mLabels(labels) {}

  void print(const QVector<SEditedParam>& params, COutput& out) const;
  QJsonArray toJson(const QVector<SEditedParam>& params);

 private:
  /// Null where there is none. Only what got a value, be it the same, has a new one.
  struct SValues {
    QString oldValue;
    QString newValue;

    bool areBoth() const { return !oldValue.isNull() && !newValue.isNull(); }
  };

  SValues valuesOf(const SEditedParam& param) const;
  QStringList toCells(const SEditedParam& param) const;
  QString meaning(const SEditedParam& param, const SValues& values) const;
  /// Names joined by "/", empty for the root group; null for what is in neither file.
  QString groupOf(const SEditedParam& param);
  const QString& pathOf(const ICParamTreeNode* group);  ///< null for the root

  ICParameterFile& mBefore;
  ICParameterFile& mAfter;
  const CLabels& mLabels;
  std::map<const ICParamTreeNode*, QString> mPaths;  // of the groups that were met
};
