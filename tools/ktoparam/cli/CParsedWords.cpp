#include "CParsedWords.h"

#include "NSuggestion.h"
#include "Tool.h"

namespace {

const QLatin1String kHelp("help");

QString unknown(const SCommand& command, const QString& word) {
  QStringList known(kHelp);
  for (const SOption& option : command.options) known.append(option.name);
  const bool isLong = word.startsWith(QLatin1String("--"));
  const QString meant = NSuggestion::closest(word.mid(isLong ? 2 : 1), known);
  return meant.isNull()
             ? Tool::tr("There is no option \"%1\".").arg(word)
             : Tool::tr("There is no option \"%1\". Did you mean \"--%2\"?").arg(word, meant);
}

}  // namespace

CParsedWords::CParsedWords(const SCommand& command, const QStringList& words) : mCommand(command) {
  for (const QString& word : words) {
    if (mOpen) {  // a value, whatever it begins with
      setOption(mOpen->name, word);
      mOpen = nullptr;
    } else if (mMayBeOption && word == QLatin1String("--")) {
      mMayBeOption = false;
    } else if (mMayBeOption && word.size() > 1 && word.startsWith(QLatin1Char('-'))) {
      readOption(word);
    } else {
      mArguments.append(word);
    }
  }
  if (mOpen) complain(Tool::tr("%1 is missing after %2.").arg(mOpen->valueName, words.last()));
}

/// "--name", "--name=value", "-o", "-o=value" or "-ovalue".
void CParsedWords::readOption(const QString& word) {
  const bool isLong = word.startsWith(QLatin1String("--"));
  const int sign = word.indexOf(QLatin1Char('='));
  const QString name = isLong ? word.left(sign) : word.left(2);
  QString given = word.mid(isLong && sign < 0 ? word.size() : name.size());
  const bool hasValue = !given.isEmpty();
  if (given.startsWith(QLatin1Char('='))) given.remove(0, 1);

  const SOption* option = mCommand.option(name);
  const bool isHelp = name == QLatin1String("--help") || name == QLatin1String("-h");
  if (!option && !isHelp) return complain(unknown(mCommand, word.left(sign)));
  const QString key = isHelp ? kHelp : option->name;
  const bool takesValue = option && !option->valueName.isEmpty();
  if (hasValue && !takesValue) return complain(Tool::tr("--%1 takes no value.").arg(key));
  if (takesValue && !hasValue)
    mOpen = option;
  else if (takesValue)
    setOption(key, given);
  else
    mOptions.insert(key, {});
}

void CParsedWords::setOption(const QString& name, const QString& value) {
  const SOption* option = mCommand.option(QLatin1String("--") + name);
  if (isSet(name) && !option->mayRepeat) complain(Tool::tr("--%1 is given twice.").arg(name));
  mOptions.insert(name, value);
  mValues[name].append(value);
}

void CParsedWords::complain(const QString& problem) {
  if (mProblem.isEmpty()) mProblem = problem;
}

QStringList CParsedWords::valuesOf(EWord word) const {
  QStringList found;
  for (const SOption& option : mCommand.options)
    if (option.word == word) found += mValues.value(option.name);
  for (int i = 0; i < mArguments.size(); ++i) {
    const SArgument* argument = mCommand.argumentAt(i);
    if (argument && argument->word == word) found.append(mArguments.at(i));
  }
  return found;
}
