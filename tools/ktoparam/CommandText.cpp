#include "CInvocation.h"
#include "CLoadedFile.h"
#include "COutput.h"
#include "CTextLines.h"
#include "Commands.h"
#include "CompensationTexts.h"
#include "DefinitionLines.h"
#include "NShortText.h"
#include "OpenedFile.h"
#include "Tool.h"

#include <optional>

namespace {

// --- Values

/// What stands before the names in a group.
QString leadOf(const QString& place, const QString& path) {
  return path.isNull() ? place : place + path + QLatin1Char('/');
}

QString parameterSubject(const QString& lead, const ICParamTreeNode& node, const CLabels& labels) {
  const QString subject = lead + labels.of(node.name());
  return node.id() == 0 ? subject
                        : QStringLiteral("%1 (%2)").arg(subject, QString::number(node.id()));
}

/// The place is hardware id and sub-device, the path that of the group.
void addGroup(const ICParamTreeNode& group, const QString& place, const QString& path,
              CTextLines& lines) {
  const QString lead = leadOf(place, path);
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICParamTreeNode& child = *group.childPtr(i);
    if (child.isParam()) {
      lines.add(parameterSubject(lead, child, lines.labels()), child.value().asStr());
      continue;
    }
    const QString childPath = NShortText::below(path, child.name());
    if (child.childCnt() == 0) lines.addBare(leadOf(place, childPath));
    addGroup(child, place, childPath, lines);
  }
}

void addSubDevice(ICParameterFile& file, quint8 id, CTextLines& lines) {
  const QString hardwareId = lines.labels().of(file.hardwareId());
  const QString place = QStringLiteral("%1[%2]").arg(hardwareId, QString::number(id));
  lines.add(place + QLatin1String(" type"),
            ICParameterFile::subDeviceTypeToStr(file.subDevType(id)));
  lines.addLabelUnlessEmpty(place + QLatin1String(" name"), file.subDevName(id));
  addGroup(*file.rootGroup(id), place + QLatin1Char('/'), {}, lines);
}

EExitStatus values(const QString& fileName, COutput& out) {
  CLoadedFile loaded(out);
  if (!loaded.loadValues(fileName)) return ExitFile;
  ICParameterFile& file = loaded.file();
  CTextLines lines(out);
  lines.addHead(loaded.info(), {file.date(), file.author(), file.comment()});
  for (const QString& hardwareId : file.hardwareIds()) {
    loaded.selectHardwareId(hardwareId);
    for (const quint8 id : file.subDeviceIds()) addSubDevice(file, id, lines);
  }
  return ExitDone;
}

// --- The other kinds of files

EExitStatus definitions(const QString& fileName, COutput& out) {
  CLoadedFile loaded(out);
  if (!loaded.loadDefinitions(fileName)) return ExitFile;
  const ICParameterFile& file = loaded.file();
  CTextLines lines(out);
  lines.addHead(loaded.info(), {file.defDate(), file.defAuthor(), file.defComment()});
  for (const QString& name : file.defNames()) DefinitionLines::add(file.paramDef(name), lines);
  return ExitDone;
}

void addSettings(const ICSettingsTreeNode& group, const QString& path, CTextLines& lines) {
  for (int i = 0; i < group.childCnt(); ++i) {
    const ICSettingsTreeNode& node = *group.childPtr(i);
    const QString subject = leadOf({}, path) + lines.labels().of(node.name());
    if (node.isGroup()) {
      lines.addBare(subject + QLatin1Char('/'));
    } else {
      const QString type = ICSettingsTreeNode::typeToStr(node.type());
      lines.add(QStringLiteral("%1 (%2)").arg(subject, type), node.value().asStr());
    }
    lines.addLabelUnlessEmpty(subject + QLatin1String(" unit"), node.unit());
    lines.addLabelUnlessEmpty(subject + QLatin1String(" comment"), node.comment());
    addSettings(node, NShortText::below(path, node.name()), lines);
  }
}

EExitStatus settings(const QString& fileName, COutput& out) {
  const SOpenedFile<ICSettingsFile> opened = OpenedFile::settings(fileName, out);
  if (!opened.file) return ExitFile;
  CTextLines lines(out);
  lines.addHead(opened.info, {});
  addSettings(*opened.file->root(), {}, lines);
  return ExitDone;
}

EExitStatus compensation(const QString& fileName, COutput& out) {
  const SOpenedFile<ICCompensationFile> opened = OpenedFile::compensation(fileName, out);
  if (!opened.file) return ExitFile;
  const ICCompensationFile& table = *opened.file;
  const CXMLMetaData data = table.metaData();
  CTextLines lines(out);
  lines.addHead(opened.info, {data.date(), data.author(), data.comment()});
  lines.addUnlessEmpty(QStringLiteral("format"),
                       CompensationTexts::formatName(table.detectedDataPointFormat()));
  lines.add(QStringLiteral("minimum"), table.header().minimum().asStr());
  lines.add(QStringLiteral("maximum"), table.header().maximum().asStr());
  for (const CCompensationPoint& point : table.allPoints())
    lines.add(QStringLiteral("at %1").arg(point.position().asStr()), point.adjustment().asStr());
  return ExitDone;
}

EExitStatus text(const CInvocation& invocation, COutput& out) {
  const QString fileName = invocation.argument(0);
  const std::optional<SFileInfo> info = SFileInfo::read(fileName, out);
  if (!info) return ExitFile;
  switch (info->kind) {
    case SFileInfo::Definitions:
      return definitions(fileName, out);
    case SFileInfo::Values:
      return values(fileName, out);
    case SFileInfo::Settings:
      return settings(fileName, out);
    case SFileInfo::Compensation:
      return compensation(fileName, out);
    default:
      out.message(fileName, info->refusal(SFileInfo::anyKind()));
      return ExitFile;
  }
}

}  // namespace

QVector<SCommand> textCommands() {
  SCommand command;
  command.name = QStringLiteral("text");
  command.summary = Tool::tr("Print a file as lines that can be compared.");
  command.details = Tool::tr(
      "Each value has a line of its own with all that tells where it belongs, so that any tool "
      "that compares lines shows what changed. The date, which each save renews, is left out.\n"
      "git uses it with: git config diff.ktoparam.textconv \"ktoparam text\", and in "
      ".gitattributes: *.xparam diff=ktoparam");
  command.arguments = {{QStringLiteral("FILE"), Tool::tr("A file of any kind."), EWord::File}};
  command.examples = QStringList(QStringLiteral("text TwoAxisDrive.xparam"));
  command.run = text;
  return {command};
}
