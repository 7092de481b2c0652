#include "OpenedFile.h"

#include "COutput.h"
#include "LibraryMessage.h"
#include "Tool.h"

#include <QFile>
#include <QXmlStreamReader>

namespace {

// As a text, since a revision number does not tell "1.0" from "01.0". A file that cannot be read
// is reported by the load that follows.
QString versionText(const QString& fileName) {
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly)) return {};
  QXmlStreamReader xml(&file);
  xml.readNextStartElement();
  return xml.attributes().value(QLatin1String("Version")).toString();
}

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
  opened.version = versionText(fileName);
  opened.file.reset(File::create(nullptr));
  if (opened.file->load(fileName, opened.version) != 0) {
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
