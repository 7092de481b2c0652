#include "CAtomicFile.h"
#include "QtMessages.h"
#include "TestFiles.h"

#include <QTemporaryDir>
#include <QtTest>

#include <sys/resource.h>
#include <sys/stat.h>

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
    for (const int size : {0, 1, 16383, 16384, 16385, 5000000}) {
      QTest::newRow(qPrintable(QString::number(size))) << size;
    }
  }
  void createsAndReplaces() {
    QFETCH(int, size);
    const QByteArray content(size, 'x');
    QString error;
    QVERIFY2(CAtomicFile::write(mName, "first", {}, error), qPrintable(error));
    QVERIFY2(CAtomicFile::write(mName, content, {}, error), qPrintable(error));
    QByteArray found = "y";
    QVERIFY(CAtomicFile::read(mName, found, error));
    QCOMPARE(found, content);
    QCOMPARE(QDir(mFolder->path()).entryList(QDir::Files | QDir::Hidden), QStringList("file"));
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

  void replacesTheTargetOfALink() {
    const QString link = mFolder->filePath("link");
    QString error;
    QVERIFY(QDir(mFolder->path()).mkdir("sub"));
    QVERIFY(write(mFolder->filePath("sub/file"), "old"));
    QVERIFY(QFile::link("sub/file", link));
    QVERIFY2(CAtomicFile::write(link, "new", {}, error), qPrintable(error));
    QVERIFY(QFileInfo(link).isSymLink());
    QCOMPARE(read(mFolder->filePath("sub/file")), QByteArray("new"));

    const QString dangling = mFolder->filePath("dangling");
    QVERIFY(QFile::link("sub/new", dangling));
    QVERIFY2(CAtomicFile::write(dangling, "new", {}, error), qPrintable(error));
    QCOMPARE(read(mFolder->filePath("sub/new")), QByteArray("new"));
  }

  void refusesWhatIsNoRegularFile_data() {
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"folder", "pipe", "ring of links"}) QTest::newRow(kind) << kind;
  }
  void refusesWhatIsNoRegularFile() {
    QFETCH(QString, kind);
    if (kind == "folder") QVERIFY(QDir().mkdir(mName));
    if (kind == "pipe") QCOMPARE(::mkfifo(qPrintable(mName), 0600), 0);
    if (kind == "ring of links") QVERIFY(QFile::link("file", mName));
    QString error;
    QByteArray content = "kept";
    QVERIFY(!CAtomicFile::write(mName, "new", {}, error));
    QCOMPARE(error, QString("this is not a regular file and is not replaced."));
    QVERIFY(!CAtomicFile::read(mName, content, error));
    QCOMPARE(content, QByteArray("kept"));
  }

  void needsAName() {
    QString error;
    QByteArray content;
    const QStringList printed = qtMessages([&] {
      QVERIFY(!CAtomicFile::read(QString(), content, error));
      QCOMPARE(error, QString("no file is named."));
      QVERIFY(!CAtomicFile::write(QString(), "new", {}, error));
      QCOMPARE(error, QString("no file is named."));
    });
    QCOMPARE(printed, QStringList());
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
      QVERIFY2(error.startsWith("the file cannot be written, the old one is kept: "),
               qPrintable(error));
      QCOMPARE(read(mName), QByteArray("old"));
    }
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
      if (::stat(qPrintable(otherDisk.path()), &there) != 0 || here.st_dev == there.st_dev) {
        QSKIP("There is no other disk.");
      }
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
    for (const char* suffix : {".bak", ".bak.2", ".bak.3"}) {
      QCOMPARE(read(mName + suffix), QByteArray(suffix));
    }
    QVERIFY(!QFile::exists(mFolder->filePath("elsewhere")));
  }

 private:
  QScopedPointer<QTemporaryDir> mFolder;
  QString mName;
};

QTEST_APPLESS_MAIN(tst_CAtomicFile)
#include "tst_CAtomicFile.moc"
