#include "NFileRights.h"

#include <QByteArrayList>
#include <QtEndian>

#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

namespace {

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr size_t kMaxAttributeBytes = 65536;  // the system's limit, also for a list of names
constexpr int kListHead = sizeof(posix_acl_xattr_header);
constexpr int kListEntry = sizeof(posix_acl_xattr_entry);
constexpr mode_t kAll = 07;  // read, write and execute
constexpr mode_t kModeBits = 07777;

bool isNone(int code) {
  return code == ENODATA || code == EOPNOTSUPP;
}

/// Empty when the file does not have the attribute, which is no error.
int readAttribute(int file, const char* name, QByteArray& value) {
  std::vector<char> bytes(kMaxAttributeBytes);
  const ssize_t size = ::fgetxattr(file, name, bytes.data(), bytes.size());
  value = QByteArray(bytes.data(), static_cast<int>(qMax<ssize_t>(size, 0)));
  return size >= 0 || isNone(errno) ? 0 : errno;
}

bool writeAttribute(int file, const char* name, const QByteArray& value) {
  return ::fsetxattr(file, name, value.constData(), static_cast<size_t>(value.size()), 0) == 0;
}

bool copyUserAttributes(int from, int to) {
  std::vector<char> bytes(kMaxAttributeBytes);
  const ssize_t size = ::flistxattr(from, bytes.data(), bytes.size());
  if (size < 0) return isNone(errno);
  const QByteArray names(bytes.data(), static_cast<int>(size));
  QByteArray value;
  bool isKept = true;
  for (const QByteArray& name : names.split('\0')) {
    if (!name.startsWith("user.")) continue;
    const bool isCopied = readAttribute(from, name.constData(), value) == 0 &&
                          writeAttribute(to, name.constData(), value);
    if (!isCopied) isKept = false;
  }
  return isKept;
}

// Each entry of a list: two bytes of what it is for, two of rights, four of a user or group.
int entryTag(const QByteArray& list, int entry) {
  return qFromLittleEndian<quint16>(list.constData() + entry);
}

mode_t entryBits(const QByteArray& list, int entry) {
  return qFromLittleEndian<quint16>(list.constData() + entry + 2) & kAll;
}

void setEntryBits(QByteArray& list, int entry, mode_t bits) {
  qToLittleEndian(static_cast<quint16>(bits), list.data() + entry + 2);
}

mode_t makeMode(mode_t mode, mode_t group, mode_t others) {
  return (mode & ~mode_t(077)) | (group << 3U) | others;
}

/// The members of the old group are others now, and somebody else is in the new one, perhaps along
/// with a group that the list names.
void dropGroup(mode_t& mode, QByteArray& list) {
  const mode_t groupOrMask = (mode >> 3U) & kAll;
  mode_t shared = groupOrMask & mode;
  int group = 0;
  for (int entry = kListHead; entry < list.size(); entry += kListEntry) {
    const int tag = entryTag(list, entry);
    if (tag == ACL_GROUP_OBJ) group = entry;
    if (tag == ACL_GROUP_OBJ || tag == ACL_GROUP) shared &= entryBits(list, entry);
  }
  if (group != 0) setEntryBits(list, group, shared);
  mode = makeMode(mode, group != 0 ? groupOrMask : shared, shared);
}

/// The group's bits of the mode were the mask of the list. Whoever the list named belongs to the
/// group or to the others now.
void dropList(mode_t& mode, const QByteArray& list) {
  const mode_t mask = (mode >> 3U) & kAll;
  mode_t group = mask;
  mode_t others = mode & kAll;
  for (int entry = kListHead; entry < list.size(); entry += kListEntry) {
    const int tag = entryTag(list, entry);
    const bool isNamed = tag == ACL_USER || tag == ACL_GROUP;
    if (isNamed) others &= mask & entryBits(list, entry);
    if (isNamed || tag == ACL_GROUP_OBJ) group &= entryBits(list, entry);
  }
  mode = makeMode(mode, group, others);
}

/// Removes the list that a new file has from its folder; with it, a mode would mean something else.
int clearList(int file) {
  return ::fremovexattr(file, kAccessList) == 0 || isNone(errno) ? 0 : errno;
}

int copyOwner(int file, const struct stat& old, int& lost) {
  if (::fchown(file, old.st_uid, old.st_gid) != 0 &&
      ::fchown(file, static_cast<uid_t>(-1), old.st_gid) != 0) {
    // What counts is seen below: a mount that refuses any change may have the right ones.
  }
  struct stat info = {};
  if (::fstat(file, &info) != 0) return errno;
  if (info.st_uid != old.st_uid) lost |= NFileRights::Owner;
  if (info.st_gid != old.st_gid) lost |= NFileRights::Group;
  return 0;
}

}  // namespace

int NFileRights::setMode(int file, mode_t mode) {
  if (::fchmod(file, mode) == 0) return 0;
  const int code = errno;
  struct stat info = {};
  return ::fstat(file, &info) == 0 && (info.st_mode & kModeBits) == mode ? 0 : code;
}

int NFileRights::copy(int from, int to, std::optional<mode_t> told, int& lost) {
  struct stat old = {};
  QByteArray list;
  if (::fstat(from, &old) != 0) return errno;
  if (!copyUserAttributes(from, to)) lost |= Attributes;
  int code = readAttribute(from, kAccessList, list);
  if (code == 0) code = copyOwner(to, old, lost);
  if (code == 0) code = clearList(to);
  if (code != 0) return code;

  mode_t mode = told.value_or(old.st_mode & kModeBits);
  if ((lost & (Owner | Group)) != 0) mode &= ~mode_t(S_ISUID | S_ISGID);
  if ((lost & Group) != 0) dropGroup(mode, list);
  if (!list.isEmpty() && !writeAttribute(to, kAccessList, list)) {
    dropList(mode, list);
    lost |= AccessList;
  }
  return setMode(to, mode);
}
