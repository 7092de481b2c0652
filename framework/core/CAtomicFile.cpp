#include "CAtomicFile.h"

#include "NFileRights.h"
#include "SFilePlace.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {

constexpr mode_t kOwnersOnly = S_IRUSR | S_IWUSR;
constexpr mode_t kAsUsual = 0666;  // less what the process or the folder takes away

mode_t toMode(QFileDevice::Permissions permissions) {
  const auto bits = static_cast<mode_t>(permissions);  // a hexadecimal digit each
  return (((bits >> 12U) | (bits >> 8U)) & 07U) << 6U | ((bits >> 4U) & 07U) << 3U | (bits & 07U);
}

/// A file that did not exist before, removed again unless it is kept.
class CNewFile {
 public:
  CNewFile(const CFileHandle& folder, const QByteArray& name, mode_t mode)
      : mFolder(folder),
        mName(name),
        mFile(::openat(folder.number(), name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                       mode)),
        mOpenError(errno) {}
  CNewFile(const CNewFile&) = delete;
  CNewFile& operator=(const CNewFile&) = delete;
  ~CNewFile() {
    if (mFile.isOpen() && !mIsKept) ::unlinkat(mFolder.number(), mName.constData(), 0);
  }

  /// The operations return 0, or the system's error.
  int openError() const { return mFile.isOpen() ? 0 : mOpenError; }
  int write(const QByteArray& content) const;
  int append(const CFileHandle& source) const;
  int sync() const { return ::fsync(number()) == 0 ? 0 : errno; }
  int replace(const QByteArray& name);
  void keep() { mIsKept = true; }
  int number() const { return mFile.number(); }

 private:
  const CFileHandle& mFolder;
  const QByteArray mName;
  const CFileHandle mFile;
  const int mOpenError;
  bool mIsKept = false;
};

int CNewFile::write(const QByteArray& content) const {
  for (int done = 0; done < content.size();) {
    const auto left = static_cast<size_t>(content.size() - done);
    const ssize_t written = ::write(number(), content.constData() + done, left);
    if (written < 0 && errno != EINTR) return errno;
    done += static_cast<int>(qMax<ssize_t>(written, 0));
  }
  return 0;
}

int CNewFile::append(const CFileHandle& source) const {
  constexpr size_t kChunkBytes = size_t(1) << 30U;
  ssize_t copied = 0;
  do {
    copied = ::sendfile(number(), source.number(), nullptr, kChunkBytes);
  } while (copied > 0 || (copied < 0 && errno == EINTR));
  return copied == 0 ? 0 : errno;
}

/// Takes the name from the file that has it.
int CNewFile::replace(const QByteArray& name) {
  mIsKept =
      ::renameat(mFolder.number(), mName.constData(), mFolder.number(), name.constData()) == 0;
  return mIsKept ? 0 : errno;
}

/// Short, since a name may be as long as the system allows. A forked process must not have the
/// same one.
QByteArray temporaryName() {
  const quint64 number = QRandomGenerator::system()->generate64();
  return QByteArray(".kto-").append(QByteArray::number(number, 36));
}

/// A new name is safe only when its folder is on the disk too: without this the old file may come
/// back after a power cut.
int syncFolder(const CFileHandle& folder) {
  const CFileHandle readable(::openat(folder.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  return readable.isOpen() && ::fsync(readable.number()) == 0 ? 0 : errno;
}

CFileHandle openToRead(const SFilePlace& place) {
  return CFileHandle(
      ::openat(place.folder.number(), place.name.constData(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
}

/// Copies a file, with its rights, to one that does not exist yet: 0, or the system's error.
int copyToNew(const SFilePlace& source, const CFileHandle& folder, const QByteArray& name) {
  const CFileHandle from = openToRead(source);
  if (!from.isOpen()) return errno;
  CNewFile copy(folder, name, kOwnersOnly);
  int code = copy.openError();
  if (code == 0) code = copy.append(from);
  if (code == 0) {
    int lost = 0;  // the file itself still has it
    code = NFileRights::copy(from.number(), copy.number(), {}, lost);
  }
  if (code == 0) code = copy.sync();
  if (code == 0) copy.keep();
  return code;
}

/// Gives a file a second name, or makes a copy where the file system does not have such names.
/// Neither replaces a file. Returns 0, or the system's error.
int addName(const SFilePlace& file, const CFileHandle& folder, const QByteArray& name) {
  if (::linkat(file.folder.number(), file.name.constData(), folder.number(), name.constData(), 0) ==
      0) {
    return 0;
  }
  return errno == EEXIST ? errno : copyToNew(file, folder, name);
}

/// Gives a file a new name, which must be free: 0, or the system's error.
int moveToNew(const SFilePlace& file, const SFilePlace& free) {
  if (::renameat2(file.folder.number(), file.name.constData(), free.folder.number(),
                  free.name.constData(), RENAME_NOREPLACE) == 0) {
    return 0;
  }
  if (errno == EEXIST) return errno;
  const int code = addName(file, free.folder, free.name);  // not every file system can refuse
  if (code == 0) ::unlinkat(file.folder.number(), file.name.constData(), 0);
  return code;
}

/// Finds what is to be replaced or backed up: 0, or the system's error; ELOOP is also that of
/// anything but a regular file or a free name.
int findFile(const QString& fileName, SFilePlace& place, bool& exists) {
  const QByteArray path = SFilePlace::bytesOf(fileName);
  const bool isOnDisk = QFileInfo(fileName).isNativePath();  // and not in Qt's resources
  struct stat info = {};
  exists = ::stat(path.constData(), &info) == 0;
  if (!isOnDisk || (exists && !S_ISREG(info.st_mode))) return ELOOP;
  return place.find(fileName, SFilePlace::FollowLast);
}

/// Puts a new file in the place of the old one, if there is one: 0, or the system's error.
int replace(const SFilePlace& place, bool exists, const QByteArray& content,
            std::optional<mode_t> mode, int& lost) {
  const CFileHandle old = exists ? openToRead(place) : CFileHandle();
  if (exists && !old.isOpen()) return errno;
  CNewFile file(place.folder, temporaryName(), exists || mode ? kOwnersOnly : kAsUsual);
  int code = file.openError();
  if (code == 0) code = file.write(content);
  if (code == 0 && exists)
    code = NFileRights::copy(old.number(), file.number(), mode, lost);
  else if (code == 0 && mode)
    code = NFileRights::setMode(file.number(), *mode);
  if (code == 0) code = file.sync();
  return code == 0 ? file.replace(place.name) : code;
}

QString reasonOf(int code, const SFilePlace& place) {
  return place.hasStrangersLink
             ? CAtomicFile::tr(
                   "the path contains a symbolic link of another user in a folder that "
                   "everybody can write to")
             : qt_error_string(code);
}

QString unsyncedFolder(int code) {
  return CAtomicFile::tr("the file is written, but its folder could not be synced to the disk: %1.")
      .arg(qt_error_string(code));
}

QString notKeptText(int lost) {
  QStringList words;
  if ((lost & NFileRights::Owner) != 0) words += CAtomicFile::tr("owner");
  if ((lost & NFileRights::Group) != 0) words += CAtomicFile::tr("group");
  if ((lost & NFileRights::AccessList) != 0) words += CAtomicFile::tr("access control list");
  if ((lost & NFileRights::Attributes) != 0) words += CAtomicFile::tr("attributes");
  if (words.isEmpty()) return QString();
  return CAtomicFile::tr("the file is saved, but these could not be kept: %1.")
      .arg(words.join(QLatin1String(", ")));
}

}  // namespace

QString CAtomicFile::nameProblem(const QString& fileName) {
  if (fileName.isEmpty()) return tr("the file name is empty.");
  // U+FFFD is what bytes become that are no text, here or before the name came here.
  const bool isExact = QFile::decodeName(QFile::encodeName(fileName)) == fileName;
  if (isExact && !fileName.contains(QChar::ReplacementCharacter)) return QString();
  return tr(
      "the name is not valid text in the encoding of the locale, so it could mean another file. "
      "Rename the file, or set the locale of its name.");
}

bool CAtomicFile::read(const QString& fileName, QByteArray& content, QString& error) {
  error = nameProblem(fileName);
  if (!error.isEmpty()) return false;
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
                        QFileDevice::Permissions permissions, QString& error, QString* notKept) {
  error = nameProblem(fileName);
  if (!error.isEmpty()) return false;
  SFilePlace place;
  bool exists = false;
  int code = findFile(fileName, place, exists);
  if (code == ELOOP) {
    error = tr("this is not a regular file and is not replaced.");
    return false;
  }
  const auto mode = permissions ? std::optional<mode_t>(toMode(permissions)) : std::nullopt;
  int lost = 0;
  if (code == 0) code = replace(place, exists, content, mode, lost);
  if (code != 0) {
    const QString text = exists ? tr("the file cannot be written, the old one is kept: %1.")
                                : tr("the file cannot be written: %1.");
    error = text.arg(reasonOf(code, place));
    return false;
  }
  if (notKept != nullptr) *notKept = notKeptText(lost);
  code = syncFolder(place.folder);
  if (code != 0) error = unsyncedFolder(code);
  return code == 0;
}

bool CAtomicFile::keepAsBackup(const QString& fileName, QString& backupName, QString& error) {
  constexpr int kMaxBackups = 10000;
  error = nameProblem(fileName);
  if (!error.isEmpty()) return false;
  SFilePlace file;
  SFilePlace beside;
  bool exists = false;
  int code = findFile(fileName, file, exists);
  if (code == ELOOP || !exists) {
    error = tr("this is not a regular file and is not kept as a backup.");
    return false;
  }
  if (code == 0) code = beside.find(fileName, SFilePlace::KeepLast);
  QByteArray suffix = ".bak";
  if (code == 0) code = addName(file, beside.folder, beside.name + suffix);
  for (int number = 1; code == EEXIST && number < kMaxBackups; ++number) {
    suffix = ".bak." + QByteArray::number(number);
    code = addName(file, beside.folder, beside.name + suffix);
  }
  if (code == 0) code = syncFolder(beside.folder);
  const QString name = fileName + QLatin1String(suffix);
  if (code != 0) {
    error = tr("the file cannot be kept as \"%1\": %2.").arg(name, reasonOf(code, file));
    return false;
  }
  backupName = name;
  return true;
}

bool CAtomicFile::renameToNew(const QString& fileName, const QString& newName, QString& error) {
  error = nameProblem(newName);
  if (!error.isEmpty()) return false;
  SFilePlace file;
  SFilePlace free;
  int code = file.find(fileName, SFilePlace::KeepLast);
  if (code == 0) code = free.find(newName, SFilePlace::KeepLast);
  if (code == 0) code = moveToNew(file, free);
  if (code != 0) {
    error = tr("the file cannot be written: %1.").arg(reasonOf(code, free));
    if (code == EEXIST) error = tr("the file exists already and is not replaced.");
    return false;
  }
  code = syncFolder(free.folder);
  if (code != 0) error = unsyncedFolder(code);
  return code == 0;
}

bool CAtomicFile::isSameFile(const QString& fileName, const QString& otherName) {
  SFilePlace file;
  SFilePlace other;
  const int code = file.find(fileName, SFilePlace::FollowLast);
  const int otherCode = other.find(otherName, SFilePlace::FollowLast);
  return code == 0 && otherCode == 0 ? file.isSame(other) : fileName == otherName;
}
