#include "CMessageBoardHelper.h"

#include "KeptMessages.h"
#include "TestRows.h"

#include <atomic>
#include <thread>
#include <vector>

namespace {

using EKind = CMessageBoardHelper::EMessageKind;
using Post = void (*)(const QString&, ICLogfile*);

// An application's own logfile, which remembers what it is given.
class CMemoryLogfile : public CKeptLines {
 public:
  void write(quint32 level, const QString& text) override {
    CKeptLines::write(level, QStringLiteral("%1 %2").arg(QString::number(level), text));
  }
};

}  // namespace

Q_DECLARE_METATYPE(Post)
Q_DECLARE_METATYPE(EKind)

class tst_CMessageBoardHelper : public QObject {
  Q_OBJECT

 private slots:
  void cleanup() { CMessageBoardHelper::setHandler({}); }
  void kinds_data() {
    addColumns<Post, EKind, QString, QString>("post", "kind", "logLine", "qtMessage");
    using Board = CMessageBoardHelper;
    const auto row = [](const char* name, Post post, EKind kind, int level, int qtType) {
      addRow(name, post, kind, QString::number(level) + " 50 %s %1",
             QString::number(qtType) + " kto.messageboard 50 %s %1");
    };
    row("debug warning", &Board::setFormDebugWarning, Board::DebugWarning, 8, QtDebugMsg);
    row("warning", &Board::setWarning, Board::Warning, 4, QtWarningMsg);
    row("critical", &Board::setCritical, Board::Critical, 4, QtCriticalMsg);
  }
  void kinds() {
    QFETCH(Post, post);
    QFETCH(EKind, kind);
    QFETCH(QString, logLine);
    QFETCH(QString, qtMessage);
    const QString text = "50 %s %1";  // neither Qt nor printf may interpret it
    CMemoryLogfile logfile;
    QCOMPARE(qtMessages([&] { post(text, &logfile); }), QStringList(qtMessage));
    QCOMPARE(logfile.lines, QStringList(logLine));

    std::vector<std::pair<EKind, QString>> seen;
    CMessageBoardHelper::setHandler([&seen](EKind seenKind, const QString& seenText) {
      seen.emplace_back(seenKind, seenText);
    });
    post(text, nullptr);
    QCOMPARE(seen.size(), std::size_t(1));
    QCOMPARE(seen.front().first, kind);
    QCOMPARE(seen.front().second, text);
  }

  void handlerMayPostAndReplaceItself() {
    QStringList seen;
    CMessageBoardHelper::setHandler([&seen](EKind, const QString& text) {
      CMessageBoardHelper::setHandler([&seen](EKind, const QString& later) { seen << later; });
      CMessageBoardHelper::setWarning("inner");
      seen << text;  // the handler that runs is still alive
    });
    CMessageBoardHelper::setWarning("outer");
    QCOMPARE(seen, QStringList({"inner", "outer"}));
  }

  void postingFromManyThreads() {
    constexpr int kThreads = 4;
    constexpr int kMessages = 500;
    std::atomic<int> count = 0;
    const auto handler = [&count](EKind, const QString&) { ++count; };
    CMessageBoardHelper::setHandler(handler);
    std::vector<std::thread> threads(kThreads);
    for (std::thread& thread : threads) {
      thread = std::thread([&handler] {
        for (int n = 0; n < kMessages; ++n) {
          CMessageBoardHelper::setWarning("text");
          CMessageBoardHelper::setHandler(handler);
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
    QCOMPARE(count.load(), kThreads * kMessages);
  }
};

QTEST_APPLESS_MAIN(tst_CMessageBoardHelper)
#include "tst_CMessageBoardHelper.moc"
