#include "CFolderLock.h"

#include "SFilePlace.h"

#include <QDeadlineTimer>
#include <QThread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <map>
#include <utility>

namespace {

constexpr unsigned long kPauseMs = 5;  // between two tries; the system offers no wait with an end

/// Each folder once, in an order that is the same in every process: so of all who lock several,
/// there is always one who need not wait for another.
using CFolders = std::map<std::pair<dev_t, ino_t>, CFileHandle>;

/// Opened as a lock needs it, which takes the permission to read the folder.
CFileHandle openFolder(const QString& fileName) {
  SFilePlace place;
  if (place.find(fileName, SFilePlace::FollowLast) != 0) return CFileHandle();
  int number = -1;
  do {
    number = ::openat(place.folder.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  } while (number < 0 && errno == EINTR);
  return CFileHandle(number);
}

CFolderLock::EResult lockFolder(const CFileHandle& folder, const QDeadlineTimer& end) {
  while (::flock(folder.number(), LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) return CFolderLock::NotPossible;
    if (end.hasExpired()) return CFolderLock::Busy;
    QThread::msleep(kPauseMs);
  }
  return CFolderLock::Locked;
}

}  // namespace

CFolderLock::CFolderLock() = default;

CFolderLock::~CFolderLock() = default;

CFolderLock::EResult CFolderLock::lock(const QStringList& fileNames, int milliseconds) {
  unlock();
  const QDeadlineTimer end(milliseconds);
  EResult result = Locked;
  CFolders folders;
  for (const QString& fileName : fileNames) {
    CFileHandle folder = openFolder(fileName);
    struct stat info = {};
    if (folder.isOpen() && ::fstat(folder.number(), &info) == 0)
      folders.emplace(std::pair(info.st_dev, info.st_ino), std::move(folder));
    else
      result = NotPossible;
  }
  for (auto& entry : folders) {
    const EResult one = lockFolder(entry.second, end);
    if (one == Busy) {
      unlock();
      return Busy;
    }
    if (one == Locked)
      mFolders.push_back(std::move(entry.second));
    else
      result = NotPossible;
  }
  return result;
}

void CFolderLock::unlock() {
  mFolders.clear();  // the end of a file handle is that of its lock
}
