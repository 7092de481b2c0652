#include "CParameterFileHelper.h"
#include "CValueEdit.h"
#include "Command.h"
#include "NSuggestion.h"

#include <QFileInfo>

#include <algorithm>

namespace {

const QLatin1String kGroup("group");
const QLatin1String kType("type");
constexpr quint32 kVersion = 0x10000;  // "1.0"

/// The file types that are value files.
QStringList typeNames() {
  QStringList names;
  for (auto it = CParameterFileHelper::mFileTypeStrHash.constBegin();
       it != CParameterFileHelper::mFileTypeStrHash.constEnd(); ++it) {
    if (it.key() > NktoGlobal::FILE_TYPE_COMPENSATION) names.append(it.value());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// The type of "--type"; none when there is no such type of value files.
NktoGlobal::EParamFileType typeOf(const CInvocation& invocation) {
  if (!invocation.isSet(kType)) return NktoGlobal::FILE_TYPE_PARAMETERS;
  const QString name = invocation.value(kType);
  return typeNames().contains(name) ? CParameterFileHelper::fileTypeFromStr(name)
                                    : NktoGlobal::FILE_TYPE_NONE;
}

/// Adds every defined parameter with its default.
bool addAll(CLoadedFile& loaded, const CInvocation& invocation, SEditCounts& counts) {
  ICParameterFile& file = loaded.file();
  const quint8 subDevice = invocation.subDevice().value_or(0);
  ICParamTreeNode* group = file.subGroup(invocation.value(kGroup), subDevice);
  if (!group) {
    loaded.message(file.errorMsg());
    return false;
  }
  for (const QString& name : file.defNames()) {
    if (file.addParameter(group, name)) {
      ++counts.added;
      continue;
    }
    ++counts.failed;
    loaded.message(file.errorMsg());
  }
  return true;
}

EExitStatus create(const CInvocation& invocation, COutput& out) {
  const NktoGlobal::EParamFileType type = typeOf(invocation);
  if (type == NktoGlobal::FILE_TYPE_NONE) {
    return invocation.wrongUsage(
        Tool::tr("\"%1\" is not a type of value file.%2 The types are: %3.")
            .arg(invocation.value(kType),
                 NSuggestion::didYouMean(invocation.value(kType), typeNames()),
                 typeNames().join(QLatin1String(", "))),
        out);
  }
  const QString hardwareId = invocation.value(NOptions::kHardwareId).trimmed();
  if (hardwareId.isEmpty())
    return invocation.wrongUsage(Tool::tr("A hardware id must not be empty."), out);
  const QFileInfo place(invocation.argument(0));
  if (place.exists() || place.isSymLink()) {
    out.message(invocation.argument(0), Tool::tr("the file exists already and is not replaced."));
    return ExitFile;
  }
  CLoadedFile loaded(out);
  loaded.begin(invocation.argument(0), type, kVersion);
  if (!loaded.load(invocation.value(NOptions::kDef), SFileInfo::Definitions)) return ExitFile;
  loaded.file().addHardwareId(hardwareId);
  CValueEdit edit(loaded, invocation, out);
  SEditCounts counts;
  const bool isDone = addAll(loaded, invocation, counts);
  return isDone && counts.failed == 0 ? edit.finish(counts) : edit.refuse(counts);
}

}  // namespace

QVector<SCommand> newCommands() {
  return {
      {QStringLiteral("new"),
       Tool::tr("Make a value file with every defined parameter at its default."),
       Tool::tr("The parameters are those of the definition file, by id. A file that exists is "
                "never replaced. The file gets version 1.0."),
       {{QStringLiteral("VALUE-FILE"), Tool::tr("The value file to make."), EWord::File}},
       {NOptions::required(NOptions::def(Tool::tr("The definition file."))),
        NOptions::required(NOptions::hardwareId(Tool::tr("The hardware id."))),
        NOptions::subDevice(Tool::tr("The sub-device, 0 to 255; 0 unless given.")),
        {kGroup, QStringLiteral("PATH"),
         Tool::tr("The group to put the parameters into, such as Motion/Limits.")},
        {kType, QStringLiteral("TYPE"), Tool::tr("The root element; LumoParameters unless given.")},
        NOptions::dryRun(),
        NOptions::json()},
       {QStringLiteral(
           "new Spare.xparam --def TwoAxisDrive.xpdef --hardware-id KTO-2A-16 --sub-device 2")},
       create}};
}
