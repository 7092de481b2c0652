#include "ICLogfile.h"
#include "KeptMessages.h"
#include "TestFiles.h"
#include "TestRows.h"

#include <QRegularExpression>
#include <QTemporaryDir>

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
  static const QRegularExpression time("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3} ");
  QStringList result = QString::fromUtf8(NTestFiles::read(fileName)).split('\n');
  if (!result.takeLast().isEmpty()) return {"the last line has no end"};
  return result.replaceInStrings(time, "");
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
      QCOMPARE(logfile->levelMask(), ICLogfile::kLevelErrors);
      logfile->setLevelMask(0);
      QVERIFY(!logfile->isActive());
    }
    QVERIFY(!create(ICLogfile::LogFile, "")->isActive());
    const auto unusable = create(ICLogfile::LogFile, path("no/such/folder/x.log"));
    unusable->write(8, "text");
    QVERIFY(!unusable->isActive());
    unusable->write(8, "text");
  }

  void levels_data() {
    addColumns<quint32, quint32, bool>("mask", "level", "enabled");
    addRow("none", 0U, kAll, false);
    addRow("same", ICLogfile::kLevelDetail, ICLogfile::kLevelDetail, true);
    addRow("any bit", ICLogfile::kLevelErrors, ICLogfile::kLevelSaving, true);
    addRow("level 0", kAll, 0U, false);
  }
  void levels() {
    QFETCH(quint32, mask);
    QFETCH(quint32, level);
    QFETCH(bool, enabled);
    const QString fileName = path(QTest::currentDataTag());
    const auto logfile = create(ICLogfile::LogFile, fileName, 0);
    logfile->setLevelMask(mask);
    QCOMPARE(logfile->isLevelEnabled(level), enabled);
    logfile->write(level, "text");
    QCOMPARE(QFile::exists(fileName), enabled);
  }

  void oneCallIsOneLine_data() {
    addColumns<QString, QString, QString>("prefix", "text", "expected");
    addRow("LF", "", "a\nb", "a\\nb");
    addRow("escape sequence", "", "\x1b[2J", "\\u001b[2J");
    addRow("NUL", "", QString("a") + QChar(0) + "b", "a\\u0000b");
    addRow("line separator", "", "\u2028", "\\u2028");
    addRow("kept", "", "a\tb\u20AC", "a\tb\u20AC");
    addRow("prefix", "axis\n1", "text", "axis\\n1: text");
  }
  void oneCallIsOneLine() {
    QFETCH(QString, prefix);
    QFETCH(QString, text);
    QFETCH(QString, expected);
    const QString fileName = path(QTest::currentDataTag());
    const auto logfile = create(ICLogfile::LogFile, fileName);
    const auto other = create(ICLogfile::LogFile, fileName);
    logfile->setPrefix(prefix);
    logfile->write(8, text);
    other->write(ICLogfile::kLevelReadErrors, QString());
    // At once, not when the objects die: the line before a crash is the one that matters.
    QCOMPARE(lines(fileName), QStringList({"00000008 " + expected, "40000000 "}));
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
