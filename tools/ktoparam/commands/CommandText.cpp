#include "CSubjectLines.h"
#include "Command.h"
#include "Views.h"

namespace {

EExitStatus printLines(const QString& fileName, const QString& lead, COutput& out) {
  CLoadedFile loaded(out);
  if (!loaded.load(fileName)) return ExitFile;
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
  return ExitDone;
}

EExitStatus text(const CInvocation& invocation, COutput& out) {
  const QStringList names = invocation.argumentsFrom(0);
  const auto print = [&](int i) {
    return printLines(names.at(i), names.size() > 1 ? names.at(i) + QLatin1String(": ") : QString(),
                      out);
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
                "any tool that compares lines shows what changed. The date, which each save "
                "renews, is left out. Of several files, each line begins with the file's "
                "name.\ngit uses it with: git config diff.ktoparam.textconv "
                "\"ktoparam text\", and in .gitattributes: *.xparam diff=ktoparam"),
       {{"FILE", Tool::tr("Files of any kind."), EWord::File, SArgument::OneOrMore}},
       {},
       {"text TwoAxisDrive.xparam"},
       text}};
}
