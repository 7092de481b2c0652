#include "CAtomicFile.h"
#include "CFolderLock.h"
#include "TestFiles.h"
#include "TestRows.h"

#include <QTemporaryDir>
#include <QTest>

#include <grp.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <climits>
#include <csignal>

using namespace NTestFiles;

namespace {

/// What writing, keeping a backup and reading say against a file; nothing where they work.
QStringList refusals(const QString& name) {
  QStringList said;
  QString error;
  QByteArray content = "kept";
  if (!CAtomicFile::write(name, "new", {}, error)) said += error;
  if (!CAtomicFile::keepAsBackup(name, error, error)) said += error;
  if (!CAtomicFile::read(name, content, error) && content == "kept") said += error;
  return said;
}

/// Type and mode, owner and group of what a name leads to, itself if it is a link.
QString rightsOf(const QByteArray& name) {
  struct stat info {};
  if (::lstat(name.constData(), &info) != 0) return "nothing";
  return QString("%1 %2 %3").arg(info.st_mode, 0, 8).arg(info.st_uid).arg(info.st_gid);
}

}  // namespace

class tst_CAtomicFile : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    mFolder.reset(new QTemporaryDir);
    QVERIFY(QDir::setCurrent(mFolder->path()) && QDir().mkpath("real/deep"));
  }

  // Links as they are made: link, text.
  void goesWhereTheSystemGoes_data() {
    addColumns<QString, QString, QString>("links", "name", "place");
    addRow("behind a linked folder", "sub real/deep", "sub/../file", "real/file");
    addRow("in the text of a link", "sub real/deep link sub/../file", "link", "real/file");
    addRow("a chain", "deep real/deep real/deep/link ../file l deep//link", "l", "real/file");
    addRow("the open folder of a process", "", "/proc/self/cwd/real/file", "real/file");
    addRow("no text above", u8"\u00fe real link \u00fe/deep/../file", "link", "real/file");
  }
  void goesWhereTheSystemGoes() {
    const auto [links, name, place] = textCells("links", "name", "place");
    const QByteArrayList words = links.toLatin1().split(' ');
    for (int i = 0; i + 1 < words.size(); i += 2)
      QCOMPARE(::symlink(words.at(i + 1).constData(), words.at(i).constData()), 0);
    QVERIFY(write("file", "another"));
    QString error;
    for (const QByteArray content : {"first", "", "second"}) {  // the first one makes the file
      QVERIFY2(CAtomicFile::write(name, content, {}, error), qPrintable(error));
      QByteArray found = "old";
      QVERIFY(CAtomicFile::read(name, found, error) && found == content);
      QVERIFY(rightsOf(place.toLatin1()).startsWith("100"));  // no link
    }
    QString backup;
    QVERIFY2(CAtomicFile::keepAsBackup(name, backup, error), qPrintable(error));
    QVERIFY(read(backup) == "second" && read("file") == "another");
    QVERIFY(!CAtomicFile::isSameFile(name, "file"));
  }

  void knowsFilesThatAreOne() {
    QVERIFY(QFile::link("real", "link"));
    QVERIFY(CAtomicFile::isSameFile("file", "link/../file"));  // before there is one
    QVERIFY(!CAtomicFile::isSameFile("file", "link/file"));
    QVERIFY(!CAtomicFile::isSameFile("no/file", "file"));
    QVERIFY(CAtomicFile::isSameFile("no/file", "no/file"));
    QVERIFY(write("file", "text") && ::link("file", "two") == 0);
    QVERIFY(CAtomicFile::isSameFile("file", "two"));
  }

  void refusesWhatIsNoFileOrMayBeAnother() {
    const QString noText =
        "the name is not valid text in the encoding of the locale, so it could mean another file. "
        "Rename the file, or set the locale of its name.";
    QString error;
    for (const QString& name : {QString(QChar::ReplacementCharacter), QString(QChar(0xd800)),
                                QString::fromLatin1("file\0", 5)})
      QCOMPARE(refusals(name), QStringList({noText, noText, noText}));
    QVERIFY(!CAtomicFile::renameToNew("file", "", error));
    QCOMPARE(refusals(""), QStringList({error, error, error}));
    QCOMPARE(error, QString("the file name is empty."));
    QVERIFY(QDir().entryList(QDir::Files | QDir::Hidden).isEmpty());

    QVERIFY(QFile::link("ring", "ring") && ::mkfifo("pipe", 0600) == 0);
    const QStringList expected{"this is not a regular file and is not replaced.",
                               "this is not a regular file and is not kept as a backup."};
    for (const char* name : {"real", "pipe", "ring", ":/a"}) {
      const QStringList said = refusals(name);
      QVERIFY2(said.size() == 3 && said.mid(0, 2) == expected, name);
    }
  }

  void makesOnlyWhatIsNotThere() {
    QString error;
    QVERIFY(write("made", "made"));
    QVERIFY2(CAtomicFile::renameToNew("made", "file", error), qPrintable(error));
    QVERIFY(!QFile::exists("made") && write("made", "later"));
    QVERIFY(!CAtomicFile::renameToNew("made", "file", error));
    QCOMPARE(error, QString("the file exists already and is not replaced."));
    QCOMPARE(read("file"), QByteArray("made"));
    const QString message = "the file cannot be written: No such file or directory.";
    QVERIFY(!CAtomicFile::renameToNew("no/file", "file", error) && error == message);
    QVERIFY(!CAtomicFile::write("no/file", "new", {}, error) && error == message);
  }

  // In a sticky folder that all may write to, as the kernel's protected_symlinks.
  void followsNoLinkOfAStranger() {
    if (::geteuid() != 0) QSKIP("Only the superuser can give links away.");
    QVERIFY(QFile::link("../file", "real/link") && QFile::link("..", "real/up"));
    const QString refused =
        "the file cannot be written, the old one is kept: the path contains a symbolic link of "
        "another user in a folder that everybody can write to.";
    // Owners of the links and of the folder, and its mode; only the first is refused.
    for (const char* row :
         {"100 0 1777", "0 100 1777", "100 100 1777", "100 0 777", "100 0 1775"}) {
      const QStringList cells = QString(row).split(' ');
      const bool isFollowed = row != QString("100 0 1777");
      for (const char* link : {"real/link", "real/up"})
        QCOMPARE(::lchown(link, cells.at(0).toUInt(), 0), 0);
      QCOMPARE(::chown("real", cells.at(1).toUInt(), 0), 0);
      QCOMPARE(::chmod("real", cells.at(2).toUInt(nullptr, 8)), 0);
      for (const char* name : {"real/link", "real/up/file"}) {
        QVERIFY(write("file", "old"));
        const QStringList said = refusals(name);
        QVERIFY2(isFollowed ? said.isEmpty() : said.size() == 2 && said.first() == refused, row);
        QCOMPARE(read("file"), QByteArray(isFollowed ? "new" : "old"));
      }
    }
  }

  // The file of user 100 and group 200 is saved by somebody else.
  void keepsRights_data() {
    addColumns<uid_t, gid_t, mode_t, QString, QString>("user", "group", "mode", "lost", "rights");
    addRow("superuser", 0U, 0U, 06764U, "", "106764 100 200");
    addRow("owner", 100U, 200U, 0640U, "", "100640 100 200");
    addRow("colleague", 101U, 200U, 06664U, "owner", "100664 101 200");
    addRow("stranger", 101U, 201U, 06764U, "owner, group", "100744 101 201");
    addRow("stranger, group shut out", 101U, 201U, 0707U, "owner, group", "100700 101 201");
  }
  void keepsRights() {
    if (::geteuid() != 0) QSKIP("Only the superuser can be somebody else.");
    auto [user, group, mode, lost] =
        cells<uid_t, gid_t, mode_t, QString>("user", "group", "mode", "lost");
    QVERIFY(write("file", "old"));
    QCOMPARE(::chown("file", 100, 200) + ::chmod("file", mode) + ::chmod(".", 0777), 0);
    const bool hasNote = ::setxattr("file", "user.note", "kept", 4, 0) == 0;
    QString error;
    QString notKept;
    QCOMPARE(::setgroups(1, &group) + ::setegid(201) + ::seteuid(user), 0);
    const bool isSaved = CAtomicFile::write("file", "new", {}, error, &notKept);
    QCOMPARE(::seteuid(0) + ::setegid(0), 0);
    QVERIFY2(isSaved, qPrintable(error));
    if (!lost.isEmpty()) lost = "the file is saved, but these could not be kept: " + lost + '.';
    QCOMPARE(notKept, lost);
    QVERIFY(!hasNote || ::getxattr("file", "user.note", nullptr, 0) == 4);
    QTEST(rightsOf("file"), "rights");
    QVERIFY(CAtomicFile::write("file", "newer", QFile::ReadOwner | QFile::WriteOwner, error));
    QVERIFY(rightsOf("file").startsWith("100600 "));
  }

  /// The reason is the system's, and the longest name that can be read can be saved.
  void tellsWhyAWriteFailed() {
    // Files of this process may not grow beyond 4096 bytes, as on a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &old), 0);
    const rlimit small{4096, old.rlim_max};
    QString error;
    const QByteArray content(100000, 'x');
    QVERIFY(write("file", "old") && setrlimit(RLIMIT_FSIZE, &small) == 0);
    QVERIFY(!CAtomicFile::write("file", content, {}, error));
    QCOMPARE(error, QString("the file cannot be written, the old one is kept: File too large."));
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &old), 0);
    QCOMPARE(QDir().entryList(QDir::Files | QDir::Hidden), QStringList("file"));
    const QString longest(NAME_MAX, 'x');
    QVERIFY2(CAtomicFile::write(longest, content, {}, error), qPrintable(error));
    QCOMPARE(read(longest), content);
  }

  void keepsBackups() {
    QString backup;
    QString error;
    QVERIFY(!CAtomicFile::keepAsBackup("file", backup, error));
    QVERIFY(QFile::link("target", "file") && QFile::link("elsewhere", "file.bak.1"));  // taken too
    for (const char* expected : {"file.bak", "file.bak.2"}) {
      QVERIFY(write("file", expected) && ::chmod("target", 0604) == 0);
      QVERIFY2(CAtomicFile::keepAsBackup("file", backup, error), qPrintable(error));
      QVERIFY2(CAtomicFile::write("file", "new", {}, error), qPrintable(error));
      QCOMPARE(backup, QString(expected));
      QVERIFY(rightsOf(expected).startsWith("100604 "));
    }
    QVERIFY(read("file.bak") == "file.bak" && !QFile::exists("elsewhere"));
  }

  /// Several are locked together or not at all, but for those that cannot be.
  void locksFolders() {
    CFolderLock lock;
    CFolderLock other;
    QCOMPARE(lock.lock({"no/file", "file", "real/a"}, 0), CFolderLock::NotPossible);
    QCOMPARE(other.lock({"real/deep/a", "real/b"}, 20), CFolderLock::Busy);
    QCOMPARE(lock.lock({"file", "real/deep/a", "./b", "/"}, 0), CFolderLock::Locked);
  }

 private:
  QScopedPointer<QTemporaryDir> mFolder;
};

QTEST_APPLESS_MAIN(tst_CAtomicFile)
#include "tst_CAtomicFile.moc"
