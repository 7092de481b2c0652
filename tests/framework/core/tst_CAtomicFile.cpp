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

  void createsAndReplaces_data() {
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 16383, 16384, 16385, 5000000})
      QTest::newRow(qPrintable(QString::number(size))) << size;
  }
  void createsAndReplaces() {
    QFETCH(int, size);
    const QByteArray content(size, 'x');
    mName = mFolder->filePath(QString(NAME_MAX, 'x'));  // the longest name
    QString error;
    QVERIFY2(CAtomicFile::write(mName, "first", {}, error), qPrintable(error));
    QVERIFY2(CAtomicFile::write(mName, content, {}, error), qPrintable(error));
    QByteArray found = "y";
    QVERIFY(CAtomicFile::read(mName, found, error));
    QCOMPARE(found, content);
    QCOMPARE(QDir(mFolder->path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
  }

  void keepsPermissionsUnlessTold() {
    QString error;
    QVERIFY(write(mName, "old"));
    const QFileDevice::Permissions odd = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeGroup;
    QVERIFY(QFile::setPermissions(mName, odd));
    const auto owner = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    const QFileDevice::Permissions kept = QFileInfo(mName).permissions();
    QVERIFY(CAtomicFile::write(mName, "new", {}, error));
    QCOMPARE(QFileInfo(mName).permissions(), kept);
    QVERIFY(CAtomicFile::write(mName, "newer", QFile::ReadOwner | QFile::WriteOwner, error));
    QCOMPARE(QFileInfo(mName).permissions(), QFileDevice::Permissions(owner));
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

  void refusesNamesThatMeanNoFileOrAnother_data() {
    addColumns<QString, QString>("name", "expected");
    const QString noText =
        "the name is not valid text in the encoding of the locale, so it could mean another file. "
        "Rename the file, or set the locale of its name.";
    addRow("none", QString(), QString("the file name is empty."));
    addRow("bytes that were no text", QString(QChar::ReplacementCharacter), noText);
    addRow("half of a pair", QString(QChar(0xd800)), noText);
    addRow("what would end the name", QString("file") + QChar::Null, noText);
  }
  void refusesNamesThatMeanNoFileOrAnother() {
    QFETCH(QString, name);
    QFETCH(QString, expected);
    if (!name.isEmpty()) name.prepend(mFolder->path() + '/');
    QStringList errors{{}, {}, {}, {}};
    QByteArray content;
    const QStringList printed = qtMessages([&] {
      QVERIFY(!CAtomicFile::write(name, "new", {}, errors[0]));
      QVERIFY(!CAtomicFile::read(name, content, errors[1]));
      QVERIFY(!CAtomicFile::keepAsBackup(name, name, errors[2]));
      QVERIFY(!CAtomicFile::renameToNew(mName, name, errors[3]));
    });
    QCOMPARE(errors, QStringList({expected, expected, expected, expected}));
    QCOMPARE(printed, QStringList());
    QVERIFY(QDir(mFolder->path()).isEmpty());
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
  }

  // In a sticky folder that all may write to, as the kernel's protected_symlinks.
  void followsNoLinkOfAStranger_data() {
    addColumns<QString, uid_t, uid_t, int, bool>("name", "linkOwner", "folderOwner", "mode",
                                                 "isFollowed");
    for (const char* name : {"link", "folder/file"}) {
      addRow(qPrintable(QString("stranger's %1").arg(name)), QString(name), 100U, 0U, 01777, false);
      addRow(qPrintable(QString("own %1").arg(name)), QString(name), 0U, 100U, 01777, true);
    }
    addRow("of the folder's owner", QString("link"), 100U, 100U, 01777, true);
    addRow("not sticky", QString("link"), 100U, 0U, 0777, true);
    addRow("not shared", QString("link"), 100U, 0U, 01775, true);
  }
  void followsNoLinkOfAStranger() {
    if (::geteuid() != 0) QSKIP("Only the superuser can give links away.");
    QFETCH(QString, name);
    QFETCH(uid_t, linkOwner);
    QFETCH(uid_t, folderOwner);
    QFETCH(int, mode);
    QFETCH(bool, isFollowed);
    const QString folder = mFolder->filePath("shared");
    QVERIFY(QDir(mFolder->path()).mkpath("shared"));
    QVERIFY(write(mName, "old"));
    for (const QString& link : QStringList{folder + "/link", folder + "/folder"}) {
      QVERIFY(QFile::link(link.endsWith('k') ? "../file" : "..", link));
      QCOMPARE(::lchown(qPrintable(link), linkOwner, 0), 0);
    }
    QCOMPARE(::chown(qPrintable(folder), folderOwner, 0), 0);
    QCOMPARE(::chmod(qPrintable(folder), mode_t(mode)), 0);
    QString error;
    QString backup;
    name.prepend(folder + '/');
    QCOMPARE(CAtomicFile::keepAsBackup(name, backup, error), isFollowed);
    QCOMPARE(CAtomicFile::write(name, "new", {}, error), isFollowed);
    QCOMPARE(read(mName), QByteArray(isFollowed ? "new" : "old"));
    if (!isFollowed) {
      QCOMPARE(error, QString("the file cannot be written, the old one is kept: the path contains "
                              "a symbolic link of another user in a folder that everybody can "
                              "write to."));
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
  }

  void refusesWhatIsNoRegularFile_data() {
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"folder", "pipe", "ring of links", "resource"}) addTextRow(kind);
  }
  void refusesWhatIsNoRegularFile() {
    QFETCH(QString, kind);
    if (kind == "folder") QVERIFY(QDir().mkdir(mName));
    if (kind == "pipe") QCOMPARE(::mkfifo(qPrintable(mName), 0600), 0);
    if (kind == "ring of links") QVERIFY(QFile::link("file", mName));
    if (kind == "resource") mName = ":/file";
    QString error;
    QByteArray content = "kept";
    QVERIFY(!CAtomicFile::keepAsBackup(mName, error, error));
    QCOMPARE(error, QString("this is not a regular file and is not kept as a backup."));
    QVERIFY(!CAtomicFile::write(mName, "new", {}, error));
    QCOMPARE(error, QString("this is not a regular file and is not replaced."));
    QVERIFY(!CAtomicFile::read(mName, content, error));
    QCOMPARE(content, QByteArray("kept"));
  }

  void aFailedWriteKeepsTheOldFile() {
    // Files of this process may not grow beyond 4096 bytes, as on a full disk.
    QString error;
    QVERIFY(write(mName, "old"));
    struct rlimit old {};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &old), 0);
    struct rlimit small = old;
    small.rlim_cur = 4096;
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
    for (const int size : {5000, 16000, 100000}) {
      QVERIFY(!CAtomicFile::write(mName, QByteArray(size, 'x'), {}, error));
      QCOMPARE(error, QString("the file cannot be written, the old one is kept: File too large."));
      QCOMPARE(read(mName), QByteArray("old"));
    }
    QVERIFY(!CAtomicFile::write(mName + "new", QByteArray(5000, 'x'), {}, error));
    QCOMPARE(error, QString("the file cannot be written: File too large."));
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &old), 0);
    std::signal(SIGXFSZ, handler);
    QCOMPARE(QDir(mFolder->path()).entryList(QDir::Files | QDir::Hidden), QStringList("file"));
    QVERIFY(!CAtomicFile::write(mFolder->filePath("no/file"), "new", {}, error));
  }

  void keepsBackups_data() {
    QTest::addColumn<QString>("target");  // of a symbolic link, if any
    QTest::newRow("file") << QString();
    QTest::newRow("link") << "target";
    QTest::newRow("link to another disk") << "/dev/shm";
  }
  void keepsBackups() {
    QFETCH(QString, target);
    const QTemporaryDir otherDisk("/dev/shm/tst_CAtomicFile-XXXXXX");
    if (target == "/dev/shm") {
      struct stat here {};
      struct stat there {};
      ::stat(qPrintable(mFolder->path()), &here);
      if (::stat(qPrintable(otherDisk.path()), &there) != 0 || here.st_dev == there.st_dev)
        QSKIP("There is no other disk.");
      target = otherDisk.filePath("target");
    }
    QString backup;
    QString error;
    QVERIFY(!CAtomicFile::keepAsBackup(mName, backup, error));
    QCOMPARE(error, QString("this is not a regular file and is not kept as a backup."));
    if (!target.isNull()) QVERIFY(QFile::link(target, mName));
    QVERIFY(QFile::link("elsewhere", mName + ".bak.1"));  // taken too
    for (const char* suffix : {".bak", ".bak.2", ".bak.3"}) {
      QVERIFY(write(mName, suffix));
      QCOMPARE(::chmod(qPrintable(mName), 0604), 0);
      QVERIFY2(CAtomicFile::keepAsBackup(mName, backup, error), qPrintable(error));
      QVERIFY2(CAtomicFile::write(mName, "new", {}, error), qPrintable(error));
      QCOMPARE(backup, QString(mName + suffix));
      struct stat info {};
      QCOMPARE(::lstat(qPrintable(backup), &info), 0);
      QCOMPARE(info.st_mode, mode_t(S_IFREG | 0604));
    }
    for (const char* suffix : {".bak", ".bak.2", ".bak.3"})
      QCOMPARE(read(mName + suffix), QByteArray(suffix));
    QVERIFY(!QFile::exists(mFolder->filePath("elsewhere")));
  }

 private:
  QScopedPointer<QTemporaryDir> mFolder;
  QString mName;
};

QTEST_APPLESS_MAIN(tst_CAtomicFile)
#include "tst_CAtomicFile.moc"
