// Saves whose system calls fail, whose disk is full, whose process is killed: the target is always
// the old file or the new one, whole, and a save that says it succeeded has written the new one.

#include "CAtomicFile.h"
#include "Faults.h"
#include "ICParameterFile.h"
#include "Torture.h"

#include <QDataStream>
#include <QDir>

#include <fcntl.h>
#include <grp.h>
#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

using namespace NTorture;

namespace {

constexpr quint32 kVersion = 0x10000;

/// How a scene goes about it.
enum EHow {
  Exists = 1,
  IsLink = 2,
  IsPlain = 4,  ///< the file system, which has neither second names nor rights
  KeepsBackup = 8,
  HasRights = 16,
  MovesAfter = 32  ///< the file is new, and gets its name only then
};
struct SScene {
  const char* name;
  int how;
  QFileDevice::Permissions permissions;

  bool is(EHow what) const { return (how & what) != 0; }
};
constexpr QFileDevice::Permissions kOwnersOnly = QFile::ReadOwner | QFile::WriteOwner;
const SScene kScenes[] = {
    {"a new file", 0, {}},
    {"an old file", Exists, {}},
    {"a new file with permissions", 0, kOwnersOnly},
    {"a link, with permissions", Exists | IsLink, kOwnersOnly},
    {"a file with rights", Exists | HasRights, {}},
    {"a backup first", Exists | KeepsBackup, {}},
    {"a backup first, plain file system", Exists | KeepsBackup | IsPlain, {}},
    {"a name that is free", MovesAfter, {}},
    {"a name that is free, plain file system", MovesAfter | IsPlain, kOwnersOnly},
};

constexpr uid_t kOwner = 100;
constexpr uid_t kNamed[] = {101, 102};
constexpr uid_t kStranger = 103;
constexpr gid_t kGroups[] = {200, 201, 202};  // the file's, the saver's, one that a list names

/// An access control list as the system keeps it, with any rights.
QByteArray anyList(CRandom& random) {
  QByteArray list;
  QDataStream stream(&list, QIODevice::WriteOnly);
  stream.setByteOrder(QDataStream::LittleEndian);
  stream << quint32(POSIX_ACL_XATTR_VERSION);
  const auto add = [&](quint16 tag, quint32 id) {
    stream << tag << static_cast<quint16>(random.below(8)) << id;
  };
  constexpr auto kNobody = static_cast<quint32>(ACL_UNDEFINED_ID);
  add(ACL_USER_OBJ, kNobody);
  for (const uid_t user : kNamed)
    if (random.oneIn(2)) add(ACL_USER, user);
  add(ACL_GROUP_OBJ, kNobody);
  if (random.oneIn(2)) add(ACL_GROUP, kGroups[2]);
  add(ACL_MASK, kNobody);
  add(ACL_OTHER, kNobody);
  return list;
}

/// The second name is for what a folder gives its files. False where the file system has no lists.
constexpr const char* kLists[] = {"system.posix_acl_access", "system.posix_acl_default"};
bool setList(const QString& fileName, const char* name, const QByteArray& list) {
  const auto size = static_cast<size_t>(list.size());
  return ::setxattr(qPrintable(fileName), name, list.constData(), size, 0) == 0;
}

bool giveAway(const QString& fileName) {
  return ::chown(qPrintable(fileName), kOwner, kGroups[0]) == 0;
}

/// What the system lets everybody but the owner do with a file, by user and set of groups. Only the
/// superuser can try.
QByteArray rightsOf(const QString& fileName) {
  QByteArray rights;
  for (unsigned person = 0; person < 24; ++person) {
    std::vector<gid_t> groups;
    for (unsigned i = 0; i < 3; ++i)
      if ((person >> i & 1U) != 0) groups.push_back(kGroups[i]);
    ::setgroups(groups.size(), groups.data());
    ::setegid(kStranger);
    ::seteuid(kNamed[0] + person / 8);  // the second named one and the stranger follow
    char bits = 0;
    for (const int right : {R_OK, W_OK, X_OK}) {
      const bool may = ::faccessat(AT_FDCWD, qPrintable(fileName), right, AT_EACCESS) == 0;
      bits = static_cast<char>(bits | (may ? right : 0));
    }
    rights.append(bits);
    ::seteuid(0);
  }
  ::setegid(kGroups[1]);
  return rights;
}

QByteArray pattern(int size, unsigned seed) {
  CRandom random(seed);
  QByteArray bytes(size, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random.below(256));
  return bytes;
}

/// A folder with a file to save, and what may be found there afterwards.
class CStage {
 public:
  CStage(const SScene& scene, const QByteArray& content, CTally& tally, const QString& path)
      : mScene(scene), mNew(content), mTally(tally), mPath(path) {
    clear();
    QDir().mkpath(mPath);
    if (scene.is(Exists)) writeFile(target(), mOld);
    if (scene.is(IsLink)) QFile::link("file", mPath + "/link");
    if (scene.is(KeepsBackup)) writeFile(target() + ".bak", "earlier");
    if (scene.is(HasRights)) {
      CRandom random(9);
      setList(target(), kLists[0], anyList(random));
      setList(target(), "user.note", "kept");
      giveAway(target());
    }
    if (!scene.is(IsPlain)) return;
    QFile::setPermissions(target(), kOwnersOnly);  // what a new file has, and keeps
    NFaults::refuse({NFaults::Link, NFaults::RenameToNew, NFaults::Chmod, NFaults::Chown,
                     NFaults::GetAttribute, NFaults::RemoveAttribute});
  }
  ~CStage() {
    NFaults::refuse({});
    clear();
  }

  QString target() const { return mPath + "/file"; }
  void saveWith(const std::function<bool(const QString&, QString&)>& save) {
    const QString name = mPath + (mScene.is(IsLink) ? "/link" : "/file");
    const QString first = mScene.is(MovesAfter) ? mPath + "/first" : name;
    QString backup;
    mSaved = (!mScene.is(KeepsBackup) || CAtomicFile::keepAsBackup(name, backup, mError)) &&
             save(first, mError) &&
             (!mScene.is(MovesAfter) || CAtomicFile::renameToNew(first, name, mError));
  }
  void save() {
    saveWith([this](const QString& name, QString& error) {
      return CAtomicFile::write(name, mNew, mScene.permissions, error, &mLost);
    });
  }

  void check(const QString& what, bool mayLeaveFiles = false) const {
    const bool exists = QFile::exists(target());
    const QByteArray found = exists ? readFile(target()) : QByteArray();
    const bool isOld = mScene.is(Exists) ? found == mOld : !exists;
    const bool isNew = exists && found == mNew;
    const QString message =
        QString("%1, %2 bytes, %3: ").arg(mScene.name).arg(mNew.size()).arg(what);
    mTally.check(isOld || isNew, message + QString("torn, %1 bytes").arg(found.size()));
    mTally.check(isNew || !mSaved, message + "reported as saved");
    const bool saysKept = mError.contains("the old one is kept");
    mTally.check(!saysKept || (isOld && mScene.is(Exists)), message + mError);
    mTally.check(!mScene.is(IsLink) || QFileInfo(mPath + "/link").isSymLink(),
                 message + "link is gone");
    if (mScene.is(KeepsBackup)) {
      mTally.check(isOld || readFile(target() + ".bak.1") == mOld, message + "no backup");
      mTally.check(readFile(target() + ".bak") == "earlier", message + "a backup was replaced");
    }
    QStringList more = QDir(mPath).entryList(QDir::Files | QDir::Hidden);
    for (const char* known : {"file", "link", "file.bak", "file.bak.1"}) more.removeAll(known);
    if (!mSaved) more.removeAll("first");
    mTally.check(mayLeaveFiles || more.isEmpty(), message + "left " + more.join(' '));
  }
  bool isSaved() const { return mSaved; }
  const QString& error() const { return mError; }

 private:
  void clear() const { QDir(mPath).removeRecursively(); }

  const SScene mScene;
  const QByteArray mOld = pattern(20000, 7);
  const QByteArray mNew;
  CTally& mTally;
  const QString mPath;
  QString mError;
  QString mLost;
  bool mSaved = false;
};

class CSaves {
 public:
  CSaves(const SOptions& options, CTally& tally) : mOptions(options), mTally(tally) {}

  /// Every call of a save fails once, and from then on, with every error.
  void failEveryCall() {
    for (const SScene& scene : kScenes) {
      for (const int size : mOptions.isLong ? QList<int>{1000, 16383, 16384, 16385, 100000, 5000000}
                                            : QList<int>{1000, 16385}) {
        const QByteArray content = pattern(size, 1);
        const auto save = [](CStage& stage) { stage.save(); };
        failEveryCallOf(scene, content, save);
      }
    }
    const auto file = std::unique_ptr<ICParameterFile>(
        ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
    file->loadParamFile(exampleFile("TwoAxisDrive.xparam"), QString(), kVersion);
    file->saveParamFile(folder("expected"), QString(), kVersion);
    failEveryCallOf(kScenes[1], readFile(folder("expected")), [&file](CStage& stage) {
      stage.saveWith([&file](const QString& name, QString& error) {
        const bool saved = file->saveParamFile(name, QString(), kVersion);
        error = saved ? QString() : file->errorMsg();
        return saved;
      });
    });
  }

  /// Every call of a save is its process's last.
  void killAtEveryCall() {
    for (const SScene& scene : kScenes) {
      if (scene.is(MovesAfter) && scene.is(IsPlain)) continue;  // copied, as nothing else is left
      const QByteArray content = pattern(16385, 2);
      forEveryCall(
          scene, content, [](CStage& stage) { stage.save(); },
          [&](NFaults::ECall call, int n) {
            for (const NFaults::EMode mode : {NFaults::KillBefore, NFaults::KillAfter}) {
              CStage stage(scene, content, mTally, folder("stage"));
              const pid_t child = ::fork();
              if (child == 0) {
                NFaults::arm(call, n, EIO, mode);
                stage.save();
                ::_exit(EXIT_SUCCESS);
              }
              int status = 0;
              ::waitpid(child, &status, 0);
              mTally.check(WIFSIGNALED(status), "the process lived on");
              stage.check(QString("killed at %1 %2").arg(NFaults::name(call)).arg(n), true);
              ++mKills;
            }
          });
    }
  }

  /// A process that saves without an end is killed at any moment.
  void killAtRandom() {
    CRandom random(3);
    const QByteArray content = pattern(100000, 4);
    for (int i = mOptions.pick(20, 200); i > 0; --i) {
      CStage stage(kScenes[1], content, mTally, folder("stage"));
      const pid_t child = ::fork();
      if (child == 0)
        for (;;) stage.save();
      ::usleep(static_cast<useconds_t>(random.below(3000)));
      ::kill(child, SIGKILL);
      ::waitpid(child, nullptr, 0);
      stage.check("killed", true);
      ++mKills;
    }
  }

  /// A disk with room for so many pages.
  void fillTheDisk() {
    apart("full disk", [this] {
      const QString disk = folder("disk");
      QDir().mkpath(disk);
      if (::unshare(CLONE_NEWNS) != 0 ||
          ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
          ::mount("kto", qPrintable(disk), "tmpfs", 0, "size=256k") != 0) {
        std::printf("saves: skipped, a full disk: no file system can be mounted here\n");
        return;
      }
      const QByteArray page(4096, 'x');
      int failures = 0;
      for (const int size : {1000, 16383, 16384, 16385, 100000}) {
        for (int pages = 0; pages < 64; pages += pages < 8 ? 1 : 5) {
          CStage stage(kScenes[1], pattern(size, 5), mTally, disk + "/stage");
          writeFile(disk + "/filler", QByteArray());
          QFile filler(disk + "/filler");
          filler.open(QFile::WriteOnly | QFile::Unbuffered);
          while (filler.write(page) == page.size()) {
          }
          filler.resize(qMax<qint64>(filler.size() - pages * page.size(), 0));
          stage.save();
          failures += stage.isSaved() ? 0 : 1;
          mTally.check(stage.isSaved() || stage.error().endsWith(": No space left on device."),
                       stage.error());
          stage.check(QString("a disk of %1 pages").arg(pages));
        }
      }
      mTally.check(failures > 20, QString("only %1 saves found the disk full").arg(failures));
    });
  }

  /// Nobody may write there; the superuser becomes someone who may not.
  void lockTheFolder() {
    apart("read-only folder", [this] {
      CStage stage(kScenes[1], pattern(1000, 6), mTally, folder("stage"));
      QFile::setPermissions(mFolder.path(), QFile::ReadOwner | QFile::ExeOwner | QFile::ExeOther);
      const QFileDevice::Permissions locked =
          QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
      QFile::setPermissions(folder("stage"), locked);
      constexpr uid_t kNobody = 65534;
      const bool isChanged = ::getuid() != 0 || (::setgroups(0, nullptr) == 0 &&
                                                 ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
      mTally.check(isChanged, "the user cannot be changed");
      stage.save();
      mTally.check(!stage.isSaved(), "saved in a read-only folder");
      stage.check("read-only folder");
    });
  }

  /// Whatever of a file's rights cannot be kept, nobody else may do more with it than before.
  void loseRights() {
    apart("rights", [this] {
      const QString place = folder("rights");
      QDir().mkpath(place);
      for (const QString& path : {mFolder.path(), place})
        QFile::setPermissions(path, QFileDevice::Permissions(0x7777));
      CRandom random(10);
      for (int i = mOptions.pick(300, 5000); i > 0; --i) {
        if (loseSome(place, random)) continue;
        std::printf("saves: skipped, lost rights: owners or lists cannot be set here\n");
        return;
      }
    });
  }

  bool loseSome(const QString& place, CRandom& random) {
    const QString name = place + "/file";
    QFile::remove(name);
    ::removexattr(qPrintable(place), kLists[1]);
    writeFile(name, "old");
    const bool hasList = random.oneIn(2);
    if (!giveAway(name) ||
        ::chmod(qPrintable(name), static_cast<mode_t>(random.below(01000))) != 0 ||
        (hasList && !setList(name, kLists[0], anyList(random))) ||
        (random.oneIn(2) && !setList(place, kLists[1], anyList(random)))) {
      return false;
    }
    const bool losesGroup = random.oneIn(2);
    const bool losesList = random.oneIn(2);
    const QByteArray before = rightsOf(name);
    NFaults::refuse({losesGroup ? NFaults::Chown : NFaults::SendFile,
                     losesList ? NFaults::SetAttribute : NFaults::SendFile});
    QString error;
    QString lost;
    const bool isSaved = CAtomicFile::write(name, "new", {}, error, &lost);
    NFaults::refuse({});
    const QByteArray after = rightsOf(name);
    bool isMore = false;
    for (int i = 0; i < before.size(); ++i) isMore |= (after.at(i) & ~before.at(i)) != 0;
    const QString message = before.toHex() + " became " + after.toHex() + ", " + lost + error;
    mTally.check(isSaved && !isMore, message);
    mTally.check(losesGroup || losesList || after == before, message);
    mTally.check(lost.contains("group") == losesGroup, message);
    mTally.check(lost.contains("access control list") == (losesList && hasList), message);
    return true;
  }

  /// What cannot be read, or kept as a backup, is told.
  void failReads() {
    const QString name = folder("file");
    QString error;
    QByteArray content;
    writeFile(name, pattern(100000, 8));
    NFaults::arm(NFaults::Read, 1, EIO, NFaults::Once);
    const bool done = CAtomicFile::read(name, content, error);
    NFaults::disarm();
    mTally.check(!done && error.startsWith("the file cannot be read: "), "a failed read " + error);
    NFaults::arm(NFaults::Link, 1, EEXIST, NFaults::FromThenOn);
    const bool kept = CAtomicFile::keepAsBackup(name, error, error);
    NFaults::disarm();
    mTally.check(!kept && NFaults::calls(NFaults::Link) == 10000, "backups without an end");
    QFile::resize(name, CAtomicFile::kMaxBytes + 1);
    mTally.check(!CAtomicFile::read(name, content, error), "a file that is too large");
    mTally.check(error == "the file is larger than 512 MiB.", error);
    QFile::remove(name);
  }

  QString figures() const {
    return QString("%1 faults, %2 killed processes, full disks, a read-only folder")
        .arg(mFaults)
        .arg(mKills);
  }

 private:
  using CSave = std::function<void(CStage&)>;

  QString folder(const QString& name) const { return mFolder.path(name); }

  void forEveryCall(const SScene& scene, const QByteArray& content, const CSave& save,
                    const std::function<void(NFaults::ECall, int)>& visit) {
    int counts[NFaults::CallCount] = {};
    {
      CStage stage(scene, content, mTally, folder("stage"));
      NFaults::arm(NFaults::Open, 0, 0, NFaults::Once);
      save(stage);
      NFaults::disarm();
      mTally.check(stage.isSaved(), scene.name);
      stage.check("without a fault");
    }
    for (int call = 0; call < NFaults::CallCount; ++call)
      counts[call] = NFaults::calls(NFaults::ECall(call));
    for (int call = 0; call < NFaults::CallCount; ++call)
      for (int n = 1; n <= counts[call]; ++n) visit(NFaults::ECall(call), n);
  }

  void failEveryCallOf(const SScene& scene, const QByteArray& content, const CSave& save) {
    forEveryCall(scene, content, save, [&](NFaults::ECall call, int n) {
      for (const int error : {EIO, ENOSPC, EINTR, EDQUOT}) {
        for (const NFaults::EMode mode : {NFaults::Once, NFaults::FromThenOn, NFaults::Short}) {
          // An interrupted call is made again, so it must not be interrupted for ever.
          const bool isEndless = error == EINTR && mode != NFaults::Once;
          const bool isNoWrite = mode == NFaults::Short && call != NFaults::Write;
          if (isEndless || isNoWrite) continue;
          CStage stage(scene, content, mTally, folder("stage"));
          NFaults::arm(call, n, error, mode);
          save(stage);
          NFaults::disarm();
          mTally.check(NFaults::hasStruck(), "the fault did not come to pass");
          stage.check(QString("%1 %2, error %3, mode %4")
                          .arg(NFaults::name(call))
                          .arg(n)
                          .arg(error)
                          .arg(mode),
                      call == NFaults::Unlink);
          ++mFaults;
        }
      }
    });
  }

  /// Runs a check in a process of its own, whose failures count here.
  void apart(const char* name, const std::function<void()>& run) {
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
      run();
      std::fflush(nullptr);
      ::_exit(mTally.hasFailures() ? EXIT_FAILURE : EXIT_SUCCESS);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    mTally.check(WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS, name);
  }

  const SOptions& mOptions;
  CTally& mTally;
  const CFolder mFolder;
  int mFaults = 0;
  int mKills = 0;
};

}  // namespace

int main(int argc, char** argv) {
  const SOptions options(argc, argv);
  CTally tally("saves");
  CSaves saves(options, tally);
  saves.failEveryCall();
  saves.failReads();
  saves.killAtEveryCall();
  saves.killAtRandom();
  saves.fillTheDisk();
  saves.lockTheFolder();
  saves.loseRights();
  return tally.finish(saves.figures());
}
