#pragma once

#include "SCommand.h"

#include <QMap>

/// The words after a command's name, taken apart as its record says.
class CParsedWords {
 public:
  /// The command must live as long as this.
  CParsedWords(const SCommand& command, const QStringList& words);

  bool isSet(const QString& option) const { return mOptions.contains(option); }
  QString value(const QString& option, const QString& unlessGiven = {}) const {
    return mOptions.value(option, unlessGiven);
  }
  /// Of an option that may be repeated, in their order.
  QStringList values(const QString& option) const { return mValues.value(option); }
  const QStringList& arguments() const { return mArguments; }
  /// The option whose value is still missing, since its name is the last word; mostly null.
  const SOption* openOption() const { return mOpen; }
  /// Whether a further word that begins with a dash would be an option; not so after "--".
  bool mayBeOption() const { return mMayBeOption; }
  /// The values of all arguments and options that mean such a word.
  QStringList valuesOf(EWord word) const;

  /// What is wrong with the options; empty when nothing is.
  const QString& optionProblem() const { return mProblem; }

 protected:
  const SCommand& command() const { return mCommand; }

 private:
  void readOption(const QString& word);
  void setOption(const QString& name, const QString& value);
  void complain(const QString& problem);

  const SCommand& mCommand;
  QMap<QString, QString> mOptions;
  QMap<QString, QStringList> mValues;
  QStringList mArguments;
  const SOption* mOpen = nullptr;
  bool mMayBeOption = true;
  QString mProblem;
};
