#include "SFileInfo.h"

#include "COutput.h"
#include "CParameterFileHelper.h"
#include "CStr.h"
#include "FileHints.h"
#include "Tool.h"

#include <QFile>
#include <QFileInfo>
#include <QTextStream>

namespace {

// Enough for any Head; the values behind it need not be read.
constexpr qint64 kHeadBytes = 16LL * 1024 * 1024;
constexpr int kRootBytes = 64 * 1024;
constexpr int kRootLines = 3;
const QLatin1String kDefinitionRoot("LumoParamDefinition");

// Definition files are no file type of the library; their root tag is looked for as the types' are.
bool beginsDefinitions(const QByteArray& head) {
  QTextStream stream(head.left(kRootBytes), QIODevice::ReadOnly);
  stream.setCodec("UTF-8");
  for (int i = 0; i < kRootLines && !stream.atEnd(); ++i) {
    const QString line = stream.readLine();
    if (line.startsWith(QLatin1Char('<') + kDefinitionRoot)) return true;
  }
  return false;
}

SFileInfo::EKind kindOf(NktoGlobal::EParamFileType type) {
  switch (type) {
    case NktoGlobal::FILE_TYPE_NONE:
      return SFileInfo::Unknown;
    case NktoGlobal::FILE_TYPE_XML_SETTINGS:
      return SFileInfo::Settings;
    case NktoGlobal::FILE_TYPE_COMPENSATION:
      return SFileInfo::Compensation;
    default:
      return SFileInfo::Values;
  }
}

SFileInfo infoOf(const QByteArray& head) {
  SFileInfo info;
  info.isEmpty = head.isEmpty();
  if (beginsDefinitions(head)) {
    info.kind = SFileInfo::Definitions;
    info.typeName = kDefinitionRoot;
  } else {
    info.type = CParameterFileHelper::detectFileType(head);
    info.kind = kindOf(info.type);
    info.typeName = CParameterFileHelper::fileTypeToStr(info.type);
  }
  info.version = CParameterFileHelper::fileVersion(head);
  info.comment = CParameterFileHelper::comment(head);
  return info;
}

}  // namespace

std::optional<SFileInfo> SFileInfo::read(const QString& fileName, COutput& out) {
  const QString problem = FileHints::unreadable(fileName);
  if (!problem.isEmpty()) {
    out.message(fileName, problem);
    return {};
  }
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly)) {
    out.message(fileName, Tool::tr("the file cannot be opened: %1.").arg(file.errorString()));
    return {};
  }
  out.progress().reading(fileName, file.size());
  const QByteArray head = file.read(kHeadBytes);
  if (file.error() != QFileDevice::NoError) {
    out.message(fileName, Tool::tr("the file cannot be read: %1.").arg(file.errorString()));
    return {};
  }
  return infoOf(head);
}

bool SFileInfo::mayReplace(const QString& fileName, EKind kind, COutput& out) {
  if (!QFileInfo(fileName).isFile()) return true;
  const std::optional<SFileInfo> info = read(fileName, out);
  if (!info) return false;
  if (info->kind == Unknown || info->kind == kind) return true;
  out.message(fileName, info->refusal(Tool::tr("It is not replaced.")));
  return false;
}

QString SFileInfo::refusal(const QString& wanted) const {
  switch (kind) {
    case Definitions:
      return Tool::tr("this is a definition file. %1").arg(wanted);
    case Values:
      return Tool::tr("this is a value file (%1). %2").arg(typeName, wanted);
    case Settings:
      return Tool::tr("this is a settings file. %1").arg(wanted);
    case Compensation:
      return Tool::tr("this is a compensation file. %1").arg(wanted);
    default:
      break;
  }
  if (isEmpty) return Tool::tr("the file is empty. %1").arg(wanted);
  return Tool::tr(
             "the type of this file is not known: its root element must be that of a parameter "
             "file and stand at the beginning of one of the first three lines. %1")
      .arg(wanted);
}

QString SFileInfo::anyKind() {
  return Tool::tr("A file of definitions, values, settings or compensation is needed here.");
}

QString SFileInfo::versionText() const {
  return version == 0 ? QString() : CStr::revisionToString(version);
}
