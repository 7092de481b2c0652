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

class tst_CAtomicFile : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    mFolder.reset(new QTemporaryDir);
    mName = mFolder->filePath("file");
  }

  void replacesALongName() {
    mName = mFolder->filePath(QString(NAME_MAX, 'x'));
    QString error;
    for (const int size : {1, 0, 100000}) {
      const QByteArray content(size, 'x');
      QVERIFY2(CAtomicFile::write(mName, content, {}, error), qPrintable(error));
      QByteArray found = "y";
      QVERIFY(CAtomicFile::read(mName, found, error));
      QCOMPARE(found, content);
    }
    QCOMPARE(QDir(mFolder->path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
  }

  // The folders real/deep, and links that are made as they are named: link, text.
  void goesWhereTheSystemGoes_data() {
    QTest::addColumn<QByteArrayList>("links");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("place");
    const auto row = [](const char* title, const QByteArrayList& links, const char* name,
                        const char* place = "real/file") {
      addRow(title, links, QString(name), QByteArray(place));
    };
    row("a link", {"link", "real/file"}, "link");
    row("behind a linked folder", {"sub", "real/deep"}, "sub/../file");
    row("in the text of a link", {"sub", "real/deep", "link", "sub/../file"}, "link");
    row("a chain", {"deep", "real/deep", "real/deep/link", "../file", "link", "deep/link"}, "link");
    row("blind pieces", {}, ".//real/./deep///../file");
    row("no text", {"link", "real/\xff"}, "link", "real/\xff");
    row("the open folder of a process", {}, "/proc/self/cwd/real/file");
    row("a folder that is no text", {"\xfe", "real", "link", "\xfe/deep/../file"}, "link");
  }
  void goesWhereTheSystemGoes() {
    QFETCH(QByteArrayList, links);
    QFETCH(QString, name);
    QFETCH(QByteArray, place);
    const QString before = QDir::currentPath();
    QVERIFY(QDir(mFolder->path()).mkpath("real/deep"));
    QVERIFY(QDir::setCurrent(mFolder->path()));
    for (int i = 0; i + 1 < links.size(); i += 2)
      QCOMPARE(::symlink(links.at(i + 1).constData(), links.at(i).constData()), 0);
    QVERIFY(write("file", "another"));
    QString error;
    for (const QByteArray content : {"first", "second"}) {  // the first one makes the file
      QVERIFY2(CAtomicFile::write(name, content, {}, error), qPrintable(error));
      QByteArray found;
      QVERIFY(CAtomicFile::read(name, found, error));
      QCOMPARE(found, content);
      struct stat info {};
      QCOMPARE(::lstat(place.constData(), &info), 0);
      QVERIFY(S_ISREG(info.st_mode));
    }
    QString backup;
    QVERIFY2(CAtomicFile::keepAsBackup(name, backup, error), qPrintable(error));
    QCOMPARE(read(backup), QByteArray("second"));
    QCOMPARE(read("file"), QByteArray("another"));
    QVERIFY(!CAtomicFile::isSameFile(name, "file"));
    QVERIFY(QDir::setCurrent(before));
  }

  void knowsFilesThatAreOne() {
    const QString folder = mFolder->path();
    QVERIFY(QDir(folder).mkdir("sub"));
    QVERIFY(QFile::link("sub", mFolder->filePath("link")));
    const QString other = folder + "/link/../file";
    QVERIFY(CAtomicFile::isSameFile(mName, other));  // before there is one
    QVERIFY(!CAtomicFile::isSameFile(mName, folder + "/link/file"));
    QVERIFY(CAtomicFile::isSameFile(folder + "/no/file", folder + "/no/file"));
    QVERIFY(!CAtomicFile::isSameFile(folder + "/no/file", mName));
    QVERIFY(!CAtomicFile::isSameFile(mName, folder + "/no/file"));
    QVERIFY(CAtomicFile::isSameFile(folder, folder + "/link/../"));
    QVERIFY(write(mName, "text"));
    QCOMPARE(::link(qPrintable(mName), qPrintable(mName + '2')), 0);
    QVERIFY(CAtomicFile::isSameFile(mName, mName + '2'));
  }

  void refusesNamesThatMeanNoFileOrAnother() {
    const QString path = mFolder->path() + '/';
    const QString noText =
        "the name is not valid text in the encoding of the locale, so it could mean another file. "
        "Rename the file, or set the locale of its name.";
    QByteArray content;
    QString backup;
    QString error;
    const QStringList names{QString(), path + QChar::ReplacementCharacter, path + QChar(0xd800),
                            path + "file" + QChar::Null};
    for (const QString& name : names) {
      const QString expected = name.isEmpty() ? QString("the file name is empty.") : noText;
      const QStringList printed = qtMessages([&] {
        QVERIFY(!CAtomicFile::write(name, "new", {}, error) && error == expected);
        QVERIFY(!CAtomicFile::read(name, content, error) && error == expected);
        QVERIFY(!CAtomicFile::keepAsBackup(name, backup, error) && error == expected);
        QVERIFY(!CAtomicFile::renameToNew(mName, name, error) && error == expected);
      });
      QCOMPARE(printed, QStringList());
      QVERIFY(QDir(mFolder->path()).isEmpty());
    }
  }

  void makesOnlyWhatIsNotThere() {
    QString error;
    const QString made = mFolder->filePath("made");
    QVERIFY(write(made, "made"));
    QVERIFY2(CAtomicFile::renameToNew(made, mName, error), qPrintable(error));
    QCOMPARE(read(mName), QByteArray("made"));
    QVERIFY(!QFile::exists(made));
    QVERIFY(write(made, "later"));
    QVERIFY(!CAtomicFile::renameToNew(made, mName, error));
    QCOMPARE(error, QString("the file exists already and is not replaced."));
    QCOMPARE(read(mName), QByteArray("made"));
    QVERIFY(!CAtomicFile::renameToNew(mFolder->filePath("no/file"), mName, error));
    QVERIFY(!CAtomicFile::write(mFolder->filePath("no/file"), "new", {}, error));
    QCOMPARE(error, QString("the file cannot be written: No such file or directory."));
  }

  // In a sticky folder that all may write to, as the kernel's protected_symlinks.
  void followsNoLinkOfAStranger_data() {
    addColumns<uid_t, uid_t, int, bool>("linkOwner", "folderOwner", "mode", "isFollowed");
    addRow("stranger's", 100U, 0U, 01777, false);
    addRow("own", 0U, 100U, 01777, true);
    addRow("of the folder's owner", 100U, 100U, 01777, true);
    addRow("not sticky", 100U, 0U, 0777, true);
    addRow("not shared", 100U, 0U, 01775, true);
  }
  void followsNoLinkOfAStranger() {
    if (::geteuid() != 0) QSKIP("Only the superuser can give links away.");
    QFETCH(uid_t, linkOwner);
    QFETCH(uid_t, folderOwner);
    QFETCH(int, mode);
    QFETCH(bool, isFollowed);
    const QString folder = mFolder->filePath("shared/");
    QVERIFY(QDir(mFolder->path()).mkpath("shared"));
    for (const char* link : {"link", "folder"}) {
      QVERIFY(QFile::link(link == QString("link") ? "../file" : "..", folder + link));
      QCOMPARE(::lchown(qPrintable(folder + link), linkOwner, 0), 0);
    }
    QCOMPARE(::chown(qPrintable(folder), folderOwner, 0), 0);
    QCOMPARE(::chmod(qPrintable(folder), mode_t(mode)), 0);
    for (const char* name : {"link", "folder/file"}) {
      QString error;
      QString backup;
      QVERIFY(write(mName, "old"));
      QCOMPARE(CAtomicFile::keepAsBackup(folder + name, backup, error), isFollowed);
      QCOMPARE(CAtomicFile::write(folder + name, "new", {}, error), isFollowed);
      QCOMPARE(read(mName), QByteArray(isFollowed ? "new" : "old"));
      if (isFollowed) continue;
      QCOMPARE(error,
               QString("the file cannot be written, the old one is kept: the path contains a "
                       "symbolic link of another user in a folder that "
                       "everybody can write to."));
    }
  }

  // The file of user 100 and group 200 is saved by somebody else.
  void keepsRights_data() {
    addColumns<uid_t, gid_t, int, QString, int, uid_t, gid_t>("user", "group", "mode", "notKept",
                                                              "newMode", "newUser", "newGroup");
    const QString lost = "the file is saved, but these could not be kept: ";
    addRow("superuser", 0U, 0U, 06764, QString(), 06764, 100U, 200U);
    addRow("owner", 100U, 200U, 0640, QString(), 0640, 100U, 200U);
    addRow("colleague", 101U, 200U, 06664, lost + "owner.", 0664, 101U, 200U);
    addRow("stranger", 101U, 201U, 06764, lost + "owner, group.", 0744, 101U, 201U);
    addRow("stranger, group shut out", 101U, 201U, 0707, lost + "owner, group.", 0700, 101U, 201U);
  }
  void keepsRights() {
    if (::geteuid() != 0) QSKIP("Only the superuser can be somebody else.");
    QFETCH(uid_t, user);
    QFETCH(gid_t, group);
    QFETCH(int, mode);
    QFETCH(QString, notKept);
    QVERIFY(write(mName, "old"));
    QCOMPARE(::chown(qPrintable(mName), 100, 200), 0);
    QCOMPARE(::chmod(qPrintable(mName), mode_t(mode)), 0);
    QCOMPARE(::chmod(qPrintable(mFolder->path()), 0777U), 0);
    const char* const name = "user.note";
    const bool hasNote = ::setxattr(qPrintable(mName), name, "kept", 4, 0) == 0;
    QString error;
    QString text;
    QCOMPARE(::setgroups(1, &group), 0);
    QCOMPARE(::setegid(201), 0);
    QCOMPARE(::seteuid(user), 0);
    const bool isSaved = CAtomicFile::write(mName, "new", {}, error, &text);
    QCOMPARE(::seteuid(0), 0);
    QCOMPARE(::setegid(0), 0);
    QVERIFY2(isSaved, qPrintable(error));
    QCOMPARE(text, notKept);
    struct stat info {};
    QCOMPARE(::stat(qPrintable(mName), &info), 0);
    QVERIFY(!hasNote || ::getxattr(qPrintable(mName), name, nullptr, 0) == 4);
    QTEST(int(info.st_mode & 07777U), "newMode");
    QTEST(info.st_uid, "newUser");
    QTEST(info.st_gid, "newGroup");
    QVERIFY(CAtomicFile::write(mName, "newer", QFile::ReadOwner | QFile::WriteOwner, error));
    QCOMPARE(::stat(qPrintable(mName), &info), 0);
    QCOMPARE(int(info.st_mode & 07777U), 0600);
  }

  void refusesWhatIsNotARegularFile() {
    QVERIFY(QDir().mkdir(mFolder->filePath("folder")));
    QCOMPARE(::mkfifo(qPrintable(mFolder->filePath("pipe")), 0600), 0);
    QVERIFY(QFile::link("ring", mFolder->filePath("ring")));
    const QStringList paths{mFolder->filePath("folder"), mFolder->filePath("pipe"),
                            mFolder->filePath("ring"), ":/resource"};
    for (const QString& path : paths) {
      QString error;
      QByteArray content = "kept";
      QVERIFY(!CAtomicFile::keepAsBackup(path, error, error));
      QCOMPARE(error, QString("this is not a regular file and is not kept as a backup."));
      QVERIFY(!CAtomicFile::write(path, "new", {}, error));
      QCOMPARE(error, QString("this is not a regular file and is not replaced."));
      QVERIFY(!CAtomicFile::read(path, content, error));
      QCOMPARE(content, QByteArray("kept"));
    }
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
  }

  void keepsBackups() {
    const QString target = mFolder->filePath("target");
    QString backup;
    QString error;
    QVERIFY(!CAtomicFile::keepAsBackup(mName, backup, error));
    QCOMPARE(error, QString("this is not a regular file and is not kept as a backup."));
    QVERIFY(QFile::link(target, mName));
    QVERIFY(QFile::link("elsewhere", mName + ".bak.1"));  // taken too
    const QStringList backups{mName + ".bak", mName + ".bak.2", mName + ".bak.3"};
    for (const QString& expected : backups) {
      QVERIFY(write(mName, expected.toUtf8()));
      QCOMPARE(::chmod(qPrintable(target), 0604), 0);
      QVERIFY2(CAtomicFile::keepAsBackup(mName, backup, error), qPrintable(error));
      QVERIFY2(CAtomicFile::write(mName, "new", {}, error), qPrintable(error));
      QCOMPARE(backup, expected);
      struct stat info {};
      QCOMPARE(::lstat(qPrintable(backup), &info), 0);
      QCOMPARE(info.st_mode, mode_t(S_IFREG | 0604));
    }
    for (const QString& name : backups) QCOMPARE(read(name), name.toUtf8());
    QVERIFY(!QFile::exists(mFolder->filePath("elsewhere")));
  }

 private:
  QScopedPointer<QTemporaryDir> mFolder;
  QString mName;
};

QTEST_APPLESS_MAIN(tst_CAtomicFile)
#include "tst_CAtomicFile.moc"
