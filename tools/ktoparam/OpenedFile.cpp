#include "OpenedFile.h"

#include "COutput.h"
#include "LibraryMessage.h"
#include "Tool.h"

namespace {

template <class File>
SOpenedFile<File> open(const QString& fileName, SFileInfo::EKind kind, const QString& wanted,
                       COutput& out) {
  SOpenedFile<File> opened;
  const std::optional<SFileInfo> info = SFileInfo::read(fileName, out);
  if (!info) return opened;
  if (info->kind != kind) {
    out.message(fileName, info->refusal(wanted));
    return opened;
  }
  opened.info = *info;
  opened.file.reset(File::create(nullptr));
  if (opened.file->load(fileName, info->writtenVersion) != 0) {
    out.message(fileName, LibraryMessage::withoutFileName(opened.file->errorMsg(), fileName));
    opened.file.reset();
  }
  return opened;
}

}  // namespace

SOpenedFile<ICSettingsFile> OpenedFile::settings(const QString& fileName, COutput& out) {
  return open<ICSettingsFile>(fileName, SFileInfo::Settings,
                              Tool::tr("A settings file is needed here."), out);
}

SOpenedFile<ICCompensationFile> OpenedFile::compensation(const QString& fileName, COutput& out) {
  return open<ICCompensationFile>(fileName, SFileInfo::Compensation,
                                  Tool::tr("A compensation file is needed here."), out);
}
