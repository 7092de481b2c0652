#include "CMessageBoardHelper.h"

#include "KeptMessages.h"

#include <QtTest>

#include <atomic>
#include <thread>
#include <vector>

using CBoard = CMessageBoardHelper;

class tst_CMessageBoardHelper : public QObject {
  Q_OBJECT

 private slots:
  void kinds() {
    const struct {
      void (*post)(const QString&, ICLogfile*);
      int kind;
      quint32 level;
      int qtType;
    } messages[] = {{&CBoard::setFormDebugWarning, CBoard::DebugWarning, 8, QtDebugMsg},
                    {&CBoard::setWarning, CBoard::Warning, 4, QtWarningMsg},
                    {&CBoard::setCritical, CBoard::Critical, 4, QtCriticalMsg}};
    const QString text = "50 %s %1";  // neither Qt nor printf may interpret it
    for (const auto& message : messages) {
      CKeptLines logfile(message.level);
      CKeptLines other(~message.level);
      const QStringList shown = qtMessages([&] { message.post(text, &logfile); });
      QCOMPARE(shown, QStringList(QString::number(message.qtType) + " kto.messageboard " + text));
      const SKeptMessages seen;
      message.post(text, &other);
      QCOMPARE(seen.texts, QStringList(QString::number(message.kind) + ' ' + text));
      QCOMPARE(logfile.lines, QStringList(text));
      QCOMPARE(other.lines, QStringList());
    }
  }

  void handlerMayPostAndReplaceItself() {
    QStringList seen;
    CBoard::setHandler([&seen](int, const QString& text) {
      CBoard::setHandler([&seen](int, const QString& later) { seen << later; });
      CBoard::setWarning("inner");
      seen << text;  // the handler that runs is still alive
    });
    CBoard::setWarning("outer");
    QCOMPARE(seen, QStringList({"inner", "outer"}));
  }

  void postingFromManyThreads() {
    constexpr int kMessagesOfThread = 500;
    std::atomic<int> count = 0;
    const auto handler = [&count](int, const QString&) { ++count; };
    CBoard::setHandler(handler);
    std::vector<std::thread> threads(4);
    for (std::thread& thread : threads) {
      thread = std::thread([&handler] {
        for (int n = 0; n < kMessagesOfThread; ++n) {
          CBoard::setWarning("text");
          CBoard::setHandler(handler);
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
    CBoard::setHandler({});
    QCOMPARE(count.load(), 4 * kMessagesOfThread);
  }
};

QTEST_APPLESS_MAIN(tst_CMessageBoardHelper)
#include "tst_CMessageBoardHelper.moc"
