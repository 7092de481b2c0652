#include "ICLogfile.h"
#include "KeptMessages.h"
#include "TestFiles.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr quint32 kAll = ~0U;

std::unique_ptr<ICLogfile> create(int type, const QString& name, quint32 mask = kAll) {
  return std::unique_ptr<ICLogfile>(ICLogfile::createLogfile(type, name, mask));
}

// The lines of a logfile without their time.
QStringList lines(const QString& fileName) {
  QStringList result = QString::fromUtf8(NTestFiles::read(fileName)).split('\n');
  if (!result.takeLast().isEmpty()) return {"the last line has no end"};
  return result.replaceInStrings(QRegExp("^\\d{4}(-\\d\\d){2}T\\d\\d(:\\d\\d){2}\\.\\d{3} "), "");
}

}  // namespace

class tst_ICLogfile : public QObject {
  Q_OBJECT

 private slots:
  void isActiveWithALevelAndAPlace() {
    for (const int type :
         {int(ICLogfile::LogFile), int(ICLogfile::LogConsole), int(ICLogfile::LogQt), 3}) {
      const auto logfile = create(type, path("never"), ICLogfile::kLevelErrors);
      QCOMPARE(logfile->isActive(), type != 3);
      logfile->setLevelMask(0);
      QVERIFY(!logfile->isActive());
    }
    QVERIFY(!create(ICLogfile::LogFile, "")->isActive());
    const auto unusable = create(ICLogfile::LogFile, path("no/such/folder/x.log"));
    for (int i = 0; i < 2; ++i) unusable->write(8, "text");
    QVERIFY(!unusable->isActive());
  }

  void oneCallIsOneLine() {
    const auto logfile = create(ICLogfile::LogFile, path("file"), 0);
    const auto other = create(ICLogfile::LogFile, path("file"));
    logfile->write(kAll, "off");
    other->write(0, "no level");
    QVERIFY(!QFile::exists(path("file")));
    logfile->setLevelMask(ICLogfile::kLevelErrors | 8);
    logfile->write(ICLogfile::kLevelSaving, "any bit");
    logfile->write(8, QString(u8"a\nb\x1b[2J\u2028\tc\u20AC") + QChar(0));
    other->write(ICLogfile::kLevelReadErrors, QString());
    logfile->setPrefix("axis\n1");
    logfile->write(8, "text");
    const QString escaped = u8"00000008 a\\nb\\u001b[2J\\u2028\tc\u20AC\\u0000";
    const QStringList expected{
        QString("%1 any bit").arg(ICLogfile::kLevelSaving, 8, 16, QChar('0')), escaped, "40000000 ",
        "00000008 axis\\n1: text"};
    // At once, not when the objects die: the line before a crash is the one that matters.
    QCOMPARE(lines(path("file")), expected);
  }

  void console() {
    const int before = ::dup(STDERR_FILENO);
    const int file = ::open(qPrintable(path("stderr")), O_WRONLY | O_CREAT, 0600);
    ::dup2(file, STDERR_FILENO);
    const auto logfile = create(ICLogfile::LogConsole, "x", ICLogfile::kLevelErrors);
    logfile->write(ICLogfile::kLevelErrors, "50 %s\n");
    logfile->write(ICLogfile::kLevelDetail, "off");
    ::dup2(before, STDERR_FILENO);
    ::close(file);
    ::close(before);
    QCOMPARE(lines(path("stderr")), QStringList("00000004 50 %s\\n"));
  }

  void qtCategory() {
    const QStringList messages = qtMessages([] {
      const auto logfile = create(ICLogfile::LogQt, "x");
      logfile->setPrefix("axis");
      logfile->write(ICLogfile::kLevelErrors, "50 %s\n");
      logfile->write(ICLogfile::kLevelReadErrors, "read");
      logfile->write(ICLogfile::kLevelDetail, "detail");
    });
    QCOMPARE(messages, QStringList({"1 kto axis: 50 %s\\n",  // 1 is a warning, 4 an information
                                    "1 kto axis: read", "4 kto axis: detail"}));
  }

  void manyThreads() {
    constexpr int kThreads = 4;
    constexpr int kLines = 200;
    const auto logfile = create(ICLogfile::LogFile, path("threads.log"));
    const QString text(300, 'x');
    const QString prefix("p");  // kept here: the thread sanitizer does not see how Qt counts owners
    std::vector<std::thread> threads(kThreads);
    for (std::thread& thread : threads) {
      thread = std::thread([&] {
        for (int n = 0; n < kLines; ++n) {
          logfile->setPrefix(prefix);
          logfile->setLevelMask(kAll);
          if (logfile->isActive()) logfile->write(8, text);
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
    const QStringList written = lines(path("threads.log"));
    QCOMPARE(written.count("00000008 p: " + text), kThreads * kLines);
    QCOMPARE(written.size(), kThreads * kLines);
  }

 private:
  QString path(const char* name) const { return mFolder.filePath(name); }

  const QTemporaryDir mFolder;
};

QTEST_APPLESS_MAIN(tst_ICLogfile)
#include "tst_ICLogfile.moc"
