#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

class CInvocation;
class COutput;

/// How the tool ends. A command that meets several of these ends with the highest.
enum EExitStatus {
  ExitDone = 0,
  ExitFindings = 1,  ///< findings, differences, or something that was refused
  ExitUsage = 2,     ///< a command line that makes no sense
  ExitFile = 3,      ///< a file could not be read or written, or results were cut off
};

/// What a word on the command line stands for, from which follows how it can be completed.
enum class EWord { Text, File, HardwareId, SubDevice, Parameter, Assignment };

/// A word that a command expects, by its place. Only the last one may be missing or there more
/// than once.
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
  QString letter = {};  ///< for "-o" beside "--name"; may be empty
  bool isRequired = false;
  QStringList choices = {};  ///< all values that make sense, where they are few
};

/// A command of the tool. Parsing and help are made from these records and from nothing else.
struct SCommand {
  QString name;     ///< one word, or two: "show", "hardware-id list"
  QString summary;  ///< one line
  QString details;  ///< paragraphs, separated by line breaks
  QVector<SArgument> arguments;
  QVector<SOption> options;  ///< "--help" is added to these
  QStringList examples;      ///< what to type after "ktoparam"
  EExitStatus (*run)(const CInvocation&, COutput&) = nullptr;
};
