// The power fails after every call of a save, whatever the disk has kept until then: the file is
// the old one or the new one, whole, and after a save that says it succeeded the new one.

#include "CAtomicFile.h"
#include "CDisk.h"
#include "CallRecord.h"
#include "Faults.h"
#include "ICParameterFile.h"
#include "ICSimpleParamReader.h"
#include "Torture.h"

#include <QDir>
#include <QDirIterator>

#include <functional>
#include <memory>

using namespace NTorture;

namespace {

constexpr quint32 kVersion = 0x10000;
const char* const kOld = "what was there before";
const char* const kFile = "file.xparam";

/// What a save finds.
struct SScene {
  const char* name;
  bool exists = true;
  bool isLink = false;   ///< to a file in another folder
  bool isPlain = false;  ///< the file system, without second names
  bool keepsBackup = false;
};
const SScene kScenes[] = {
    {"a new file", false},
    {"a new file, plain file system", false, false, true},
    {"an old file"},
    {"a new file behind a link", false, true},
    {"a link", true, true},
    {"a link, plain file system", true, true, true},
    {"a backup first", true, false, false, true},
    {"a backup of a link first", true, true, false, true},
    {"a backup of a link first, plain file system", true, true, true, true},
};

/// A save that is ready to be made; its preparation is not recorded.
using CSave = std::function<bool(QString& error)>;
using CPrepare = std::function<CSave(const QString& fileName, const SScene& scene)>;

CPrepare contentOf(int size) {
  CRandom random(1);
  QByteArray content(size, '\0');
  for (char& byte : content) byte = static_cast<char>(1 + random.below(255));
  return [content](const QString& name, const SScene& scene) {
    return [=](QString& error) {
      QString backup;
      return (!scene.keepsBackup || CAtomicFile::keepAsBackup(name, backup, error)) &&
             CAtomicFile::write(name, content, {}, error);
    };
  };
}

/// A new file that must not replace one that appeared meanwhile.
CSave newFile(const QString& name, const SScene&) {
  return [=](QString& error) {
    const QString other = name + ".new";
    return CAtomicFile::write(other, "new", {}, error) &&
           CAtomicFile::renameToNew(other, name, error);
  };
}

CSave parameterFile(const QString& name, const SScene&) {
  const auto file = std::shared_ptr<ICParameterFile>(
      ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
  file->loadParamFile(exampleFile("TwoAxisDrive.xparam"), QString(), kVersion);
  return [=](QString& error) {
    const bool saved = file->saveParamFile(name, QString(), kVersion);
    error = saved ? QString() : file->errorMsg();
    return saved;
  };
}

/// The old file is none that can be loaded, so that the reader makes a backup.
CSave reader(const QString& name, const SScene&) {
  const auto reader = std::shared_ptr<ICSimpleParamReader>(ICSimpleParamReader::createSingle(
      NktoGlobal::FILE_TYPE_PARAMETERS, "id", NParamDef::FullAccess, nullptr, kVersion, kVersion));
  const QString definitions = name + ".xpdef";
  QString error;
  int number = 0;
  writeFile(definitions, readFile(exampleFile("TwoAxisDrive.xpdef")));
  reader->load(definitions, name, error);
  reader->getParam(1, "new", "", number, 1, error);
  return [reader](QString&) {
    const bool saved = reader->saveFiles();
    reader->closeFiles(false);
    return saved;
  };
}

class CPowerCuts {
 public:
  explicit CPowerCuts(CTally& tally) : mTally(tally) {}

  /// Every power cut of a save that goes well, and of those in which a call fails.
  void cutEvery(const SScene& scene, const CPrepare& prepare, const QString& what) {
    constexpr NFaults::ECall kFailing[] = {NFaults::Write, NFaults::Sync,        NFaults::Rename,
                                           NFaults::Link,  NFaults::RenameToNew, NFaults::SendFile};
    mScene = scene;
    mWhat = scene.name + (", " + what);
    save(prepare, NFaults::Write, 0);
    mNew = readFile(path("/files/") + kFile).toStdString();
    mTally.check(mIsSaved && mNew != kOld, mWhat + " is not saved: " + mError);
    cut();
    std::vector<std::pair<NFaults::ECall, int>> faults;
    for (const NFaults::ECall call : kFailing)
      for (int n = NFaults::calls(call); n > 0; --n) faults.emplace_back(call, n);
    for (const auto& [call, n] : faults) {
      mWhat = QString("%1, %2, %3 %4 fails").arg(scene.name, what, NFaults::name(call)).arg(n);
      save(prepare, call, n);
      cut();
    }
  }

  QString figures() const {
    return QString("%1 saves, %2 power cuts, %3 states of a disk")
        .arg(mSaves)
        .arg(mCuts)
        .arg(mStates);
  }

 private:
  QString path(const char* name) const { return mFolder.path() + name; }
  int folderNumber(bool isLink) const {
    return NCallRecord::numberOf(path(isLink ? "/links" : "/files").toStdString());
  }

  void save(const CPrepare& prepare, NFaults::ECall call, int nth) {
    for (const char* folder : {"/files", "/links"}) {
      QDir(path(folder)).removeRecursively();
      QDir().mkpath(path(folder));
    }
    NCallRecord::start(path("").toStdString());
    if (mScene.exists) writeFile(path("/files/") + kFile, kOld);
    if (mScene.isLink) QFile::link(QString("../files/") + kFile, path("/links/") + kFile);
    if (mScene.isPlain) NFaults::refuse({NFaults::Link, NFaults::RenameToNew});
    const CSave saves = prepare(path(mScene.isLink ? "/links/" : "/files/") + kFile, mScene);
    mBefore = NCallRecord::take();
    NFaults::arm(call, nth, EIO, call == NFaults::Write ? NFaults::Short : NFaults::Once);
    mError.clear();
    mIsSaved = saves(mError);
    NFaults::disarm();
    NFaults::refuse({});
    mCalls = NCallRecord::take();
    ++mSaves;
  }

  void cut() {
    CDisk disk;
    for (const CDisk::SCall& call : mBefore) disk.apply(call);
    disk.settle();
    bool ok = check(disk, mCalls.empty());
    for (size_t done = 1; done <= mCalls.size(); ++done) {
      disk.apply(mCalls[done - 1]);
      ok = ok && check(disk, done == mCalls.size());
    }
    compare(disk);
    NCallRecord::stop();
  }

  bool check(const CDisk& disk, bool isDone) {
    bool ok = true;
    bool mayBeOld = false;
    bool mayBeNew = false;
    for (const int file : disk.files(folderNumber(false), kFile)) {
      mayBeOld |= file == 0 && !mScene.exists;
      ok &= file != 0 || !mScene.exists;
      ok &= file == 0 || disk.always(file, [&](const std::string& content) {
        const bool isOld = mScene.exists && content == kOld;
        mayBeOld |= isOld;
        mayBeNew |= content == mNew;
        ++mStates;
        return isOld || content == mNew;
      });
    }
    ++mCuts;
    const bool isKept = mError.contains("the old one is kept");
    const bool isBackedUp = !mScene.keepsBackup || !mayBeNew || hasBackup(disk);
    return mTally.check(ok, mWhat + ": the file may be lost or torn") &
           mTally.check(!isDone || !mIsSaved || !mayBeOld, mWhat + ": saved and may be lost") &
           mTally.check(!isDone || mIsSaved || !isKept || !mayBeNew, mWhat + ": " + mError) &
           mTally.check(isBackedUp, mWhat + ": the backup may be lost");
  }

  bool hasBackup(const CDisk& disk) {
    const auto isOld = [this](const std::string& content) {
      ++mStates;
      return content == kOld;
    };
    bool ok = true;
    for (const int file : disk.files(folderNumber(mScene.isLink), kFile + std::string(".bak")))
      ok &= file != 0 && disk.always(file, isOld);
    return ok;
  }

  /// Calls that are not recorded would show here: without a power cut the model has the files that
  /// are there.
  void compare(const CDisk& disk) {
    for (const bool isLink : {false, true}) {
      QDirIterator it(path(isLink ? "/links" : "/files"), QDir::Files | QDir::Hidden);
      while (it.hasNext()) {
        const QByteArray content = readFile(it.next());
        if (it.fileInfo().isSymLink()) continue;
        const std::string name = it.fileName().toStdString();
        const int file = disk.files(folderNumber(isLink), name).back();
        mTally.check(file != 0 && disk.content(file) == content.toStdString(),
                     mWhat + ": a call that changes " + it.fileName() + " is not recorded");
      }
    }
  }

  CTally& mTally;
  const CFolder mFolder;
  SScene mScene{};
  QString mWhat;
  std::vector<CDisk::SCall> mBefore;
  std::vector<CDisk::SCall> mCalls;
  std::string mNew;
  QString mError;
  bool mIsSaved = false;
  qint64 mSaves = 0;
  qint64 mCuts = 0;
  qint64 mStates = 0;
};

}  // namespace

int main(int argc, char** argv) {
  const SOptions options(argc, argv);
  CTally tally("powercut");
  CPowerCuts cuts(tally);
  const QList<int> sizes = options.isLong
                               ? QList<int>{0, 1, 511, 512, 513, 2000, 16385, 40000, 1000000}
                               : QList<int>{0, 1, 2000, 40000};
  for (const SScene& scene : kScenes) {
    for (const int size : sizes)
      cuts.cutEvery(scene, contentOf(size), QString("%1 bytes").arg(size));
    if (!scene.exists && !scene.isLink && !scene.isPlain)
      cuts.cutEvery(scene, newFile, "under another name first");
    if (scene.keepsBackup) cuts.cutEvery(scene, reader, "a reader");
    if (!scene.keepsBackup) cuts.cutEvery(scene, parameterFile, "a parameter file");
  }
  return tally.finish(cuts.figures());
}
