#include "SFilePlace.h"

#include <QFile>
#include <QFileInfo>
#include <QPair>

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <array>
#include <cerrno>
#include <climits>

namespace {

constexpr int kMaxLinks = 40;  // as many as the system follows

struct stat statOf(const CFileHandle& folder, const QByteArray& name) {
  struct stat info = {};  // all zeros when there is no such file
  ::fstatat(folder.number(), name.constData(), &info, AT_SYMLINK_NOFOLLOW | AT_EMPTY_PATH);
  return info;
}

QPair<dev_t, ino_t> idOf(const CFileHandle& folder, const QByteArray& name) {
  const struct stat info = statOf(folder, name);
  return {info.st_dev, info.st_ino};
}

/// The links of /proc lead to open files, and not where their text says.
bool isProc(const CFileHandle& folder) {
  struct statfs info = {};
  ::fstatfs(folder.number(), &info);
  return info.f_type == PROC_SUPER_MAGIC;
}

QByteArray linkText(const CFileHandle& folder, const QByteArray& name) {
  std::array<char, PATH_MAX> text;
  const ssize_t size = ::readlinkat(folder.number(), name.constData(), text.data(), text.size());
  return QByteArray(text.data(), static_cast<int>(qMax<ssize_t>(size, 0)));
}

/// Takes the next piece off a path. What is left begins with a slash, or is empty.
QByteArray takePiece(QByteArray& path) {
  int begin = 0;
  while (begin < path.size() && path.at(begin) == '/') ++begin;
  const int slash = path.indexOf('/', begin);
  const int end = slash < 0 ? path.size() : slash;
  const QByteArray piece = path.mid(begin, end - begin);
  path.remove(0, end);
  return piece;
}

}  // namespace

int SFilePlace::enter(int from, const char* path) {
  CFileHandle next(::openat(from, path, O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!next.isOpen()) return errno;
  folder = std::move(next);
  return 0;
}

bool SFilePlace::isStrangersLink(const struct stat& link) const {
  const struct stat place = statOf(folder, QByteArray());
  constexpr mode_t kShared = S_ISVTX | S_IWOTH;
  return (place.st_mode & kShared) == kShared && link.st_uid != ::geteuid() &&
         link.st_uid != place.st_uid;
}

QByteArray SFilePlace::bytesOf(const QString& fileName) {
  return QFile::encodeName(QFileInfo(fileName).filePath());
}

int SFilePlace::find(const QString& fileName, ELastLink last) {
  QByteArray rest = bytesOf(fileName);
  int code = enter(AT_FDCWD, rest.startsWith('/') ? "/" : ".");
  for (int links = 0; code == 0 && links <= kMaxLinks;) {
    name = takePiece(rest);
    if (name.isEmpty()) name = ".";
    const struct stat info = statOf(folder, name);
    const bool isLink = S_ISLNK(info.st_mode) && !isProc(folder);
    if (rest.isEmpty() && !(isLink && last == FollowLast)) return 0;
    if (!isLink) {
      code = enter(folder.number(), name.constData());
      continue;
    }
    ++links;
    hasStrangersLink = isStrangersLink(info);
    if (hasStrangersLink) return EACCES;
    rest.prepend(linkText(folder, name));
    if (rest.startsWith('/')) code = enter(AT_FDCWD, "/");
  }
  return code == 0 ? ELOOP : code;
}

bool SFilePlace::isSame(const SFilePlace& other) const {
  const bool isSameFolder = idOf(folder, {}) == idOf(other.folder, {});
  const auto id = idOf(folder, name);
  return (isSameFolder && name == other.name) ||
         (id.second != 0 && id == idOf(other.folder, other.name));
}
