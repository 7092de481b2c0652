#include "CAtomicFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <new>

namespace {

QString systemError(int code) {
  return QString::fromLocal8Bit(std::strerror(code));
}

/// The file at the end of a chain of symbolic links; an empty name for a ring of them.
QString linkTarget(const QString& fileName) {
  QFileInfo file(fileName);
  for (int depth = 0; file.isSymLink(); ++depth) {
    if (depth == 40) {  // as many as the system itself follows
      return QString();
    }
    file.setFile(file.symLinkTarget());
  }
  return file.absoluteFilePath();
}

/// A renamed file is safe only when its folder is on the disk too: without this the old file may
/// come back after a power cut.
bool syncFolder(const QString& folder) {
  const int handle =
      ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) {
    return false;
  }
  const bool synced = ::fsync(handle) == 0;
  const int code = errno;
  ::close(handle);
  errno = code;
  return synced;
}

/// Brings the whole content to the disk, under the temporary name. Every step is checked here,
/// since QSaveFile::commit() overlooks a failing flush and a failing sync.
bool fill(QSaveFile& file, const QByteArray& content, QFileDevice::Permissions permissions,
          QString& reason) {
  const bool written = (!permissions || file.setPermissions(permissions)) &&
                       file.write(content) == content.size() && file.flush() &&
                       file.error() == QFileDevice::NoError;
  if (!written) {
    reason = file.errorString();
    return false;
  }
  if (::fsync(file.handle()) != 0) {
    reason = systemError(errno);
    return false;
  }
  return true;
}

}  // namespace

bool CAtomicFile::read(const QString& fileName, QByteArray& content, QString& error) {
  const QFileInfo info(fileName);
  if (info.exists() && !info.isFile()) {
    error = tr("this is not a regular file.");
    return false;
  }
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
    error = tr("the file cannot be opened: %1.").arg(file.errorString());
    return false;
  }
  if (file.size() > kMaxBytes) {
    error = tr("the file is larger than 512 MiB.");
    return false;
  }
  try {
    content = file.readAll();
  } catch (const std::bad_alloc&) {
    error = tr("there is not enough memory to read the file.");
    return false;
  }
  if (file.error() != QFileDevice::NoError) {
    error = tr("the file cannot be read: %1.").arg(file.errorString());
    return false;
  }
  return true;
}

bool CAtomicFile::write(const QString& fileName, const QByteArray& content,
                        QFileDevice::Permissions permissions, QString& error) {
  const QString target = linkTarget(fileName);
  const QFileInfo info(target);
  if (target.isEmpty() || (info.exists() && !info.isFile())) {
    error = tr("this is not a regular file and is not replaced.");
    return false;
  }
  QSaveFile file(target);
  if (!file.open(QIODevice::WriteOnly)) {
    error = tr("the file cannot be written: %1.").arg(file.errorString());
    return false;
  }
  const QFileDevice::Permissions kept = info.exists() ? info.permissions() : permissions;
  QString reason;
  if (!fill(file, content, permissions ? permissions : kept, reason)) {
    file.cancelWriting();
    error = tr("the file cannot be written, the old one is kept: %1.").arg(reason);
    return false;
  }
  if (!file.commit()) {
    error = tr("the file cannot be replaced, the old one is kept: %1.").arg(file.errorString());
    return false;
  }
  if (!syncFolder(info.absolutePath())) {
    error = tr("the file is written, but its folder could not be brought to the disk: %1.")
                .arg(systemError(errno));
    return false;
  }
  return true;
}
