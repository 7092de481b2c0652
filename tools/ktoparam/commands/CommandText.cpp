#include "CSubjectLines.h"
#include "Command.h"
#include "Views.h"

#include <QFile>
#include <QTextStream>

namespace {

const QLatin1String kTextconv("textconv");

void addLines(const CLoadedFile& loaded, const QString& lead, COutput& out) {
  CSubjectLines lines(out, lead);
  lines.addHead(loaded);
  const SFileInfo::EKind kind = loaded.info().kind;
  if (kind == SFileInfo::Definitions)
    NViews::addDefinitions(loaded, lines);
  else if (kind == SFileInfo::Values)
    NViews::addValues(loaded, lines);
  else if (kind == SFileInfo::Settings)
    NViews::addSettings(loaded, lines);
  else
    NViews::addCompensation(loaded, lines);
}

EExitStatus printLines(const QString& fileName, const QString& lead, COutput& out) {
  CLoadedFile loaded(out);
  if (!loaded.load(fileName)) return ExitFile;
  addLines(loaded, lead, out);
  return ExitDone;
}

/// Lines of text as they are, whatever they are.
void printContent(const QString& fileName, const QString& lead, COutput& out) {
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly)) return;
  QTextStream lines(&file);
  lines.setCodec("UTF-8");  // unless a byte order mark tells another
  const QByteArray beginning = file.peek(2);
  if (beginning == QByteArray("<\0", 2)) lines.setCodec("UTF-16LE");
  if (beginning == QByteArray("\0<", 2)) lines.setCodec("UTF-16BE");
  for (QString line; lines.readLineInto(&line);) out.line(NDisplayText::escaped(lead + line));
}

/// git gives up where one version in a history cannot be shown. So any file is, with what is wrong
/// with it in front.
EExitStatus printAnyway(const QString& fileName, const QString& lead, COutput& out) {
  const std::optional<SFileInfo> info = SFileInfo::read(fileName, out);
  if (!info) return ExitFile;
  CLoadedFile loaded(out);
  const std::optional<SLoadProblem> problem = info->kind == SFileInfo::Unknown
                                                  ? SLoadProblem{info->reason, 0}
                                                  : loaded.tryLoad(fileName, *info);
  if (!problem) {
    addLines(loaded, lead, out);
    return ExitDone;
  }
  const QString reason =
      problem->line > 0 ? Tool::tr("Line %1: %2").arg(QString::number(problem->line), problem->text)
                        : problem->text;
  out.line(NDisplayText::escaped(lead + Tool::tr("This file cannot be read: %1").arg(reason)));
  printContent(fileName, lead, out);
  return ExitDone;
}

EExitStatus text(const CInvocation& invocation, COutput& out) {
  const QStringList names = invocation.argumentsFrom(0);
  const bool isTextconv = invocation.isSet(kTextconv);
  if (isTextconv) out.mayBeCut();
  const auto print = [&](int i) {
    const QString& name = names.at(i);
    const QString lead = names.size() > 1 ? name + QLatin1String(": ") : QString();
    return isTextconv ? printAnyway(name, lead, out) : printLines(name, lead, out);
  };
  EExitStatus status = ExitDone;
  inOrder(names.size(), out, print, [&](int, EExitStatus ofFile) {
    status = qMax(status, ofFile);
    return true;
  });
  return status;
}

}  // namespace

QVector<SCommand> textCommands() {
  return {
      {"text",
       Tool::tr("Print files as lines that can be compared."),
       Tool::tr("Each value has a line of its own with all that tells where it belongs, so that "
                "any tool that compares lines shows what changed. Files of different content never "
                "give the same lines: names are quoted, as in JSON, where they would mislead. Ids "
                "come last. The date, which each save renews, is left out. Of several files, each "
                "line begins with the file's name.\ngit uses it with *.xparam diff=ktoparam in "
                ".gitattributes, and once in each clone:\n"
                "git config diff.ktoparam.textconv \"ktoparam text --textconv --\""),
       {{"FILE", Tool::tr("Files of any kind."), EWord::File, SArgument::OneOrMore}},
       {{kTextconv,
         {},
         Tool::tr("For git: of a file that cannot be read, print why and then its content, and "
                  "exit with 0.")}},
       {"text TwoAxisDrive.xparam"},
       text}};
}
