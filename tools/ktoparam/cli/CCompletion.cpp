#include "CCompletion.h"

#include "CParsedWords.h"
#include "NDisplayText.h"
#include "NShortText.h"
#include "UniqueNames.h"

#include <QDir>

namespace {

const QLatin1String kDashes("--");

/// The shell does this to unquoted words only; one that is quoted names no such file.
QString withHome(const QString& fileName) {
  return fileName.startsWith(QLatin1String("~/")) ? QDir::homePath() + fileName.mid(1) : fileName;
}

}  // namespace

CCompletion::CCompletion(const QVector<SCommand>& commands, const CShellLine& line) : mLine(line) {
  const QStringList words = line.before().mid(1);
  if (line.isRedirection())
    mWord = EWord::File;
  else if (const SCommand* command = SCommand::find(commands, words))
    expect(*command);
  else
    expectCommand(commands, words);
}

void CCompletion::expectCommand(const QVector<SCommand>& commands, const QStringList& words) {
  const bool isHelp = words.value(0) == QLatin1String("help");
  const QStringList begun = words.mid(isHelp ? 1 : 0);
  for (const SCommand& command : commands) {
    const QStringList name = command.words();
    if (name.size() > begun.size() && name.mid(0, begun.size()) == begun)
      mChoices.append(name.at(begun.size()));
  }
  if (words.isEmpty()) mChoices += {"help", "--help", "--version"};
}

void CCompletion::expect(const SCommand& command) {
  const QStringList words = mLine.before().mid(1 + command.words().size());
  const CParsedWords before(command, words);
  const CParsedWords all(command, words + QStringList(typed()) + mLine.after());
  for (const QString& file : all.valuesOf(EWord::File)) mFiles.append(withHome(file));
  for (const SOption& each : command.options) mGiven.insert(each.name, all.value(each.name));

  const SOption* option = before.openOption();
  const int sign = typed().indexOf(QLatin1Char('='));
  mMayBeOption = !option && before.mayBeOption();
  if (mMayBeOption && typed().startsWith(kDashes) && sign > 0) {
    option = command.option(typed().left(sign));
    mLead = typed().left(sign + 1);
  }
  if (option) {
    mWord = option->word;
    mChoices = option->choices;
  } else if (mMayBeOption && typed().startsWith(QLatin1Char('-'))) {
    for (const SOption& each : command.options)
      if (!before.isSet(each.name) || each.mayRepeat) mChoices.append(kDashes + each.name);
    mChoices.append("--help");
  } else if (const SArgument* argument = command.argumentAt(before.arguments().size())) {
    mWord = argument->word;
  }
}

bool CCompletion::isOffered(const QString& word) const {
  // One that is not shown as it is would not be the word any more.
  const bool isShown = word.size() <= NShortText::kLongest && NDisplayText::escaped(word) == word;
  const bool isOption = mMayBeOption && typed().isEmpty() && word.startsWith(QLatin1Char('-'));
  return isShown && !isOption && !word.isEmpty();
}

QStringList CCompletion::replacements(const QStringList& candidates) const {
  QStringList words;
  for (const QString& candidate : candidates) {
    const QString whole = mLead + candidate;
    if (!whole.startsWith(typed()) || !isOffered(whole)) continue;
    const QString replacement = mLine.replacement(whole);
    if (!replacement.isNull()) words.append(replacement);
  }
  return uniqueNames(words);
}
