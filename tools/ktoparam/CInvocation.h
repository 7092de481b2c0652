#pragma once

#include "CommonOptions.h"
#include "SCommand.h"

#include <QCommandLineParser>

#include <optional>

class COutput;

/// The command line of one command, taken apart as its record says.
class CInvocation {
 public:
  /// The command must live as long as this.
  explicit CInvocation(const SCommand& command);

  /// The words behind the command's name. False, with a message, when they make no sense.
  bool parse(const QStringList& words, COutput& out);

  bool wantsHelp() const { return isSet(QLatin1String("help")); }
  bool wantsJson() const { return isSet(CommonOptions::kJson); }

  /// The options of the command's record only.
  bool isSet(QLatin1String option) const { return mParser.isSet(option); }
  QString value(QLatin1String option) const { return mParser.value(option); }
  /// By place; empty beyond the last one.
  QString argument(int place) const { return mParser.positionalArguments().value(place); }
  QStringList argumentsFrom(int place) const { return mParser.positionalArguments().mid(place); }

  /// An option that names a sub-device, nothing when it is not given.
  std::optional<quint8> subDevice(QLatin1String option = CommonOptions::kSubDevice) const {
    return toSubDevice(value(option));
  }
  /// The same for an argument that must be there.
  quint8 subDeviceAt(int place) const { return toSubDevice(argument(place)).value_or(0); }

  /// Wrong usage: reports it, with where to find help.
  EExitStatus wrongUsage(const QString& text, COutput& out) const;

 private:
  QString argumentProblem() const;
  QString subDeviceProblem() const;
  static std::optional<quint8> toSubDevice(const QString& text);
  QString missingOption() const;
  QString emptyFileName() const;

  const SCommand& mCommand;
  QCommandLineParser mParser;
};
