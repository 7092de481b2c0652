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
  for (const auto type : CParameterFileHelper::mFileTypeStrHash.keys())
    if (type > NktoGlobal::FILE_TYPE_COMPENSATION)
      names.append(ICParameterFile::fileTypeToStr(type));
  std::sort(names.begin(), names.end());
  return names;
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
    const bool isAdded = file.addParameter(group, name) != nullptr;
    counts.note(isAdded ? SEditedParam::Added : SEditedParam::Failed, subDevice, name);
    if (!isAdded) loaded.message(file.errorMsg());
  }
  return true;
}

EExitStatus create(const CInvocation& invocation, COutput& out) {
  const QString type =
      invocation.value(kType, ICParameterFile::fileTypeToStr(NktoGlobal::FILE_TYPE_PARAMETERS));
  const QStringList types = typeNames();
  if (!types.contains(type)) {
    return invocation.wrongUsage(
        Tool::tr("\"%1\" is not a type of value file.%2 The types are: %3.")
            .arg(type, NSuggestion::didYouMean(type, types), types.join(QLatin1String(", "))),
        out);
  }
  const QString hardwareId = invocation.value(NOptions::kHardwareId).trimmed();
  if (hardwareId.isEmpty())
    return invocation.wrongUsage(Tool::tr("A hardware id must not be empty."), out);
  CLoadedFile loaded(out);
  if (!loaded.lock(invocation.argument(0), invocation)) return ExitFile;
  const QFileInfo place(invocation.argument(0));
  if (place.exists() || place.isSymLink()) {
    out.message(invocation.argument(0), Tool::tr("the file exists already and is not replaced."));
    return ExitFile;
  }
  loaded.begin(invocation.argument(0), CParameterFileHelper::fileTypeFromStr(type), kVersion);
  if (!loaded.load(invocation.value(NOptions::kDef), SFileInfo::Definitions)) return ExitFile;
  loaded.file().addHardwareId(hardwareId);
  CValueEdit edit(loaded, invocation, out);
  SEditCounts counts;
  const bool isDone = addAll(loaded, invocation, counts);
  return isDone && counts.failed == 0 ? edit.finish(counts, CValueEdit::Saved)
                                      : edit.refuse(counts);
}

}  // namespace

QVector<SCommand> newCommands() {
  return {
      {"new",
       Tool::tr("Make a value file with every defined parameter at its default."),
       Tool::tr(
           "The parameters are those of the definition file, by id. A file that exists is "
           "never replaced. The file gets version 1.0.\nDefaults that the definitions do not "
           "allow, also missing ones of numbers, are written all the same and told as \"check\" "
           "tells them; the exit status is 1 when one of them is an error."),
       {{"VALUE-FILE", Tool::tr("The value file to make."), EWord::File}},
       {NOptions::required(NOptions::def(Tool::tr("The definition file."))),
        NOptions::required(NOptions::hardwareId(Tool::tr("The hardware id."))),
        NOptions::subDevice(Tool::tr("The sub-device, 0 to 255; 0 unless given.")),
        {kGroup, "PATH", Tool::tr("The group to put the parameters into, such as Motion/Limits.")},
        {kType, "TYPE", Tool::tr("The root element; LumoParameters unless given.")},
        NOptions::dryRun(),
        NOptions::noWait(),
        NOptions::json()},
       {"new Spare.xparam --def TwoAxisDrive.xpdef --hardware-id KTO-2A-16 --sub-device 2"},
       create}};
}
