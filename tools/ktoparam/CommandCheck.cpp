#include "CInvocation.h"
#include "CLoadedFile.h"
#include "COutput.h"
#include "CParamLineIndex.h"
#include "CParameterFileChecker.h"
#include "Commands.h"
#include "DisplayText.h"
#include "Tool.h"

#include <QJsonArray>
#include <QJsonObject>

#include <array>

namespace {

const QLatin1String kMissing("missing");

/// Findings about one file, with their lines.
struct SChecked {
  QString fileName;
  CParamFindings findings;

  SChecked(const QString& file, const CParamFindings& found) : fileName(file), findings(found) {
    CParamLineIndex lines;
    if (!findings.isEmpty() && lines.read(fileName)) lines.addLines(findings);
  }
};

using CCounts = std::array<int, 3>;  // by SParamFinding::ESeverity

CCounts count(const QVector<SChecked>& files) {
  CCounts counts{};
  for (const SChecked& file : files) {
    for (const SParamFinding& finding : file.findings) {
      ++counts.at(static_cast<std::size_t>(finding.severity));
    }
  }
  return counts;
}

/// "KTO-2A-16, sub-device 2, Motion/Limits/VelocityLimit"
QString place(const SParamFinding& finding) {
  QStringList parts;
  if (!finding.hardwareId.isEmpty()) parts.append(DisplayText::shown(finding.hardwareId));
  if (finding.subDevId != SParamFinding::kNoSubDevice) {
    parts.append(Tool::tr("sub-device %1").arg(finding.subDevId));
  }
  const QString group =
      finding.groupPath.isEmpty() ? QString() : finding.groupPath + QLatin1Char('/');
  if (!finding.name.isEmpty()) parts.append(DisplayText::shown(group + finding.name));
  return parts.join(QLatin1String(", "));
}

/// As compilers write, so that editors jump to the line.
void print(const SChecked& file, COutput& out) {
  for (const SParamFinding& finding : file.findings) {
    const QString line = finding.line > 0 ? QStringLiteral(":%1").arg(finding.line) : QString();
    out.line(QStringLiteral("%1%2: %3: %4: %5 [%6]")
                 .arg(DisplayText::escaped(file.fileName), line,
                      SParamFinding::severityText(finding.severity), place(finding),
                      DisplayText::escaped(finding.text), SParamFinding::codeText(finding.code)));
  }
}

/// The stable text; SParamFinding::severityText() is translated.
QString severityKey(SParamFinding::ESeverity severity) {
  switch (severity) {
    case SParamFinding::Info:
      return QStringLiteral("info");
    case SParamFinding::Warning:
      return QStringLiteral("warning");
    case SParamFinding::Error:
      break;
  }
  return QStringLiteral("error");
}

QJsonObject toJson(const QString& fileName, const SParamFinding& finding) {
  const bool hasSubDevice = finding.subDevId != SParamFinding::kNoSubDevice;
  return {{QStringLiteral("file"), fileName},
          {QStringLiteral("line"), finding.line > 0 ? QJsonValue(finding.line) : QJsonValue()},
          {QStringLiteral("severity"), severityKey(finding.severity)},
          {QStringLiteral("code"), SParamFinding::codeText(finding.code)},
          {QStringLiteral("hardwareId"), finding.hardwareId},
          {QStringLiteral("subDevice"), hasSubDevice ? QJsonValue(finding.subDevId) : QJsonValue()},
          {QStringLiteral("group"), finding.groupPath},
          {QStringLiteral("name"), finding.name},
          {QStringLiteral("value"), finding.value},
          {QStringLiteral("text"), finding.text}};
}

EExitStatus report(const QVector<SChecked>& files, const CInvocation& invocation, COutput& out) {
  const auto [infos, warnings, errors] = count(files);
  if (invocation.wantsJson()) {
    QJsonArray array;
    for (const SChecked& file : files) {
      for (const SParamFinding& finding : file.findings)
        array.append(toJson(file.fileName, finding));
    }
    out.json({{QStringLiteral("errors"), errors},
              {QStringLiteral("warnings"), warnings},
              {QStringLiteral("infos"), infos},
              {QStringLiteral("findings"), array}});
  } else {
    for (const SChecked& file : files) print(file, out);
    out.line(Tool::tr("errors %1, warnings %2, infos %3")
                 .arg(QString::number(errors), QString::number(warnings), QString::number(infos)));
  }
  return errors + warnings > 0 ? ExitFindings : ExitDone;
}

EExitStatus checkDefinitions(const CInvocation& invocation, COutput& out) {
  if (invocation.isSet(CommonOptions::kDef) || invocation.isSet(CommonOptions::kHardwareId) ||
      invocation.isSet(kMissing)) {
    return invocation.wrongUsage(
        Tool::tr("%1 is a definition file; --json is the only option for it.")
            .arg(invocation.argument(0)),
        out);
  }
  CLoadedFile loaded(out);
  if (!loaded.loadDefinitions(invocation.argument(0))) return ExitFile;
  return report(
      {SChecked(loaded.fileName(), CParameterFileChecker::checkDefinitions(loaded.file()))},
      invocation, out);
}

EExitStatus checkValues(const CInvocation& invocation, COutput& out) {
  if (!invocation.isSet(CommonOptions::kDef)) {
    return invocation.wrongUsage(
        Tool::tr("Values are checked against definitions; name their file with --def DEF."), out);
  }
  CLoadedFile loaded(out);
  if (!loaded.load(invocation.argument(0), invocation)) return ExitFile;
  if (loaded.hardwareIds(invocation).isEmpty() && invocation.isSet(CommonOptions::kHardwareId)) {
    return ExitFindings;
  }
  ICParameterFile& file = loaded.file();
  out.progress().doing(Tool::tr("Checking %1 …").arg(loaded.fileName()));
  const auto missing = invocation.isSet(kMissing) ? CParameterFileChecker::ReportMissing
                                                  : CParameterFileChecker::SkipMissing;
  return report({SChecked(invocation.value(CommonOptions::kDef),
                          CParameterFileChecker::checkDefinitions(file)),
                 SChecked(loaded.fileName(),
                          CParameterFileChecker::checkValues(
                              file, invocation.value(CommonOptions::kHardwareId), missing))},
                invocation, out);
}

EExitStatus check(const CInvocation& invocation, COutput& out) {
  const QString fileName = invocation.argument(0);
  const std::optional<SFileInfo> info = SFileInfo::read(fileName, out);
  if (!info) return ExitFile;
  switch (info->kind) {
    case SFileInfo::Definitions:
      return checkDefinitions(invocation, out);
    case SFileInfo::Values:
      return checkValues(invocation, out);
    default:
      out.message(fileName, info->refusal(Tool::tr("A value or definition file is needed here.")));
      return ExitFile;
  }
}

}  // namespace

QVector<SCommand> checkCommands() {
  SCommand command;
  command.name = QStringLiteral("check");
  command.summary = Tool::tr("Find what is wrong with values and definitions.");
  command.details = Tool::tr(
      "Lists all findings with file and line: values that are not of their type, beyond their "
      "limits or no choice, unnamed bits, parameters that are not defined, wrong ids, and bad "
      "definitions. Without a value file, definitions alone are checked.\n"
      "The exit status is 1 when there are errors or warnings.");
  command.arguments = {
      {QStringLiteral("FILE"), Tool::tr("A value file, or a definition file."), EWord::File}};
  command.options = {CommonOptions::def(Tool::tr("The definition file; needed for a value file.")),
                     CommonOptions::hardwareId(Tool::tr("Only this hardware id.")),
                     {kMissing,
                      {},
                      Tool::tr("List what is defined but missing, too, for each hardware id; these "
                               "are infos.")},
                     CommonOptions::json()};
  command.examples =
      QStringList{QStringLiteral("check TwoAxisDrive.xparam --def TwoAxisDrive.xpdef"),
                  QStringLiteral("check TwoAxisDrive.xpdef")};
  command.run = check;
  return {command};
}
