#include "Command.h"

namespace {

EExitStatus detect(const CInvocation& invocation, COutput& out) {
  EExitStatus status = ExitDone;
  QJsonArray files;
  CTable table({Tool::tr("FILE"), Tool::tr("TYPE"), Tool::tr("VERSION"), Tool::tr("COMMENT")});
  const QStringList names = invocation.argumentsFrom(0);
  const auto read = [&](int i) { return SFileInfo::read(names.at(i), out); };
  inOrder(names.size(), out, read, [&](int i, const std::optional<SFileInfo>& info) {
    const bool isKnown = info && info->kind != SFileInfo::Unknown;
    status = qMax(status, !info ? ExitFile : isKnown ? ExitDone : ExitFindings);
    if (!info) return true;
    files.append(QJsonObject{{"file", names.at(i)},
                             {"fileType", textOrNull(info->typeName)},
                             {"version", textOrNull(info->versionText())},
                             {"comment", info->comment}});
    table.addRow({NDisplayText::shown(names.at(i)), isKnown ? info->typeName : Tool::tr("unknown"),
                  info->versionText(), NDisplayText::shownOrNothing(info->comment)});
    return true;
  });
  invocation.print(table, {{"files", files}}, out);
  return status;
}

}  // namespace

QVector<SCommand> detectCommands() {
  return {{"detect",
           Tool::tr("Tell the type, the version and the comment of files."),
           Tool::tr("The type is the name of the root element, when it is that of a parameter "
                    "file. The exit status is 1 when a type is not known."),
           {{"FILE", Tool::tr("Any files."), EWord::File, SArgument::OneOrMore}},
           {NOptions::json()},
           {"detect TwoAxisDrive.xpdef TwoAxisDrive.xparam"},
           detect}};
}
