#include "CInvocation.h"
#include "COutput.h"
#include "Commands.h"
#include "DisplayText.h"
#include "JsonTexts.h"
#include "SFileInfo.h"
#include "Show.h"
#include "Tool.h"

#include <QJsonObject>

namespace {

bool asksForValues(const CInvocation& invocation) {
  return invocation.isSet(CommonOptions::kDef) || invocation.isSet(CommonOptions::kHardwareId) ||
         invocation.isSet(CommonOptions::kSubDevice) || invocation.isSet(QLatin1String("changed"));
}

EExitStatus show(const CInvocation& invocation, COutput& out) {
  const QString fileName = invocation.argument(0);
  const std::optional<SFileInfo> info = SFileInfo::read(fileName, out);
  if (!info) return ExitFile;
  if (info->kind != SFileInfo::Values && asksForValues(invocation)) {
    return invocation.wrongUsage(
        Tool::tr("%1 is no value file; --json is the only option for others.").arg(fileName), out);
  }
  switch (info->kind) {
    case SFileInfo::Definitions:
      return Show::definitions(invocation, out);
    case SFileInfo::Values:
      return Show::values(invocation, out);
    case SFileInfo::Settings:
      return Show::settings(invocation, out);
    case SFileInfo::Compensation:
      return Show::compensation(invocation, out);
    default:
      out.message(fileName, info->refusal(SFileInfo::anyKind()));
      return ExitFile;
  }
}

}  // namespace

QString Show::headLine(const SFileInfo& info, const SHead& head) {
  QStringList parts(info.typeName);
  if (info.version != 0) parts[0] += QLatin1Char(' ') + info.versionText();
  if (head.date.isValid()) parts.append(head.date.toString(Qt::ISODate));
  if (!head.author.isEmpty()) parts.append(DisplayText::shown(head.author));
  const QString line = parts.join(QLatin1String(", "));
  return head.comment.isEmpty() ? line
                                : line + QLatin1String(": ") + DisplayText::shown(head.comment);
}

QJsonObject Show::headJson(const QString& fileName, const SFileInfo& info, const SHead& head) {
  return {{QStringLiteral("file"), fileName},
          {QStringLiteral("fileType"), info.typeName},
          {QStringLiteral("version"), textOrNull(info.versionText())},
          {QStringLiteral("date"), textOrNull(head.date.toString(Qt::ISODate))},
          {QStringLiteral("author"), head.author},
          {QStringLiteral("comment"), head.comment}};
}

QVector<SCommand> showCommands() {
  SCommand command;
  command.name = QStringLiteral("show");
  command.summary = Tool::tr("Show what is in a file.");
  command.details = Tool::tr(
      "Definitions are shown as a table, values as a tree for each hardware id and sub-device. "
      "With --def, units and the names of choices and bits stand beside the values, and a \"*\" "
      "before each value that is not the default.\n"
      "Settings are shown as a tree, compensation tables point by point, with a \"!\" before each "
      "wrong one.\n"
      "A text stands between quotes, as in JSON, when it is empty, begins or ends with a blank, or "
      "holds line breaks or control characters.");
  command.arguments = {{QStringLiteral("FILE"), Tool::tr("A file of any kind."), EWord::File}};
  command.options = {CommonOptions::def(Tool::tr("The definition file of a value file.")),
                     CommonOptions::hardwareId(Tool::tr("Only this hardware id.")),
                     CommonOptions::subDevice(Tool::tr("Only this sub-device, 0 to 255.")),
                     {QStringLiteral("changed"),
                      {},
                      Tool::tr("Only values that are not the default; needs --def.")},
                     CommonOptions::json()};
  command.examples = QStringList{
      QStringLiteral("show TwoAxisDrive.xpdef"),
      QStringLiteral("show TwoAxisDrive.xparam --def TwoAxisDrive.xpdef --sub-device 2 --changed")};
  command.run = show;
  return {command};
}
