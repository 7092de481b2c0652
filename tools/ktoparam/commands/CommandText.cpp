#include "CSubjectLines.h"
#include "Command.h"
#include "Views.h"

namespace {

EExitStatus text(const CInvocation& invocation, COutput& out) {
  CLoadedFile loaded(out);
  if (!loaded.loadAny(invocation.argument(0))) return ExitFile;
  CSubjectLines lines(out);
  lines.addHead(loaded);
  switch (loaded.info().kind) {
    case SFileInfo::Definitions:
      NViews::addDefinitions(loaded, lines);
      break;
    case SFileInfo::Values:
      NViews::addValues(loaded, lines);
      break;
    case SFileInfo::Settings:
      NViews::addSettings(loaded, lines);
      break;
    default:
      NViews::addCompensation(loaded, lines);
  }
  return ExitDone;
}

}  // namespace

QVector<SCommand> textCommands() {
  return {
      {QStringLiteral("text"),
       Tool::tr("Print a file as lines that can be compared."),
       Tool::tr("Each value has a line of its own with all that tells where it belongs, so that "
                "any tool that compares lines shows what changed. The date, which each save "
                "renews, is left out.\n"
                "git uses it with: git config diff.ktoparam.textconv "
                "\"ktoparam text\", and in .gitattributes: *.xparam diff=ktoparam"),
       {{QStringLiteral("FILE"), Tool::tr("A file of any kind."), EWord::File}},
       {},
       {QStringLiteral("text TwoAxisDrive.xparam")},
       text}};
}
