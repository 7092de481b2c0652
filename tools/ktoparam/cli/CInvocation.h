#pragma once

#include "CParsedWords.h"
#include "NOptions.h"

#include <optional>

class COutput;

/// The command line of one command, checked.
class CInvocation {
 public:
  /// The words after the command's name. The command must live as long as this.
  CInvocation(const SCommand& command, const QStringList& words)
      : mCommand(command), mWords(command, words) {}

  /// False, with a message, when the words make no sense.
  bool check(COutput& out) const;

  bool wantsHelp() const { return isSet(QLatin1String("help")); }
  bool wantsJson() const { return isSet(NOptions::kJson); }
  bool isDryRun() const { return isSet(NOptions::kDryRun); }

  bool isSet(QLatin1String option) const { return mWords.isSet(option); }
  QString value(QLatin1String option) const { return mWords.value(option); }
  /// By place; empty beyond the last one.
  QString argument(int place) const { return mWords.arguments().value(place); }
  QStringList argumentsFrom(int place) const { return mWords.arguments().mid(place); }

  /// An option that names a sub-device, nothing when it is not given.
  std::optional<quint8> subDevice(QLatin1String option = NOptions::kSubDevice) const {
    return toSubDevice(value(option));
  }
  /// The same for an argument that must be there.
  quint8 subDeviceAt(int place) const { return toSubDevice(argument(place)).value_or(0); }
  static std::optional<quint8> toSubDevice(const QString& text);

  /// Wrong usage: reports it, with where to find help.
  EExitStatus wrongUsage(const QString& text, COutput& out) const;

 private:
  QString problem() const;
  QString argumentProblem() const;
  QString subDeviceProblem() const;
  QString missingOption() const;
  QString emptyFileName() const;

  const SCommand& mCommand;
  const CParsedWords mWords;
};
