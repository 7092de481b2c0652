#pragma once

#include "CParsedWords.h"
#include "NOptions.h"

#include <optional>

class COutput;
class CTable;
class QJsonObject;

/// The command line of one command, checked.
class CInvocation : public CParsedWords {
 public:
  using CParsedWords::CParsedWords;

  /// False, with a message, when the words make no sense.
  bool check(COutput& out) const;

  bool wantsHelp() const { return isSet(QLatin1String("help")); }
  bool wantsJson() const { return isSet(NOptions::kJson); }
  /// Whether to look for a definition file that nobody named.
  bool findsDefinitions() const;
  bool isDryRun() const { return isSet(NOptions::kDryRun); }

  /// By place; empty beyond the last one.
  QString argument(int place) const { return arguments().value(place); }
  QStringList argumentsFrom(int place) const { return arguments().mid(place); }

  /// An option that names a sub-device, nothing when it is not given.
  std::optional<quint8> subDevice(QLatin1String option = NOptions::kSubDevice) const {
    return toSubDevice(value(option));
  }
  /// The same for an argument that must be there.
  quint8 subDeviceAt(int place) const { return toSubDevice(argument(place)).value_or(0); }
  static std::optional<quint8> toSubDevice(const QString& text);

  /// Wrong usage: reports it, with where to find help.
  EExitStatus wrongUsage(const QString& text, COutput& out) const;

  /// Prints the JSON object where it is asked for; else the table, and whether it was a dry run.
  void print(const CTable& table, const QJsonObject& json, COutput& out) const;
  /// Tells that nothing was saved, when it was a dry run.
  void noteDryRun(COutput& out) const;

 private:
  QString argumentProblem() const;
  QString subDeviceProblem() const;
  QString missingOption() const;
  QString contradiction() const;
  QString emptyFileName() const;
};
