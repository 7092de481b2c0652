#include "CMigrationTable.h"
#include "Command.h"
#include "NSafeWrite.h"

namespace {

/// How much of a draft is left to its reader.
QString countsOf(const CMigrationTable& table) {
  int questions = 0;
  int proposals = 0;
  for (const SMigrationRule& rule : table.rules)
    if (rule.isProposal)
      ++proposals;
    else if (!rule.question.isNull())
      ++questions;
  return Tool::tr("rules %1, questions %2, proposals %3")
      .arg(table.rules.size() - questions - proposals)
      .arg(questions)
      .arg(proposals);
}

EExitStatus print(const CMigrationTable& table, COutput& out) {
  QByteArray text;
  QString error;
  if (!table.save(text, error)) {
    out.message(error);
    return ExitFile;
  }
  for (const QString& line : QString::fromUtf8(text.trimmed()).split(QLatin1Char('\n')))
    out.line(out.exact(line));
  return ExitDone;
}

EExitStatus write(const CMigrationTable& table, const QString& fileName, COutput& out) {
  const bool isSaved = NSafeWrite::run(fileName, out, [&table, &fileName] {
    QString error;
    table.save(fileName, error);
    return error;
  });
  if (!isSaved) return ExitFile;
  out.line(countsOf(table));
  return ExitDone;
}

EExitStatus draft(const CInvocation& invocation, COutput& out) {
  CLoadedFile oldFile(out);
  CLoadedFile newFile(out);
  const QString output = invocation.value(NOptions::kOutput);
  if (!output.isEmpty() && !oldFile.lock(output, invocation)) return ExitFile;
  const bool hasOld = oldFile.load(invocation.argument(0), SFileInfo::Definitions);
  if (!newFile.load(invocation.argument(1), SFileInfo::Definitions) || !hasOld) return ExitFile;
  if (!output.isEmpty() && !SFileInfo::mayReplace(output, SFileInfo::Unknown, out)) return ExitFile;
  out.doing(Tool::tr("Comparing …"));
  const CMigrationTable table = CMigrationTable::draft(oldFile.file(), newFile.file());
  return output.isEmpty() ? print(table, out) : write(table, output, out);
}

}  // namespace

QVector<SCommand> migrationCommands() {
  return {{"migration draft",
           Tool::tr("Draft a table that migrates values to other definitions."),
           Tool::tr("Definitions with another name or id, and choices and bits with other numbers, "
                    "become rules. What only looks like a rename or another unit becomes a "
                    "comment with the reason: take it out of the comment to use it. All else that "
                    "changes what values mean, or loses them, becomes a question."),
           {{"OLD", Tool::tr("The definition file of the values as they are."), EWord::File},
            {"NEW", Tool::tr("The definition file that they will have."), EWord::File}},
           {NOptions::output(Tool::tr("Write the table to this file and print how much is open; "
                                      "without it, print the table.")),
            NOptions::noWait()},
           {"migration draft Release1.xpdef Release2.xpdef -o Release2.xmig"},
           draft}};
}
