#include "NHelp.h"

#include "COutput.h"
#include "NDisplayText.h"
#include "Tool.h"
#include "Wrapped.h"

namespace {

constexpr int kColumns = 80;
const QLatin1String kIndent("  ");

/// The left and the right column of a list of arguments, options or commands.
using CEntries = QVector<QPair<QString, QString>>;

QString argumentSyntax(const SArgument& argument) {
  const QString words = argument.mayRepeat() ? argument.name + "…" : argument.name;
  return argument.mayBeMissing() ? QStringLiteral("[%1]").arg(words) : words;
}

// The first line begins after `left`, the others below it.
void printWrapped(const QString& left, const QString& text, COutput& out) {
  const QString indent(NDisplayText::width(left), QLatin1Char(' '));
  QString lead = left;
  for (const QString& line : wrapped(text, kColumns - indent.size())) {
    out.line(lead + line);
    lead = indent;
  }
}

void printEntries(const QString& heading, const CEntries& entries, COutput& out) {
  if (entries.isEmpty()) return;
  int widest = 0;
  for (const auto& entry : entries) widest = qMax(widest, NDisplayText::width(entry.first));
  out.line({});
  out.line(heading);
  for (const auto& entry : entries) {
    const QString gap(widest - NDisplayText::width(entry.first) + 2, QLatin1Char(' '));
    printWrapped(kIndent + entry.first + gap, entry.second, out);
  }
}

void printParagraphs(const QString& text, COutput& out) {
  if (text.isEmpty()) return;
  out.line({});
  for (const QString& paragraph : text.split(QLatin1Char('\n'))) printWrapped({}, paragraph, out);
}

}  // namespace

QString NHelp::optionSyntax(const SOption& option) {
  const QString letter =
      option.letter.isEmpty() ? QString() : QStringLiteral("-%1, ").arg(option.letter);
  const QString dashed = letter + "--" + option.name;
  return option.valueName.isEmpty() ? dashed : dashed + QLatin1Char(' ') + option.valueName;
}

QString NHelp::syntax(const SCommand& command) {
  QStringList words(command.name);
  for (const SArgument& argument : command.arguments) words.append(argumentSyntax(argument));
  bool hasMore = false;
  for (const SOption& option : command.options) {
    if (option.isRequired)
      words.append(QStringLiteral("--%1 %2").arg(option.name, option.valueName));
    hasMore = hasMore || !option.isRequired;
  }
  if (hasMore) words.append(Tool::tr("[options]"));
  return words.join(QLatin1Char(' '));
}

void NHelp::printOverview(const QVector<SCommand>& commands, COutput& out) {
  out.line(Tool::tr("ktoparam shows and edits the parameter files of servo drives."));
  out.line({});
  out.line(Tool::tr("Usage: ktoparam COMMAND [options] FILE…"));
  CEntries entries;
  for (const SCommand& command : commands) entries.append({command.name, command.summary});
  entries.append({"help [COMMAND]", Tool::tr("Tell more about a command.")});
  entries.append({"--version", Tool::tr("Print the version of this program.")});
  printEntries(Tool::tr("Commands:"), entries, out);
  const CEntries states = {{"0", Tool::tr("done")},
                           {"1", Tool::tr("findings, differences, or something that was refused")},
                           {"2", Tool::tr("wrong usage")},
                           {"3", Tool::tr("a file could not be read or written")}};
  printEntries(Tool::tr("Exit status:"), states, out);
}

void NHelp::printCommand(const SCommand& command, COutput& out) {
  out.line(QStringLiteral("ktoparam %1").arg(syntax(command)));
  printWrapped(kIndent, command.summary, out);
  printParagraphs(command.details, out);
  CEntries arguments;
  for (const SArgument& each : command.arguments) arguments.append({each.name, each.help});
  printEntries(Tool::tr("Arguments:"), arguments, out);
  CEntries options;
  for (const SOption& each : command.options) options.append({optionSyntax(each), each.help});
  options.append({"-h, --help", Tool::tr("Print this help.")});
  printEntries(Tool::tr("Options:"), options, out);
  out.line({});
  out.line(Tool::tr("Example:"));
  for (const QString& example : command.examples) out.line(kIndent + "ktoparam " + example);
}
