#pragma once

#include "CParamValueRules.h"

#include <QMap>
#include <QPair>
#include <QStringList>
#include <QVector>

#include <optional>

class CLoadedFile;
class ICParameterFile;

/// A new value for a parameter. What is typed is given; the rest is found out.
struct SAssignment {
  QString name;
  QString text;
  quint8 subDevId = 0;
  CParamVal oldValue;
  CParamVal newValue;
  bool isChange = false;  ///< the new value is known and is not the old one
  /// These judge the new value; nothing when it is not known.
  std::optional<CParamValueRules> rules;
};

/// The assignments of one command line to the active hardware id: all of them are checked, then
/// all are made or none.
class CAssignments {
 public:
  CAssignments(CLoadedFile& loaded, const QVector<SAssignment>& assignments);

  /// Reports everything that is wrong. With definitions, what CParamValueRules
  /// judges is checked; its warnings are reported and do not count.
  bool check(std::optional<quint8> subDevice);
  bool hasChanges() const;
  /// To be called after a good check().
  void make();

  const QVector<SAssignment>& all() const { return mAssignments; }

 private:
  bool refuse(const SAssignment& assignment, const QString& problem) const;
  bool refuseUnknown(const SAssignment& assignment);
  bool locate(SAssignment& assignment, std::optional<quint8> subDevice);
  bool convert(SAssignment& assignment);
  bool judge(const SAssignment& assignment) const;

  CLoadedFile& mLoaded;
  ICParameterFile& mFile;
  QVector<SAssignment> mAssignments;
  QMap<QPair<quint8, QString>, CParamVal> mNewValues;
  QStringList mKnownNames;  // filled for the first unknown name
  int mUnknown = 0;
};
