#include "CCommandTable.h"

#include "CCompletion.h"
#include "CInvocation.h"
#include "COutput.h"
#include "Commands.h"
#include "Help.h"
#include "Suggestion.h"
#include "Tool.h"

namespace {

QStringList wordsOf(const SCommand& command) {
  return command.name.split(QLatin1Char(' '));
}

bool asksForHelp(const QString& word) {
  return word == QLatin1String("--help") || word == QLatin1String("-h");
}

}  // namespace

CCommandTable::CCommandTable()
    : mCommands(detectCommands() + showCommands() + getCommands() + setCommands() +
                hardwareIdCommands() + subDeviceCommands() + importCommands() + defaultsCommands() +
                newCommands() + checkCommands() + diffCommands() + exportCommands() +
                searchCommands() + mergeCommands() + textCommands() + motorsCommands() +
                compensationCommands()) {}

EExitStatus CCommandTable::run(const QStringList& words, COutput& out) const {
  const QString first = words.value(0);
  if (first == QLatin1String("help") || asksForHelp(first)) return help(words.mid(1), out);
  if (first == QLatin1String("--version")) {
    out.line(QStringLiteral("ktoparam %1").arg(QCoreApplication::applicationVersion()));
    return ExitDone;
  }
  if (first == QLatin1String("complete")) return complete(words, out);
  if (const SCommand* command = find(words))
    return runCommand(*command, words.mid(wordsOf(*command).size()), out);
  if (words.size() > 1 && asksForHelp(words.at(1))) return help({first}, out);
  return unknown(words, out);
}

const SCommand* CCommandTable::find(const QStringList& words) const {
  for (const SCommand& command : mCommands) {
    const QStringList name = wordsOf(command);
    if (words.mid(0, name.size()) == name) return &command;
  }
  return nullptr;
}

QVector<SCommand> CCommandTable::family(const QString& firstWord) const {
  QVector<SCommand> found;
  for (const SCommand& command : mCommands)
    if (wordsOf(command).first() == firstWord) found.append(command);
  return found;
}

QStringList CCommandTable::firstWords() const {
  QStringList found;
  for (const SCommand& command : mCommands) found.append(wordsOf(command).first());
  found.removeDuplicates();
  return found;
}

EExitStatus CCommandTable::complete(const QStringList& words, COutput& out) const {
  const CCompletion completion(mCommands,
                               CShellLine(words.value(1), words.value(2), words.value(3)));
  out.line(completion.wantsFile() ? QStringLiteral("files") : QStringLiteral("words"));
  for (const QString& replacement : completion.replacements(out)) out.line(replacement);
  return ExitDone;
}

EExitStatus CCommandTable::help(const QStringList& words, COutput& out) const {
  if (words.isEmpty()) {
    Help::printOverview(mCommands, out);
    return ExitDone;
  }
  const SCommand* command = find(words);
  const QVector<SCommand> found = command ? QVector<SCommand>{*command} : family(words.first());
  if (found.isEmpty()) return unknown(words, out);
  for (int i = 0; i < found.size(); ++i) {
    if (i > 0) out.line({});
    Help::printCommand(found.at(i), out);
  }
  return ExitDone;
}

EExitStatus CCommandTable::runCommand(const SCommand& command, const QStringList& words,
                                      COutput& out) const {
  CInvocation invocation(command);
  if (!invocation.parse(words, out)) return ExitUsage;
  if (!invocation.wantsHelp()) return command.run(invocation, out);
  Help::printCommand(command, out);
  return ExitDone;
}

EExitStatus CCommandTable::unknown(const QStringList& words, COutput& out) const {
  if (words.isEmpty()) {
    out.message(Tool::tr("A command is missing. See \"ktoparam help\"."));
    return ExitUsage;
  }
  const QString& first = words.first();
  QStringList actions;
  for (const SCommand& command : family(first)) actions.append(wordsOf(command).last());
  if (!actions.isEmpty()) {
    out.message(first, Tool::tr("One of these must follow: %1.%2 See \"ktoparam help %3\".")
                           .arg(actions.join(QLatin1String(", ")),
                                Suggestion::didYouMean(words.value(1), actions), first));
  } else if (first.startsWith(QLatin1Char('-'))) {
    out.message(Tool::tr("A command must stand before \"%1\". See \"ktoparam help\".").arg(first));
  } else {
    out.message(Tool::tr("\"%1\" is no command.%2 See \"ktoparam help\".")
                    .arg(first, Suggestion::didYouMean(
                                    first, firstWords() + QStringList(QStringLiteral("help")))));
  }
  return ExitUsage;
}
