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

std::unique_ptr<ICLogfile> create(int type, const QString& name, quint32 mask) {
  return std::unique_ptr<ICLogfile>(ICLogfile::createLogfile(type, name, mask));
}

// The lines of a logfile without their time.
QStringList lines(const QString& fileName) {
  static const QRegularExpression time("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3} ");
  QStringList result = QString::fromUtf8(NTestFiles::read(fileName)).split('\n');
  if (!result.takeLast().isEmpty()) return {"the last line has no end"};
  for (QString& line : result) line.remove(time);
  return result;
}

// The lines that `action` writes to stderr.
template <typename Action>
QStringList standardError(const QString& fileName, Action action) {
  const int before = ::dup(STDERR_FILENO);
  const int file = ::open(QFile::encodeName(fileName).constData(), O_WRONLY | O_CREAT, 0600);
  ::dup2(file, STDERR_FILENO);
  action();
  ::dup2(before, STDERR_FILENO);
  ::close(file);
  ::close(before);
  return lines(fileName);
}

}  // namespace

class tst_ICLogfile : public QObject {
  Q_OBJECT

 private slots:
  void everyTypeIsThere_data() {
    addColumns<int, QString, bool>("type", "name", "active");
    addRow("file", int(ICLogfile::LogFile), path("never"), true);
    addRow("console", int(ICLogfile::LogConsole), "x", true);
    addRow("Qt", int(ICLogfile::LogQt), "x", true);
    addRow("no name", int(ICLogfile::LogFile), "", false);
    addRow("unknown", 3, "x", false);
  }
  void everyTypeIsThere() {
    QFETCH(int, type);
    QFETCH(QString, name);
    QFETCH(bool, active);
    const auto logfile = create(type, name, ICLogfile::kLevelErrors);
    QCOMPARE(logfile->isActive(), active);
    QCOMPARE(logfile->levelMask(), ICLogfile::kLevelErrors);
    logfile->setLevelMask(0);
    QVERIFY(!logfile->isActive());
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

  void linesAreAppended() {
    const QString fileName = path("append.log");
    const auto one = create(ICLogfile::LogFile, fileName, kAll);
    const auto two = create(ICLogfile::LogFile, fileName, kAll);
    one->write(1, "a");
    two->write(2, QString());
    one->write(ICLogfile::kLevelReadErrors, "\u20AC");
    // At once, not when the objects die: the line before a crash is the one that matters.
    QCOMPARE(lines(fileName), QStringList({"00000001 a", "00000002 ", "40000000 \u20AC"}));
  }

  void oneCallIsOneLine_data() {
    addColumns<QString, QString, QString>("prefix", "text", "expected");
    addRow("LF", "", "a\nb", "a\\nb");
    addRow("escape sequence", "", "\x1b[2J", "\\u001b[2J");
    addRow("NUL", "", QString("a") + QChar(0) + "b", "a\\u0000b");
    addRow("line separator", "", "\u2028", "\\u2028");
    addRow("tab stays", "", "a\tb", "a\tb");
    addRow("prefix", "axis\n1", "text", "axis\\n1: text");
  }
  void oneCallIsOneLine() {
    QFETCH(QString, prefix);
    QFETCH(QString, text);
    QFETCH(QString, expected);
    const QString fileName = path(QTest::currentDataTag());
    const auto logfile = create(ICLogfile::LogFile, fileName, kAll);
    logfile->setPrefix(prefix);
    logfile->write(8, text);
    QCOMPARE(lines(fileName), QStringList("00000008 " + expected));
  }

  void unusableFileGoesSilent() {
    const auto logfile = create(ICLogfile::LogFile, path("no/such/folder/x.log"), kAll);
    logfile->write(8, "text");
    QVERIFY(!logfile->isActive());
    logfile->write(8, "text");
  }

  void console() {
    const QStringList written = standardError(path("stderr"), [] {
      const auto logfile = create(ICLogfile::LogConsole, "x", ICLogfile::kLevelErrors);
      logfile->write(ICLogfile::kLevelErrors, "50 %s\n");
      logfile->write(ICLogfile::kLevelDetail, "off");
    });
    QCOMPARE(written, QStringList("00000004 50 %s\\n"));
  }

  void qtCategory() {
    const QStringList messages = qtMessages([] {
      const auto logfile = create(ICLogfile::LogQt, "x", kAll);
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
    const QString fileName = path("threads.log");
    const auto logfile = create(ICLogfile::LogFile, fileName, kAll);
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
    const QStringList written = lines(fileName);
    QCOMPARE(written.count("00000008 p: " + text), kThreads * kLines);
    QCOMPARE(written.size(), kThreads * kLines);
  }

 private:
  QString path(const char* name) const { return mFolder.filePath(name); }

  const QTemporaryDir mFolder;
};

QTEST_APPLESS_MAIN(tst_ICLogfile)
#include "tst_ICLogfile.moc"
