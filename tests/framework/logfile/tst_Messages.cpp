#include "CMessageBoardHelper.h"
#include "ICLogfile.h"
#include "KeptMessages.h"
#include "TestFiles.h"

#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <memory>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr quint32 kAll = ~0U;

using CBoard = CMessageBoardHelper;

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

class tst_Messages : public QObject {
  Q_OBJECT

 private slots:
  void isActiveWithALevelAndAPlace() {
    for (int type = ICLogfile::LogFile; type <= ICLogfile::LogQt + 1; ++type) {
      const auto logfile = create(type, path("never"), ICLogfile::kLevelErrors);
      QCOMPARE(logfile->isActive(), type <= ICLogfile::LogQt);
      logfile->setLevelMask(0);
      QVERIFY(!logfile->isActive());
    }
    QVERIFY(!create(ICLogfile::LogFile, "")->isActive());
    const auto unusable = create(ICLogfile::LogFile, path("no/such/folder/x.log"));
    unusable->write(8, "text");
    QVERIFY(!unusable->isActive());
  }

  void oneCallIsOneLine() {
    const auto logfile = create(ICLogfile::LogFile, path("file"), 0);
    const auto other = create(ICLogfile::LogFile, path("file"));
    logfile->write(kAll, "off");
    other->write(0, "no level");
    QVERIFY(!QFile::exists(path("file")));
    logfile->setLevelMask(ICLogfile::kLevelErrors);
    logfile->write(ICLogfile::kLevelSaving, QString(u8"a\nb\x1b[2J\u2028\tc\u20AC") + QChar(0));
    other->write(ICLogfile::kLevelReadErrors, QString());
    logfile->setPrefix("axis\n1");
    logfile->write(ICLogfile::kLevelErrors, "text");
    // At once, not when the objects die: the line before a crash is the one that matters.
    QCOMPARE(lines(path("file")), QStringList({u8"0000000c a\\nb\\u001b[2J\\u2028\tc\u20AC\\u0000",
                                               "40000000 ", "00000004 axis\\n1: text"}));
  }

  void console() {
    const int before = ::dup(STDERR_FILENO);
    const int file = ::open(qPrintable(path("stderr")), O_WRONLY | O_CREAT, 0600);
    ::dup2(file, STDERR_FILENO);
    const auto logfile = create(ICLogfile::LogConsole, "x", ICLogfile::kLevelErrors);
    logfile->write(ICLogfile::kLevelErrors, "50 %s\n");
    ::dup2(before, STDERR_FILENO);
    ::close(file);
    ::close(before);
    QCOMPARE(lines(path("stderr")), QStringList("00000004 50 %s\\n"));
  }

  void qtCategories() {
    const QString text = "50 %s %1";  // neither Qt nor printf may interpret it
    const auto post = [&text](ICLogfile* logfile) {
      CBoard::setFormDebugWarning(text, logfile);
      CBoard::setWarning(text, logfile);
      CBoard::setCritical(text, logfile);
    };
    const QStringList printed = qtMessages([&post] {
      const auto logfile = create(ICLogfile::LogQt, "x");
      logfile->write(ICLogfile::kLevelReadErrors, "read\n");
      post(logfile.get());
    });
    const QString board = ".messageboard " + text;  // 1 is a warning, 4 an information
    QCOMPARE(printed,
             QStringList({"1 kto read\\n", "4 kto " + text, "0 kto" + board, "1 kto " + text,
                          "1 kto" + board, "1 kto " + text, "2 kto" + board}));
    const SKeptMessages seen;
    post(nullptr);
    QCOMPARE(seen.texts, QStringList({"0 " + text, "1 " + text, "2 " + text}));
  }

  /// The handler replaces itself, and is still alive then.
  void manyThreads() {
    constexpr int kMessages = 300;
    const auto logfile = create(ICLogfile::LogFile, path("threads.log"));
    const QString text(300, 'x');
    const QString prefix("p");  // kept here: the thread sanitizer does not see how Qt counts owners
    std::atomic<int> count = 0;
    const auto counts = [&count](int, const QString&) { ++count; };
    const auto handler = [counts](int kind, const QString& posted) {
      CBoard::setHandler(counts);
      counts(kind, posted);
    };
    CBoard::setHandler(handler);
    const auto post = [&] {
      for (int n = 0; n < kMessages; ++n) {
        logfile->setPrefix(prefix);
        logfile->setLevelMask(kAll);
        if (logfile->isActive()) CBoard::setWarning(text, logfile.get());
        CBoard::setHandler(handler);
      }
    };
    std::thread threads[] = {std::thread(post), std::thread(post), std::thread(post)};
    for (std::thread& thread : threads) thread.join();
    CBoard::setHandler({});
    const QStringList written = lines(path("threads.log"));
    QCOMPARE(written.count("00000004 p: " + text), 3 * kMessages);
    QVERIFY(written.size() == 3 * kMessages && count == 3 * kMessages);
  }

 private:
  QString path(const char* name) const { return mFolder.filePath(name); }

  const QTemporaryDir mFolder;
};

QTEST_APPLESS_MAIN(tst_Messages)
#include "tst_Messages.moc"
