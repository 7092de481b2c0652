#include "SFileInfo.h"

#include "COutput.h"
#include "CParameterFileHelper.h"
#include "CStr.h"
#include "NDisplayText.h"
#include "NFileHints.h"
#include "Tool.h"

#include <QFileInfo>

namespace {

// Definition files are not a file type of the library.
const QLatin1String kDefinitionRoot("LumoParamDefinition");
// Nor are migration tables, which have commands of their own.
const QLatin1String kMigrationRoot("Migration");

SFileInfo::EKind kindOf(const QString& rootTag, NktoGlobal::EParamFileType type) {
  if (rootTag == kDefinitionRoot) return SFileInfo::Definitions;
  if (type == NktoGlobal::FILE_TYPE_NONE) return SFileInfo::Unknown;
  if (type == NktoGlobal::FILE_TYPE_XML_SETTINGS) return SFileInfo::Settings;
  const bool isTable = type == NktoGlobal::FILE_TYPE_COMPENSATION;
  return isTable ? SFileInfo::Compensation : SFileInfo::Values;
}

QString reasonOf(const SFileBeginning& beginning, bool isEmpty) {
  if (isEmpty) return Tool::tr("the file is empty.");
  if (!beginning.error.isEmpty()) return beginning.error;
  if (beginning.rootTag == kMigrationRoot)
    return Tool::tr("this is a migration table; see \"ktoparam help migrate\".");
  return Tool::tr("the root element <%1> is not that of a parameter file.")
      .arg(NDisplayText::shown(beginning.rootTag));
}

SFileInfo infoOf(const SFileBeginning& beginning, bool isEmpty) {
  const QString& tag = beginning.rootTag;
  SFileInfo info;
  info.type = CParameterFileHelper::mFileTypeStrHash.key(tag, NktoGlobal::FILE_TYPE_NONE);
  info.kind = kindOf(tag, info.type);
  if (info.kind == SFileInfo::Unknown)
    info.reason = reasonOf(beginning, isEmpty);
  else
    info.typeName = tag;
  info.writtenVersion = beginning.version;
  CStr::stringToRevision(beginning.version, info.version);
  info.comment = beginning.comment;
  return info;
}

}  // namespace

std::optional<SFileInfo> SFileInfo::read(const QString& fileName, COutput& out) {
  SFileBeginning beginning;
  beginning.error = NFileHints::unreadable(fileName);
  const qint64 size = QFileInfo(fileName).size();
  if (beginning.error.isEmpty()) {
    out.reading(fileName, size);
    beginning = CParameterFileHelper::readBeginning(fileName);
  }
  if (beginning.isRead) return infoOf(beginning, size == 0);
  out.message(fileName, beginning.error);
  return {};
}

SFileInfo::EKind SFileInfo::kindOf(const QString& fileName) {
  if (!NFileHints::unreadable(fileName).isEmpty()) return Unknown;
  return infoOf(CParameterFileHelper::readBeginning(fileName), false).kind;
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
  if (kind == Definitions) return Tool::tr("this is a definition file. %1").arg(wanted);
  if (kind == Values) return Tool::tr("this is a value file (%1). %2").arg(typeName, wanted);
  if (kind == Settings) return Tool::tr("this is a settings file. %1").arg(wanted);
  if (kind == Compensation) return Tool::tr("this is a compensation file. %1").arg(wanted);
  return reason + QLatin1Char(' ') + wanted;
}

QString SFileInfo::needed(EKind kind) {
  if (kind == Definitions)
    return Tool::tr("A definition file (root element LumoParamDefinition) is needed here.");
  if (kind == Values) return Tool::tr("A value file is needed here.");
  if (kind == Settings) return Tool::tr("A settings file is needed here.");
  if (kind == Compensation) return Tool::tr("A compensation file is needed here.");
  return Tool::tr("A file of definitions, values, settings or compensation is needed here.");
}

QString SFileInfo::versionText() const {
  return version == 0 ? QString() : CStr::revisionToString(version);
}
