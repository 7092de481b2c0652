#include "CCompletion.h"

#include "CParsedWords.h"
#include "NShortText.h"
#include "UniqueNames.h"

#include <QDir>

#include <algorithm>

namespace {

const QLatin1String kDashes("--");

/// The shell does this to unquoted words only; one that is quoted names no such file.
QString withHome(const QString& fileName) {
  return fileName.startsWith(QLatin1String("~/")) ? QDir::homePath() + fileName.mid(1) : fileName;
}

bool isOneLine(const QString& text) {
  return std::none_of(text.cbegin(), text.cend(),
                      [](QChar c) { return c.category() == QChar::Other_Control; });
}

}  // namespace

CCompletion::CCompletion(const QVector<SCommand>& commands, const CShellLine& line) : mLine(line) {
  const QStringList words = line.before().mid(1);
  if (const SCommand* command = SCommand::find(commands, words))
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
  if (!option && typed().startsWith(kDashes) && sign > 0) {
    option = command.option(typed().left(sign));
    mLead = typed().left(sign + 1);
  }
  if (option) {
    mWord = option->word;
    mChoices = option->choices;
  } else if (typed().startsWith(QLatin1Char('-'))) {
    for (const SOption& each : command.options)
      if (!before.isSet(each.name)) mChoices.append(kDashes + each.name);
    mChoices.append("--help");
  } else if (const SArgument* argument = command.argumentAt(before.arguments().size())) {
    mWord = argument->word;
  }
}

QStringList CCompletion::replacements(const QStringList& candidates) const {
  QStringList words;
  for (const QString& candidate : candidates) {
    const QString whole = mLead + candidate;
    // One that would be shortened when shown would not be the word any more.
    const bool isShown = candidate.size() <= NShortText::kLongest && isOneLine(whole);
    if (whole.startsWith(typed()) && isShown) words.append(mLine.replacement(whole));
  }
  return uniqueNames(words);
}
