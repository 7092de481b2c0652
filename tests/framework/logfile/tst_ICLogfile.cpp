#include "ICLogfile.h"
#include "TestFiles.h"
#include "TestRows.h"

#include <QRegularExpression>
#include <QStringList>
#include <QTemporaryDir>
#include <QtTest>

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

QString readAll(const QString& fileName) {
  return QString::fromUtf8(NTestFiles::read(fileName));
}

// The lines of a text without their time.
QStringList lines(const QString& text) {
  static const QRegularExpression time(
      QStringLiteral("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3} "));
  QStringList result = text.split(QLatin1Char('\n'));
  for (QString& line : result) line.remove(time);
  return result;
}

QStringList sQtMessages;

void catchQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  sQtMessages << QStringLiteral("%1 %2 %3")
                     .arg(QString::number(type), QString::fromLatin1(context.category), text);
}

// What `action` writes to stderr.
template <typename Action>
QString standardError(const QString& fileName, Action action) {
  const int before = ::dup(STDERR_FILENO);
  const int file = ::open(QFile::encodeName(fileName).constData(), O_WRONLY | O_CREAT, 0600);
  ::dup2(file, STDERR_FILENO);
  action();
  ::dup2(before, STDERR_FILENO);
  ::close(file);
  ::close(before);
  return readAll(fileName);
}

}  // namespace

class tst_ICLogfile : public QObject {
  Q_OBJECT

 private slots:
  void everyTypeIsThere_data();
  void everyTypeIsThere();
  void levels_data();
  void levels();
  void fileIsMadeByTheFirstAcceptedLine();
  void linesAreAppended();
  void prefixStandsBeforeTheText();
  void oneCallIsOneLine_data();
  void oneCallIsOneLine();
  void unusableFileGoesSilent();
  void console();
  void qtCategory();
  void manyThreads();

 private:
  QString path(const char* name) const { return mFolder.filePath(QString::fromLatin1(name)); }

  const QTemporaryDir mFolder;
};

void tst_ICLogfile::everyTypeIsThere_data() {
  QTest::addColumn<int>("type");
  QTest::addColumn<QString>("name");
  QTest::addColumn<bool>("active");
  QTest::newRow("file") << int(ICLogfile::LogFile) << path("never") << true;
  QTest::newRow("console") << int(ICLogfile::LogConsole) << "x" << true;
  QTest::newRow("Qt") << int(ICLogfile::LogQt) << "x" << true;
  QTest::newRow("no name") << int(ICLogfile::LogFile) << "" << false;
  QTest::newRow("console without name") << int(ICLogfile::LogConsole) << "" << false;
  QTest::newRow("unknown") << 3 << "x" << false;
  QTest::newRow("negative") << -1 << "x" << false;
}

void tst_ICLogfile::everyTypeIsThere() {
  QFETCH(int, type);
  QFETCH(QString, name);
  QFETCH(bool, active);
  const auto logfile = create(type, name, ICLogfile::kLevelErrors);
  QVERIFY(logfile != nullptr);
  QCOMPARE(logfile->isActive(), active);
  QCOMPARE(logfile->levelMask(), ICLogfile::kLevelErrors);
  QCOMPARE(logfile->prefix(), QString());
  logfile->setLevelMask(0);
  QVERIFY(!logfile->isActive());
  logfile->setPrefix(QStringLiteral("axis 1"));
  QCOMPARE(logfile->prefix(), QStringLiteral("axis 1"));
}

void tst_ICLogfile::levels_data() {
  QTest::addColumn<quint32>("mask");
  QTest::addColumn<quint32>("level");
  QTest::addColumn<bool>("enabled");
  QTest::newRow("none") << 0U << kAll << false;
  QTest::newRow("same") << ICLogfile::kLevelDetail << ICLogfile::kLevelDetail << true;
  QTest::newRow("other") << ICLogfile::kLevelErrors << ICLogfile::kLevelDetail << false;
  QTest::newRow("any bit") << ICLogfile::kLevelErrors << ICLogfile::kLevelSaving << true;
  QTest::newRow("read errors") << ~ICLogfile::kLevelReadErrors << 0x40000000U << false;
  QTest::newRow("top bit") << 0x80000000U << 0x80000000U << true;
  QTest::newRow("level 0") << kAll << 0U << false;
}

void tst_ICLogfile::levels() {
  QFETCH(quint32, mask);
  QFETCH(quint32, level);
  QFETCH(bool, enabled);
  const QString fileName = path(QTest::currentDataTag());
  const auto logfile = create(ICLogfile::LogFile, fileName, 0);
  logfile->setLevelMask(mask);
  QCOMPARE(logfile->isLevelEnabled(level), enabled);
  logfile->write(level, QStringLiteral("text"));
  QCOMPARE(QFile::exists(fileName), enabled);
}

void tst_ICLogfile::fileIsMadeByTheFirstAcceptedLine() {
  const QString fileName = path("lazy.log");
  {
    const auto logfile = create(ICLogfile::LogFile, fileName, ICLogfile::kLevelErrors);
    logfile->write(ICLogfile::kLevelDetail, QStringLiteral("off"));
    QVERIFY(!QFile::exists(fileName));
    logfile->write(ICLogfile::kLevelErrors, QStringLiteral("first"));
    // At once, not when the object dies: the line before a crash is the one that matters.
    QCOMPARE(lines(readAll(fileName)), (QStringList{QStringLiteral("00000004 first"), QString()}));
  }
}

void tst_ICLogfile::linesAreAppended() {
  const QString fileName = path("append.log");
  const auto one = create(ICLogfile::LogFile, fileName, kAll);
  const auto two = create(ICLogfile::LogFile, fileName, kAll);
  one->write(1, QStringLiteral("a"));
  two->write(2, QString());
  one->write(ICLogfile::kLevelReadErrors, QString(QChar(0x20AC)));
  QCOMPARE(lines(readAll(fileName)),
           (QStringList{QStringLiteral("00000001 a"), QStringLiteral("00000002 "),
                        QStringLiteral("40000000 ") + QChar(0x20AC), QString()}));
}

void tst_ICLogfile::prefixStandsBeforeTheText() {
  const QString fileName = path("prefix.log");
  const auto logfile = create(ICLogfile::LogFile, fileName, kAll);
  logfile->setPrefix(QStringLiteral("axis\n1"));
  logfile->write(8, QStringLiteral("text"));
  QCOMPARE(lines(readAll(fileName)),
           (QStringList{QStringLiteral("00000008 axis\\n1: text"), QString()}));
}

void tst_ICLogfile::oneCallIsOneLine_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("expected");
  addRow("LF", "a\nb", "a\\nb");
  addRow("CR LF", "a\r\n", "a\\r\\n");
  addRow("form feed", "a\fb", "a\\u000cb");
  addRow("escape sequence", "\x1b[2J", "\\u001b[2J");
  QTest::newRow("NUL") << QStringLiteral("a") + QChar(0) + QStringLiteral("b") << "a\\u0000b";
  QTest::newRow("next line") << QString(QChar(0x85)) << "\\u0085";
  QTest::newRow("line separator") << QString(QChar(0x2028)) << "\\u2028";
  QTest::newRow("paragraph separator") << QString(QChar(0x2029)) << "\\u2029";
  addRow("tab stays", "a\tb", "a\tb");
}

void tst_ICLogfile::oneCallIsOneLine() {
  QFETCH(QString, text);
  QFETCH(QString, expected);
  const QString fileName = path(QTest::currentDataTag());
  create(ICLogfile::LogFile, fileName, kAll)->write(8, text);
  QCOMPARE(lines(readAll(fileName)),
           (QStringList{QStringLiteral("00000008 ") + expected, QString()}));
}

void tst_ICLogfile::unusableFileGoesSilent() {
  const auto logfile = create(ICLogfile::LogFile, path("no/such/folder/x.log"), kAll);
  logfile->write(8, QStringLiteral("text"));
  QVERIFY(!logfile->isActive());
  logfile->write(8, QStringLiteral("text"));
}

void tst_ICLogfile::console() {
  const QString text = standardError(path("stderr"), [] {
    const auto logfile =
        create(ICLogfile::LogConsole, QStringLiteral("x"), ICLogfile::kLevelErrors);
    logfile->write(ICLogfile::kLevelErrors, QStringLiteral("50 %s\n"));
    logfile->write(ICLogfile::kLevelDetail, QStringLiteral("off"));
  });
  QCOMPARE(lines(text), (QStringList{QStringLiteral("00000004 50 %s\\n"), QString()}));
}

void tst_ICLogfile::qtCategory() {
  const auto logfile = create(ICLogfile::LogQt, QStringLiteral("x"), kAll);
  logfile->setPrefix(QStringLiteral("axis"));
  sQtMessages.clear();
  const auto before = qInstallMessageHandler(catchQtMessage);
  logfile->write(ICLogfile::kLevelErrors, QStringLiteral("50 %s\n"));
  logfile->write(ICLogfile::kLevelReadErrors, QStringLiteral("read"));
  logfile->write(ICLogfile::kLevelDetail, QStringLiteral("detail"));
  qInstallMessageHandler(before);
  const auto line = [](QtMsgType type, const char* text) -> QString {
    return QString::number(type) + QLatin1String(" kto axis: ") + QLatin1String(text);
  };
  QCOMPARE(sQtMessages, (QStringList{line(QtWarningMsg, "50 %s\\n"), line(QtWarningMsg, "read"),
                                     line(QtInfoMsg, "detail")}));
}

void tst_ICLogfile::manyThreads() {
  constexpr int kThreads = 4;
  constexpr int kLines = 200;
  const QString fileName = path("threads.log");
  const auto logfile = create(ICLogfile::LogFile, fileName, kAll);
  const QString text(300, QLatin1Char('x'));
  std::vector<std::thread> threads(kThreads);
  for (std::thread& thread : threads) {
    thread = std::thread([&] {
      for (int n = 0; n < kLines; ++n) {
        logfile->setPrefix(QStringLiteral("p"));
        logfile->setLevelMask(kAll);
        if (logfile->isActive()) logfile->write(8, text);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  const QStringList written = lines(readAll(fileName));
  const QString expected = QStringLiteral("00000008 p: ") + text;
  QCOMPARE(written.count(expected), kThreads * kLines);
  QCOMPARE(written.size(), kThreads * kLines + 1);
}

QTEST_APPLESS_MAIN(tst_ICLogfile)
#include "tst_ICLogfile.moc"
