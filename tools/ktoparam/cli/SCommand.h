#pragma once

#include <QStringList>
#include <QVector>

class CInvocation;
class COutput;

/// Exit codes. If several apply, the highest wins.
enum EExitStatus {
  ExitDone = 0,
  ExitFindings = 1,  ///< findings, differences, or something that was refused
  ExitUsage = 2,     ///< a command line that makes no sense
  ExitFile = 3,      ///< a file could not be read or written, or results were cut off
};

/// What a word on the command line means; tells how to complete it.
enum class EWord { Text, File, HardwareId, SubDevice, Parameter, Assignment };

/// A word that a command expects, by its place. Only the last ones may be missing, and the
/// last one may be repeated.
struct SArgument {
  enum ECount { One, OneOrMore, AnyNumber, NoneOrOne };

  bool mayBeMissing() const { return count == AnyNumber || count == NoneOrOne; }
  bool mayRepeat() const { return count == AnyNumber || count == OneOrMore; }

  QString name;
  QString help;
  EWord word = EWord::Text;
  ECount count = One;
};

/// An option "--name", followed by a value unless valueName is empty.
struct SOption {
  QString name;
  QString valueName;
  QString help;
  EWord word = EWord::Text;
  QString letter = {};  ///< for "-o" as well as "--name"; may be empty
  bool isRequired = false;
  QStringList choices = {};  ///< all values that make sense, where they are few
  bool mayRepeat = false;
};

/// A command of the tool. Parsing, help, manual page and completion are made from these records.
struct SCommand {
  QString name;     ///< one word, or two: "show", "hardware-id list"
  QString summary;  ///< one line; empty for a command that users are not shown
  QString details;  ///< paragraphs, separated by line breaks
  QVector<SArgument> arguments;
  QVector<SOption> options;  ///< "--help" is added to these
  QStringList examples;      ///< what to type after "ktoparam"
  EExitStatus (*run)(const CInvocation&, COutput&) = nullptr;

  QStringList words() const { return name.split(QLatin1Char(' ')); }
  /// Null for an argument too many.
  const SArgument* argumentAt(int place) const;
  /// For "--output" and "-o"; null when there is no such option.
  const SOption* option(const QString& dashedName) const;

  /// The command whose name the words begin with; null when there is none.
  static const SCommand* find(const QVector<SCommand>& commands, const QStringList& words);
};
