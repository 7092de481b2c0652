#include "CCommandTable.h"

#include "CInvocation.h"
#include "COutput.h"
#include "NHelp.h"
#include "NSuggestion.h"
#include "Tool.h"

namespace {

bool asksForHelp(const QString& word) {
  return word == QLatin1String("--help") || word == QLatin1String("-h");
}

}  // namespace

EExitStatus CCommandTable::run(const QStringList& words, COutput& out) const {
  const QString first = words.value(0);
  if (first == QLatin1String("help") || asksForHelp(first)) return help(words.mid(1), out);
  if (first == QLatin1String("--version")) {
    out.line(QStringLiteral("ktoparam %1").arg(QCoreApplication::applicationVersion()));
    return ExitDone;
  }
  if (first == mHidden.name) return runCommand(mHidden, words.mid(1), out);
  if (const SCommand* command = SCommand::find(mCommands, words))
    return runCommand(*command, words.mid(command->words().size()), out);
  if (words.size() > 1 && asksForHelp(words.at(1))) return help({first}, out);
  return unknown(words, out);
}

QVector<SCommand> CCommandTable::family(const QString& firstWord) const {
  QVector<SCommand> found;
  for (const SCommand& command : mCommands)
    if (command.words().first() == firstWord) found.append(command);
  return found;
}

EExitStatus CCommandTable::help(const QStringList& words, COutput& out) const {
  if (words.isEmpty()) {
    NHelp::printOverview(mCommands, out);
    return ExitDone;
  }
  const SCommand* command = SCommand::find(mCommands, words);
  const QVector<SCommand> found = command ? QVector<SCommand>{*command} : family(words.first());
  if (found.isEmpty()) return unknown(words, out);
  for (int i = 0; i < found.size(); ++i) {
    if (i > 0) out.line({});
    NHelp::printCommand(found.at(i), out);
  }
  return ExitDone;
}

EExitStatus CCommandTable::runCommand(const SCommand& command, const QStringList& words,
                                      COutput& out) {
  const CInvocation invocation(command, words);
  if (!invocation.check(out)) return ExitUsage;
  if (!invocation.wantsHelp()) return command.run(invocation, out);
  NHelp::printCommand(command, out);
  return ExitDone;
}

EExitStatus CCommandTable::unknown(const QStringList& words, COutput& out) const {
  if (words.isEmpty()) {
    out.message(Tool::tr("A command is missing. See \"ktoparam help\"."));
    return ExitUsage;
  }
  const QString& first = words.first();
  QStringList actions;
  for (const SCommand& command : family(first)) actions.append(command.words().last());
  QStringList known;
  for (const SCommand& command : mCommands) known.append(command.words().first());
  known.append("help");
  known.removeDuplicates();
  if (!actions.isEmpty()) {
    out.message(first, Tool::tr("One of these must follow: %1.%2 See \"ktoparam help %3\".")
                           .arg(actions.join(QLatin1String(", ")),
                                NSuggestion::didYouMean(words.value(1), actions), first));
  } else if (first.startsWith(QLatin1Char('-'))) {
    out.message(Tool::tr("A command must come before \"%1\". See \"ktoparam help\".").arg(first));
  } else {
    out.message(Tool::tr("\"%1\" is not a command.%2 See \"ktoparam help\".")
                    .arg(first, NSuggestion::didYouMean(first, known)));
  }
  return ExitUsage;
}
