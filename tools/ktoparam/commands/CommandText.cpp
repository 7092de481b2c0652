#include "CSubjectLines.h"
#include "Command.h"
#include "Views.h"

namespace {

EExitStatus text(const CInvocation& invocation, COutput& out) {
  CLoadedFile loaded(out);
  if (!loaded.load(invocation.argument(0))) return ExitFile;
  CSubjectLines lines(out);
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

}  // namespace

QVector<SCommand> textCommands() {
  return {
      {"text",
       Tool::tr("Print a file as lines that can be compared."),
       Tool::tr("Each value has a line of its own with all that tells where it belongs, so that "
                "any tool that compares lines shows what changed. The date, which each save "
                "renews, is left out.\ngit uses it with: git config diff.ktoparam.textconv "
                "\"ktoparam text\", and in .gitattributes: *.xparam diff=ktoparam"),
       {{"FILE", Tool::tr("A file of any kind."), EWord::File}},
       {},
       {"text TwoAxisDrive.xparam"},
       text}};
}
