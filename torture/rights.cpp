// Saves of files whose owner, group and access control list cannot all be kept: whatever is lost,
// nobody else may do more with the file than before, as the system sees it.

#include "CAtomicFile.h"
#include "Faults.h"
#include "TestFiles.h"
#include "Torture.h"

#include <QDataStream>
#include <QFile>
#include <QRandomGenerator>

#include <fcntl.h>
#include <grp.h>
#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <vector>

using namespace NTorture;

namespace {

constexpr uid_t kOwner = 100;
constexpr uid_t kNamed[] = {101, 102};
constexpr uid_t kStranger = 103;
constexpr gid_t kGroups[] = {200, 201, 202};  // the file's, the saver's, one that a list names
constexpr const char* kOfFile = "system.posix_acl_access";
constexpr const char* kOfNewFiles = "system.posix_acl_default";  // what a folder gives its files

bool isChance(QRandomGenerator& random) {
  return random.bounded(2) == 0;
}

/// Sets an access control list, as the system keeps it, of any rights. False where the file system
/// has no lists.
bool setAnyList(const char* fileName, const char* name, QRandomGenerator& random) {
  QByteArray list;
  QDataStream stream(&list, QIODevice::WriteOnly);
  stream.setByteOrder(QDataStream::LittleEndian);
  stream << quint32(POSIX_ACL_XATTR_VERSION);
  const auto add = [&](quint16 tag, quint32 id = static_cast<quint32>(ACL_UNDEFINED_ID)) {
    stream << tag << static_cast<quint16>(random.bounded(8)) << id;
  };
  add(ACL_USER_OBJ);
  for (const uid_t user : kNamed)
    if (isChance(random)) add(ACL_USER, user);
  add(ACL_GROUP_OBJ);
  if (isChance(random)) add(ACL_GROUP, kGroups[2]);
  add(ACL_MASK);
  add(ACL_OTHER);
  return ::setxattr(fileName, name, list.constData(), static_cast<size_t>(list.size()), 0) == 0;
}

/// What the system lets everybody but the owner do with a file, by user and set of groups.
QByteArray rightsOf(const char* fileName) {
  QByteArray rights;
  for (unsigned person = 0; person < 24; ++person) {
    std::vector<gid_t> groups;
    for (unsigned i = 0; i < 3; ++i)
      if ((person >> i & 1U) != 0) groups.push_back(kGroups[i]);
    ::setgroups(groups.size(), groups.data());
    ::setegid(kStranger);
    ::seteuid(kNamed[0] + person / 8);  // the second named one and the stranger follow
    int bits = 0;
    for (const int right : {R_OK, W_OK, X_OK})
      if (::faccessat(AT_FDCWD, fileName, right, AT_EACCESS) == 0) bits |= right;
    rights.append(static_cast<char>(bits));
    ::seteuid(0);
  }
  ::setegid(kGroups[1]);
  return rights;
}

/// False where owners or lists cannot be set.
bool saveOnce(const QByteArray& folder, QRandomGenerator& random, CTally& tally) {
  const QByteArray path = folder + "/file";
  const char* const name = path.constData();
  ::unlink(name);
  ::removexattr(folder.constData(), kOfNewFiles);
  NTestFiles::write(path, "old");
  const bool hasList = isChance(random);
  if (::chown(name, kOwner, kGroups[0]) != 0 ||
      ::chmod(name, static_cast<mode_t>(random.bounded(01000))) != 0 ||
      (hasList && !setAnyList(name, kOfFile, random)) ||
      (isChance(random) && !setAnyList(folder.constData(), kOfNewFiles, random))) {
    return false;
  }
  const bool hasNote = ::setxattr(name, "user.note", "kept", 4, 0) == 0;
  const bool losesGroup = isChance(random);
  const bool losesList = isChance(random);
  const QByteArray before = rightsOf(name);
  NFaults::refuse({losesGroup ? "fchown" : "", losesList ? "fsetxattr" : ""});
  QString error;
  QString lost;
  const bool isSaved = CAtomicFile::write(name, "new", {}, error, &lost);
  NFaults::refuse({});
  const QByteArray after = rightsOf(name);
  bool isMore = false;
  for (int i = 0; i < before.size(); ++i) isMore |= (after.at(i) & ~before.at(i)) != 0;
  const QString message = before.toHex() + " became " + after.toHex() + ", " + lost + error;
  tally.check(isSaved && !isMore, message);
  tally.check(losesGroup || losesList || after == before, message);
  NFaults::refuse({"linkat"});
  QString backup;
  tally.check(CAtomicFile::keepAsBackup(name, backup, error) &&
                  rightsOf(backup.toLocal8Bit().constData()) == after,
              "the rights of a copied backup");
  NFaults::refuse({});
  QFile::remove(backup);
  tally.check(lost.contains("group") == losesGroup, message);
  tally.check(lost.contains("access control list") == (losesList && hasList), message);
  tally.check(lost.contains("attributes") == (losesList && hasNote), message);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  const SOptions options(argc, argv);
  CTally tally("rights");
  const CFolder folder;
  const QByteArray place = folder.path().toLocal8Bit();
  ::chmod(place.constData(), 0777);
  QRandomGenerator random(10);
  const int saves = options.pick(300, 5000);
  for (int i = 0; i < saves; ++i) {
    if (saveOnce(place, random, tally)) continue;
    tally.check(true, "skipped: owners, attributes or lists cannot be set here");
    return tally.finish("skipped");
  }
  return tally.finish(QString("%1 saves").arg(saves));
}
