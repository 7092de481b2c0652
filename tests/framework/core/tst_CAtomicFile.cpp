#include "CAtomicFile.h"
#include "KeptMessages.h"
#include "TestFiles.h"
#include "TestRows.h"

#include <QTemporaryDir>
#include <QtTest>

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
    mName = path("file");
  }

  // The folders real/deep, and links that are made as they are named: link, text.
  void goesWhereTheSystemGoes_data() {
    addColumns<QString, QString, QString>("links", "name", "place");
    addRow("a link", "link real/file", "link", "real/file");
    addRow("behind a linked folder", "sub real/deep", "sub/../file", "real/file");
    addRow("in the text of a link", "sub real/deep link sub/../file", "link", "real/file");
    addRow("a chain", "deep real/deep real/deep/link ../file link deep/link", "link", "real/file");
    addRow("blind pieces", "", ".//real/./deep///../file", "real/file");
    addRow("no text", u8"link real/\u00ff", "link", u8"real/\u00ff");
    addRow("the open folder of a process", "", "/proc/self/cwd/real/file", "real/file");
    addRow("a folder that is no text", u8"\u00fe real link \u00fe/deep/../file", "link",
           "real/file");
  }
  void goesWhereTheSystemGoes() {
    QFETCH(QString, links);
    QFETCH(QString, name);
    QFETCH(QString, place);
    const QByteArrayList words = links.toLatin1().split(' ');
    const QString before = QDir::currentPath();
    QVERIFY(QDir(mFolder->path()).mkpath("real/deep") && QDir::setCurrent(mFolder->path()));
    for (int i = 0; i + 1 < words.size(); i += 2)
      QCOMPARE(::symlink(words.at(i + 1).constData(), words.at(i).constData()), 0);
    QVERIFY(write("file", "another"));
    QString error;
    for (const QByteArray content : {"first", "", "second"}) {  // the first one makes the file
      QVERIFY2(CAtomicFile::write(name, content, {}, error), qPrintable(error));
      QByteArray found = "old";
      QVERIFY(CAtomicFile::read(name, found, error));
      QCOMPARE(found, content);
      QVERIFY(rightsOf(place.toLatin1()).startsWith("100"));  // no link
    }
    QString backup;
    QVERIFY2(CAtomicFile::keepAsBackup(name, backup, error), qPrintable(error));
    QCOMPARE(read(backup), QByteArray("second"));
    QCOMPARE(read("file"), QByteArray("another"));
    QVERIFY(!CAtomicFile::isSameFile(name, "file"));
    QVERIFY(QDir::setCurrent(before));
  }

  void knowsFilesThatAreOne() {
    QVERIFY(QDir(mFolder->path()).mkdir("sub") && QFile::link("sub", path("link")));
    QVERIFY(CAtomicFile::isSameFile(mName, path("link/../file")));  // before there is one
    QVERIFY(!CAtomicFile::isSameFile(mName, path("link/file")));
    QVERIFY(!CAtomicFile::isSameFile(path("no/file"), mName));
    QVERIFY(!CAtomicFile::isSameFile(mName, path("no/file")));
    QVERIFY(CAtomicFile::isSameFile(path("no/file"), path("no/file")));
    QVERIFY(CAtomicFile::isSameFile(mFolder->path(), path("link/../")));
    QVERIFY(write(mName, "text") && ::link(qPrintable(mName), qPrintable(path("two"))) == 0);
    QVERIFY(CAtomicFile::isSameFile(mName, path("two")));
  }

  void refusesWhatIsNoFileOrMayBeAnother() {
    const QString noText =
        "the name is not valid text in the encoding of the locale, so it could mean another file. "
        "Rename the file, or set the locale of its name.";
    QString error;
    const QStringList printed = qtMessages([&] {
      for (const QString& end : {QString(QChar::ReplacementCharacter), QString(QChar(0xd800)),
                                 QString::fromLatin1("file\0", 5)})
        QCOMPARE(refusals(path(end)), QStringList({noText, noText, noText}));
      QVERIFY(!CAtomicFile::renameToNew(mName, "", error));
      QCOMPARE(refusals(""), QStringList({error, error, error}));
    });
    QCOMPARE(error, QString("the file name is empty."));
    QVERIFY(printed.isEmpty() && QDir(mFolder->path()).isEmpty());

    QVERIFY(QDir().mkdir(path("folder")) && QFile::link("ring", path("ring")));
    QCOMPARE(::mkfifo(qPrintable(path("pipe")), 0600), 0);
    const QStringList expected{"this is not a regular file and is not replaced.",
                               "this is not a regular file and is not kept as a backup."};
    for (const QString& name : {path("folder"), path("pipe"), path("ring"), QString(":/a")}) {
      const QStringList said = refusals(name);
      QVERIFY(said.size() == 3 && said.mid(0, 2) == expected);
    }
  }

  void makesOnlyWhatIsNotThere() {
    QString error;
    const QString made = path("made");
    QVERIFY(write(made, "made"));
    QVERIFY2(CAtomicFile::renameToNew(made, mName, error), qPrintable(error));
    QVERIFY(!QFile::exists(made) && write(made, "later"));
    QVERIFY(!CAtomicFile::renameToNew(made, mName, error));
    QCOMPARE(error, QString("the file exists already and is not replaced."));
    QCOMPARE(read(mName), QByteArray("made"));
    QVERIFY(!CAtomicFile::renameToNew(path("no/file"), mName, error));
    const QString notThere = "the file cannot be written: No such file or directory.";
    QCOMPARE(refusals(path("no/file")).value(0), notThere);
  }

  // In a sticky folder that all may write to, as the kernel's protected_symlinks.
  void followsNoLinkOfAStranger_data() {
    addColumns<uid_t, uid_t, mode_t, bool>("linkOwner", "folderOwner", "mode", "isFollowed");
    addRow("stranger's", 100U, 0U, 01777U, false);
    addRow("own", 0U, 100U, 01777U, true);
    addRow("of the folder's owner", 100U, 100U, 01777U, true);
    addRow("not sticky", 100U, 0U, 0777U, true);
    addRow("not shared", 100U, 0U, 01775U, true);
  }
  void followsNoLinkOfAStranger() {
    if (::geteuid() != 0) QSKIP("Only the superuser can give links away.");
    QFETCH(uid_t, linkOwner);
    QFETCH(uid_t, folderOwner);
    QFETCH(mode_t, mode);
    QFETCH(bool, isFollowed);
    QVERIFY(QDir().mkdir(path("shared")));
    QVERIFY(QFile::link("../file", path("shared/link")) && QFile::link("..", path("shared/up")));
    for (const char* link : {"shared/link", "shared/up"})
      QCOMPARE(::lchown(qPrintable(path(link)), linkOwner, 0), 0);
    QCOMPARE(::chown(qPrintable(path("shared")), folderOwner, 0), 0);
    QCOMPARE(::chmod(qPrintable(path("shared")), mode), 0);
    for (const char* name : {"shared/link", "shared/up/file"}) {
      QVERIFY(write(mName, "old"));
      const QStringList said = refusals(path(name));
      QCOMPARE(said.size(), isFollowed ? 0 : 2);
      QCOMPARE(read(mName), QByteArray(isFollowed ? "new" : "old"));
      QVERIFY(isFollowed || said.at(0) ==
                                "the file cannot be written, the old one is kept: the path "
                                "contains a symbolic link of another user in a folder that "
                                "everybody can write to.");
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
    QFETCH(uid_t, user);
    QFETCH(gid_t, group);
    QFETCH(mode_t, mode);
    QFETCH(QString, lost);
    QVERIFY(write(mName, "old"));
    QCOMPARE(::chown(qPrintable(mName), 100, 200), 0);
    QCOMPARE(::chmod(qPrintable(mName), mode), 0);
    QCOMPARE(::chmod(qPrintable(mFolder->path()), 0777U), 0);
    const char* const note = "user.note";
    const bool hasNote = ::setxattr(qPrintable(mName), note, "kept", 4, 0) == 0;
    QString error;
    QString notKept;
    QCOMPARE(::setgroups(1, &group) + ::setegid(201) + ::seteuid(user), 0);
    const bool isSaved = CAtomicFile::write(mName, "new", {}, error, &notKept);
    QCOMPARE(::seteuid(0) + ::setegid(0), 0);
    QVERIFY2(isSaved, qPrintable(error));
    if (!lost.isEmpty()) lost = "the file is saved, but these could not be kept: " + lost + '.';
    QCOMPARE(notKept, lost);
    QVERIFY(!hasNote || ::getxattr(qPrintable(mName), note, nullptr, 0) == 4);
    QTEST(rightsOf(mName.toUtf8()), "rights");
    QVERIFY(CAtomicFile::write(mName, "newer", QFile::ReadOwner | QFile::WriteOwner, error));
    QVERIFY(rightsOf(mName.toUtf8()).startsWith("100600 "));
  }

  /// The reason is the system's, and nothing is said to be kept that was not there.
  void tellsWhyAWriteFailed() {
    // Files of this process may not grow beyond 4096 bytes, as on a full disk.
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &old), 0);
    const rlimit small{4096, old.rlim_max};
    QString error;
    QVERIFY(write(mName, "old") && setrlimit(RLIMIT_FSIZE, &small) == 0);
    QVERIFY(!CAtomicFile::write(mName, QByteArray(16000, 'x'), {}, error));
    QCOMPARE(error, QString("the file cannot be written, the old one is kept: File too large."));
    QVERIFY(!CAtomicFile::write(mName + "new", QByteArray(5000, 'x'), {}, error));
    QCOMPARE(error, QString("the file cannot be written: File too large."));
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &old), 0);
    std::signal(SIGXFSZ, handler);
    QCOMPARE(read(mName), QByteArray("old"));
    QCOMPARE(QDir(mFolder->path()).entryList(QDir::Files | QDir::Hidden), QStringList("file"));
    const QString longest = path(QString(NAME_MAX, 'x'));
    QVERIFY2(CAtomicFile::write(longest, QByteArray(100000, 'x'), {}, error), qPrintable(error));
    QCOMPARE(read(longest).size(), 100000);
  }

  void keepsBackups() {
    const QString target = path("target");
    QString backup;
    QString error;
    QVERIFY(!CAtomicFile::keepAsBackup(mName, backup, error));
    QVERIFY(QFile::link(target, mName));
    QVERIFY(QFile::link("elsewhere", mName + ".bak.1"));  // taken too
    const QStringList backups{mName + ".bak", mName + ".bak.2", mName + ".bak.3"};
    for (const QString& expected : backups) {
      QVERIFY(write(mName, expected.toUtf8()));
      QCOMPARE(::chmod(qPrintable(target), 0604), 0);
      QVERIFY2(CAtomicFile::keepAsBackup(mName, backup, error), qPrintable(error));
      QVERIFY2(CAtomicFile::write(mName, "new", {}, error), qPrintable(error));
      QCOMPARE(backup, expected);
      QVERIFY(rightsOf(backup.toUtf8()).startsWith("100604 "));
    }
    for (const QString& name : backups) QCOMPARE(read(name), name.toUtf8());
    QVERIFY(!QFile::exists(path("elsewhere")));
  }

 private:
  QString path(const QString& name) const { return mFolder->filePath(name); }

  QScopedPointer<QTemporaryDir> mFolder;
  QString mName;
};

QTEST_APPLESS_MAIN(tst_CAtomicFile)
#include "tst_CAtomicFile.moc"
