#include "CAtomicFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

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

/// Gives the temporary file the permissions asked for, or exactly those of the file that it is to
/// replace; Qt's own copy takes what this user may do for what the owner may.
bool setMode(QSaveFile& file, const QString& target, QFileDevice::Permissions permissions) {
  struct stat old {};
  const bool exists = ::stat(QFile::encodeName(target).constData(), &old) == 0;
  if (exists && ::fchown(file.handle(), old.st_uid, old.st_gid) != 0) {
    // Only the superuser can give files away; the file then belongs to whoever saved it.
  }
  if (permissions) {
    return file.setPermissions(permissions);
  }
  return !exists || ::fchmod(file.handle(), old.st_mode & 07777U) == 0;
}

/// Brings the whole content to the disk, under the temporary name. Every step is checked here,
/// since QSaveFile::commit() overlooks a failing flush and a failing sync.
bool fill(QSaveFile& file, const QByteArray& content, QString& reason) {
  if (file.write(content) != content.size() || !file.flush()) {
    reason = file.errorString();
    return false;
  }
  if (::fsync(file.handle()) != 0) {
    reason = systemError(errno);
    return false;
  }
  return true;
}

/// Copies what is left of one open file to another and brings it to the disk: 0, or the system's
/// error.
int copyContent(int source, int target) {
  constexpr size_t kChunkBytes = size_t(1) << 30U;
  ssize_t copied = 0;
  do {
    copied = ::sendfile(target, source, nullptr, kChunkBytes);
  } while (copied > 0 || (copied < 0 && errno == EINTR));
  return copied < 0 || ::fsync(target) != 0 ? errno : 0;
}

/// An open file, closed at the end of its life.
struct SHandle {
  const int number;
  ~SHandle() {
    if (number >= 0) {
      ::close(number);
    }
  }
};

/// Copies a file, with its permissions, to one that does not exist yet: 0, or the system's error.
int copyToNewFile(const QByteArray& source, const QByteArray& target) {
  struct stat info = {};
  const SHandle from{::open(source.constData(), O_RDONLY | O_CLOEXEC)};
  if (from.number < 0 || ::fstat(from.number, &info) != 0) {
    return errno;
  }
  const SHandle to{::open(target.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR)};
  if (to.number < 0) {
    return errno;
  }
  const bool permitted = ::fchmod(to.number, info.st_mode & 07777U) == 0;
  const int code = permitted ? copyContent(from.number, to.number) : errno;
  if (code != 0) {
    ::unlink(target.constData());
  }
  return code;
}

/// Gives a file a second name, or makes a copy where the file system does not have such names.
/// Neither replaces a file. Returns 0, or the system's error.
int addName(const QString& fileName, const QString& newName) {
  const QByteArray source = QFile::encodeName(fileName);
  const QByteArray target = QFile::encodeName(newName);
  if (::link(source.constData(), target.constData()) == 0) {
    return 0;
  }
  return errno == EEXIST ? errno : copyToNewFile(source, target);
}

}  // namespace

bool CAtomicFile::read(const QString& fileName, QByteArray& content, QString& error) {
  if (fileName.isEmpty()) {  // Qt would print a warning
    error = tr("no file is named.");
    return false;
  }
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
  } catch (...) {  // nothing but memory can be missing here
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
  QString reason;
  if (!setMode(file, target, permissions)) {
    reason = tr("its permissions cannot be set");
  }
  if (!reason.isEmpty() || !fill(file, content, reason)) {
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

bool CAtomicFile::keepAsBackup(const QString& fileName, QString& backupName, QString& error) {
  constexpr int kMaxBackups = 10000;
  const QFileInfo source(linkTarget(fileName));
  if (!source.isFile()) {
    error = tr("this is not a regular file and is not kept as a backup.");
    return false;
  }
  QString name = fileName + QLatin1String(".bak");
  int code = addName(source.filePath(), name);
  for (int number = 1; code == EEXIST && number < kMaxBackups; ++number) {
    name = fileName + QLatin1String(".bak.") + QString::number(number);
    code = addName(source.filePath(), name);
  }
  const QString folder = QFileInfo(name).absolutePath();
  if (code == 0 && !syncFolder(folder)) {
    code = errno;
  }
  if (code != 0) {
    error = tr("the file cannot be kept as \"%1\": %2.").arg(name, systemError(code));
    return false;
  }
  backupName = name;
  return true;
}
