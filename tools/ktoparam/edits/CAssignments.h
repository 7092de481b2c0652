#pragma once

#include "CParamValueRules.h"
#include "SAddress.h"

#include <QMap>
#include <QPair>
#include <QStringList>
#include <QVector>

#include <map>
#include <optional>

class CLoadedFile;
class COutput;
class ICParameterFile;

/// A new value for a parameter. What is wanted is given; the rest is found out.
struct SAssignment {
  QString name;
  QString text;
  QString hardwareId;                     ///< empty for the active one
  std::optional<quint8> wantedSubDevice;  ///< nothing for the only one that has the parameter
  std::optional<SAddress> address;        ///< where it has to be, instead of a sub-device
  QString file;                           ///< of a row of a table: where it is
  int line = 0;                           ///< likewise; 0 for what was typed

  quint8 subDevId = 0;
  CParamVal oldValue;
  CParamVal newValue;     ///< null while it is not known
  bool isJudged = false;  ///< what is wrong with it has been told
  bool isChange = false;  ///< the new value is known and is not the old one

  /// A row that has the value of its parameter is no edit, so that nothing is said against it.
  bool isRow() const { return line > 0; }
};

/// Assignments to parameters of one or several hardware ids: all of them are checked, then all are
/// made or none. The active hardware id stays.
class CAssignments {
 public:
  CAssignments(CLoadedFile& loaded, const QVector<SAssignment>& assignments, COutput& out);

  /// Reports everything that is wrong. With definitions, what CParamValueRules judges is checked;
  /// its warnings are reported and do not count. Two values for one parameter are wrong.
  /// Definitions that nobody named decide nothing: values stay as they are typed, and what is wrong
  /// with them is a warning.
  bool check();
  bool hasChanges() const;
  /// To be called after a good check().
  void make();

  /// With the hardware ids, sub-devices and values that check() found.
  const QVector<SAssignment>& all() const { return mAssignments; }

 private:
  using CPlaces = QMap<QPair<quint8, QString>, int>;  // by sub-device and name

  bool refuse(const SAssignment& assignment, const QString& problem) const;
  bool object(const SAssignment& assignment, const QString& problem) const;
  bool refuseUnknown(const SAssignment& assignment);
  bool refuseHardwareId(const SAssignment& assignment);
  bool select(const SAssignment& assignment);
  bool locate(SAssignment& assignment);
  bool isInGroups(const SAssignment& assignment) const;
  bool convert(SAssignment& assignment);
  bool readAsDefined(SAssignment& assignment, const CParamDefItem& definition, CParamVal& value);
  bool note(int place);
  bool judge(const SAssignment& assignment);
  const CParamValueRules& rulesOf(const CParamDefItem& definition);
  QString choiceHelp(const SAssignment& assignment);
  bool mayHelp();

  CLoadedFile& mLoaded;
  ICParameterFile& mFile;
  COutput& mOut;
  QVector<SAssignment> mAssignments;
  std::map<QString, CPlaces> mPlaces;          // by hardware id, of those with a known value
  std::map<QString, CParamValueRules> mRules;  // by name
  std::map<QString, QStringList> mKnownNames;  // by hardware id, where a name is unknown
  int mHelped = 0;
};
