// Saves whose system calls fail, and whose power is cut after any of them: the target is always the
// old file or the new one, whole, and a save that says it succeeded has written the new one.

#include "CAtomicFile.h"
#include "CDisk.h"
#include "Faults.h"
#include "ICSimpleParamReader.h"
#include "TestFiles.h"
#include "Torture.h"

#include <QDir>
#include <QRandomGenerator>

#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <memory>

using namespace NTestFiles;
using namespace NTorture;

namespace {

/// What a save finds, and how it goes about it.
enum EHow {
  Exists = 1,
  IsLink = 2,   ///< to a file in another folder
  IsPlain = 4,  ///< the file system, which has neither second names nor rights
  KeepsBackup = 8,
  MovesAfter = 16,  ///< the file is new, and gets its name only then
  HasRights = 32    ///< as far as the user may give them and the file system has them
};
struct SScene {
  const char* name;
  int how;
  QFileDevice::Permissions permissions = {};

  bool is(EHow what) const { return (how & what) != 0; }
};
constexpr QFileDevice::Permissions kOwnersOnly = QFile::ReadOwner | QFile::WriteOwner;
const SScene kScenes[] = {
    {"a new file", 0},
    {"a new file, plain file system", IsPlain},
    {"a new file with permissions", 0, kOwnersOnly},
    {"a new file after a link", IsLink},
    {"an old file", Exists},
    {"an old file with rights", Exists | HasRights},
    {"a link, with permissions", Exists | IsLink, kOwnersOnly},
    {"a link, plain file system", Exists | IsLink | IsPlain},
    {"a backup first", Exists | KeepsBackup},
    {"a backup first, plain file system", Exists | KeepsBackup | IsPlain},
    {"a backup of a link first", Exists | IsLink | KeepsBackup},
    {"a backup of a link first, plain file system", Exists | IsLink | KeepsBackup | IsPlain},
    {"a name that is free", MovesAfter},
    {"a name that is free, plain file system", MovesAfter | IsPlain, kOwnersOnly},
};

/// A save that is ready to be made. Its preparation does not fail.
using CSave = std::function<bool(QString& error)>;
using CPrepare = std::function<CSave(const QString& fileName, const SScene& scene)>;

QByteArray bytesOf(int size) {
  QRandomGenerator random(static_cast<quint32>(size));
  QByteArray content(size, '\0');
  for (char& byte : content) byte = static_cast<char>(1 + random.bounded(255));
  return content;
}

CPrepare contentOf(int size) {
  return [content = bytesOf(size)](const QString& name, const SScene& scene) -> CSave {
    return [=](QString& error) {
      QString backup;
      QString lost;
      const QString first = scene.is(MovesAfter) ? name + ".first" : name;
      return (!scene.is(KeepsBackup) || CAtomicFile::keepAsBackup(name, backup, error)) &&
             CAtomicFile::write(first, content, scene.permissions, error, &lost) &&
             (!scene.is(MovesAfter) || CAtomicFile::renameToNew(first, name, error));
    };
  };
}

/// The old file is none that can be loaded, so that the reader makes a backup.
CSave reader(const QString& name, const SScene& /*scene*/) {
  const auto reader = std::shared_ptr<ICSimpleParamReader>(ICSimpleParamReader::createSingle(
      NktoGlobal::FILE_TYPE_PARAMETERS, "id", NParamDef::FullAccess, nullptr, 0x10000, 0x10000));
  QString error;
  int number = 0;
  const QString definitions = name + ".xpdef";
  write(definitions, read(example("TwoAxisDrive.xpdef")));
  QFile::setPermissions(definitions, kOwnersOnly);
  reader->load(definitions, name, error);
  reader->getParam(1, "new", "", number, 1, error);
  return [reader](QString& /*error*/) {
    const bool isSaved = reader->saveFiles();
    reader->closeFiles(false);
    return isSaved;
  };
}

/// Another owner, a list that names a user, and an attribute.
void giveRights(const char* fileName) {
  const auto list = QByteArray::fromHex(
      "0200000001000600ffffffff020006006500000004000400ffffffff10000600ffffffff20000400ffffffff");
  Q_UNUSED(
      ::setxattr(fileName, "system.posix_acl_access", list.constData(), size_t(list.size()), 0))
  Q_UNUSED(::setxattr(fileName, "user.note", "kept", 4, 0))
  Q_UNUSED(::chown(fileName, 100, 200))
}

class CSaves {
 public:
  explicit CSaves(CTally& tally) : mTally(tally) {}

  /// After every call of a save the power is cut; and if asked for, every call fails once, and from
  /// then on.
  void cutEveryCall(const SScene& scene, const CPrepare& prepare, const QString& what, bool fails) {
    mScene = scene;
    mPrepare = prepare;
    mWhat = scene.name + (", " + what + ": ");
    mNew = {};
    saveWith({}, 0, 0, NFaults::Once);
    mNew = read(target());
    check(mIsSaved && mNew != mOld, mError);
    saveWith({}, 0, 0, NFaults::Once);
    checkFiles(false);
    if (!fails) return;
    for (const auto& [call, count] : NFaults::calls())
      for (int n = 1; n <= count; ++n) failCall(call, n);
  }

  /// What cannot be read, or kept as a backup, is told.
  void failReads() {
    mScene = kScenes[0];
    mWhat = "reads: ";
    NFaults::refuse({});
    prepareFolders();
    QByteArray content;
    QString error;
    write(target(), bytesOf(100000));
    NFaults::arm("read", 1, EIO, NFaults::Once);
    const bool isRead = CAtomicFile::read(target(), content, error);
    NFaults::disarm();
    check(!isRead && error.startsWith("the file cannot be read: "), "a failed read " + error);
    NFaults::arm("linkat", 1, EEXIST, NFaults::FromThenOn);
    const bool isKept = CAtomicFile::keepAsBackup(target(), error, error);
    NFaults::disarm();
    check(!isKept && NFaults::calls()["linkat"] == 10000, "backups without an end");
    QFile::resize(target(), CAtomicFile::kMaxBytes + 1);
    check(!CAtomicFile::read(target(), content, error), "a file that is too large");
    check(error == "the file is larger than 512 MiB.", error);
  }

  QString figures() const {
    return QString("%1 failing calls, %2 power cuts, %3 states of a disk")
        .arg(mFaults)
        .arg(mCuts)
        .arg(mStates);
  }

 private:
  bool check(bool ok, const QString& what) { return mTally.check(ok, mWhat + what); }
  QString path(const char* name) const { return mFolder.filePath(name); }
  QString target() const { return path("files/file.xparam"); }
  QString named() const { return mScene.is(IsLink) ? path("links/file.xparam") : target(); }

  void prepareFolders() const {
    for (const char* folder : {"files", "links"}) {
      QDir(path(folder)).removeRecursively();
      QDir().mkpath(path(folder));
    }
    if (mScene.is(Exists)) write(target(), mOld);
    if (mScene.is(IsLink)) QFile::link("../files/file.xparam", named());
    if (mScene.is(KeepsBackup)) write(named() + ".bak", "earlier");
    if (mScene.is(HasRights)) giveRights(qPrintable(target()));
    if (!mScene.is(IsPlain)) return;
    QFile::setPermissions(target(), kOwnersOnly);  // what a new file has, and keeps
    NFaults::refuse({"linkat", "renameat2", "fchmod", "fchown", "fgetxattr", "fremovexattr"});
  }

  void saveWith(const std::string& call, int nth, int error, NFaults::EMode mode) {
    NFaults::refuse({});
    prepareFolders();
    const CSave save = mPrepare(named(), mScene);
    CDisk disk({path("files"), path("links")});
    bool ok = true;
    // The power is cut where a call fails in one way; what matters then is what reached the disk.
    const bool isCut = !mNew.isNull() && (error == EIO || nth == 0) && mode != NFaults::FromThenOn;
    NFaults::watch([&](const std::string& made, int file, bool isDone) {
      static const std::set<std::string> kIdle{"close", "fstat", "read", "fgetxattr", "flistxattr"};
      if (!isCut || !ok || kIdle.count(made) > 0) return;
      const bool isChanged = disk.look();
      const bool isSync = made == "fsync";
      if (isSync) disk.sync(QFile::symLinkTarget(QString("/proc/self/fd/%1").arg(file)), isDone);
      if (isChanged || isSync) ok = cutPower(disk, false);
    });
    NFaults::arm(call, nth, error, mode);
    mError.clear();
    mIsSaved = save(mError);
    NFaults::disarm();
    NFaults::watch({});
    NFaults::refuse({});
    if (ok && isCut) cutPower(disk, true);
  }

  void failCall(const std::string& call, int nth) {
    const QString what = mWhat;
    // An interrupted call is made again, so it is not interrupted for ever.
    for (const auto& [error, mode] : {std::pair{EIO, NFaults::Once},
                                      {ENOSPC, NFaults::FromThenOn},
                                      {EIO, NFaults::Short},
                                      {EINTR, NFaults::Once}}) {
      if (mode == NFaults::Short && call != "write") continue;
      mWhat = what +
              QString("%1 %2, error %3, mode %4: ").arg(call.c_str()).arg(nth).arg(error).arg(mode);
      saveWith(call, nth, error, mode);
      check(NFaults::calls()[call] >= nth, "the fault did not come to pass");
      checkFiles(call == "unlinkat");
      ++mFaults;
    }
    mWhat = what;
  }

  /// What the system shows after a save.
  void checkFiles(bool mayLeaveFiles) {
    const bool exists = QFile::exists(target());
    const QByteArray found = read(target());
    const bool isOld = mScene.is(Exists) ? found == mOld : !exists;
    const bool isNew = exists && found == mNew;
    check(isOld || isNew, QString("torn, %1 bytes").arg(found.size()));
    check(isNew || !mIsSaved, "reported as saved");
    check(!saysKept() || (isOld && mScene.is(Exists)), mError);
    check(!mScene.is(IsLink) || QFileInfo(named()).isSymLink(), "the link is gone");
    if (mScene.is(KeepsBackup)) {
      check(isOld || read(named() + ".bak.1") == mOld, "no backup");
      check(read(named() + ".bak") == "earlier", "a backup was replaced");
    }
    QStringList more = QDir(path("files")).entryList(QDir::Files | QDir::Hidden);
    for (const char* known : {"", ".bak", ".bak.1", ".xpdef", ".first"})
      if (!mIsSaved || qstrcmp(known, ".first") != 0)
        more.removeAll(QString("file.xparam") + known);
    check(mayLeaveFiles || more.isEmpty(), "left " + more.join(' '));
  }

  /// What a disk may hold if the power fails now. False ends the search for this save.
  bool cutPower(const CDisk& disk, bool isDone) {
    // Without anything better the file is copied to its name.
    if (mScene.is(MovesAfter) && mScene.is(IsPlain)) return true;
    bool ok = true;
    bool mayBeOld = false;
    bool mayBeNew = false;
    for (const int file : disk.files(target())) {
      mayBeOld |= file == 0 && !mScene.is(Exists);
      ok &= file != 0 || !mScene.is(Exists);
      ok &= file == 0 || disk.always(file, [&](const std::string& content) {
        const bool isOld = mScene.is(Exists) && isSame(content, mOld);
        const bool isNew = isSame(content, mNew);
        mayBeOld |= isOld;
        mayBeNew |= isNew;
        return isOld || isNew;
      });
    }
    ++mCuts;
    const bool isBackedUp = !mScene.is(KeepsBackup) || !mayBeNew || hasBackup(disk);
    return check(ok, "the file may be lost or torn") &
           check(!isDone || !mIsSaved || !mayBeOld, "saved and may be lost") &
           check(!isDone || mIsSaved || !saysKept() || !mayBeNew, mError) &
           check(isBackedUp, "the backup may be lost");
  }

  bool hasBackup(const CDisk& disk) {
    const std::vector<int> files = disk.files(named() + ".bak.1");
    const auto isOld = [&](const std::string& content) { return isSame(content, mOld); };
    return std::all_of(files.begin(), files.end(),
                       [&](int file) { return file != 0 && disk.always(file, isOld); });
  }

  bool isSame(const std::string& content, const QByteArray& expected) {
    ++mStates;
    return content.compare(0, content.npos, expected.constData(), size_t(expected.size())) == 0;
  }
  bool saysKept() const { return mError.contains("the old one is kept"); }

  CTally& mTally;
  const CFolder mFolder;
  const QByteArray mOld = bytesOf(2000);
  SScene mScene = kScenes[0];
  CPrepare mPrepare;
  QString mWhat;
  QByteArray mNew;  ///< none as long as it is not known
  QString mError;
  bool mIsSaved = false;
  qint64 mFaults = 0;
  qint64 mCuts = 0;
  qint64 mStates = 0;
};

}  // namespace

int main(int argc, char** argv) {
  const SOptions options(argc, argv);
  CTally tally("saves");
  CSaves saves(tally);
  const QList<int> sizes = options.isLong
                               ? QList<int>{1, 511, 512, 513, 16384, 16385, 100000, 1000000}
                               : QList<int>{2500};
  // Most faults show without a failing call.
  for (const bool fails : {false, true}) {
    for (const SScene& scene : kScenes) {
      for (const int size : sizes)
        saves.cutEveryCall(scene, contentOf(size), QString("%1 bytes").arg(size), fails);
      if (scene.is(KeepsBackup) && (options.isLong || !fails || !scene.is(IsPlain)))
        saves.cutEveryCall(scene, reader, "a reader", fails);
    }
  }
  saves.failReads();
  return tally.finish(saves.figures());
}
