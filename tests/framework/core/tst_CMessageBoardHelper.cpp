#include "CMessageBoardHelper.h"

#include "KeptMessages.h"
#include "TestRows.h"

#include <atomic>
#include <thread>
#include <vector>

namespace {

using EKind = CMessageBoardHelper::EMessageKind;

struct SMessage {
  void (*post)(const QString&, ICLogfile*);
  EKind kind;
  quint32 level;
  int qtType;
};
const SMessage kMessages[] = {
    {&CMessageBoardHelper::setFormDebugWarning, CMessageBoardHelper::DebugWarning, 8, QtDebugMsg},
    {&CMessageBoardHelper::setWarning, CMessageBoardHelper::Warning, 4, QtWarningMsg},
    {&CMessageBoardHelper::setCritical, CMessageBoardHelper::Critical, 4, QtCriticalMsg}};

}  // namespace

class tst_CMessageBoardHelper : public QObject {
  Q_OBJECT

 private slots:
  void cleanup() { CMessageBoardHelper::setHandler({}); }
  void kinds() {
    const QString text = "50 %s %1";  // neither Qt nor printf may interpret it
    for (const SMessage& message : kMessages) {
      CKeptLines logfile(message.level);
      CKeptLines other(~message.level);
      const QStringList shown = qtMessages([&] {
        message.post(text, &logfile);
        message.post(text, &other);
      });
      const QString expected = QString::number(message.qtType) + " kto.messageboard " + text;
      QCOMPARE(shown, QStringList({expected, expected}));
      QCOMPARE(logfile.lines, QStringList(text));
      QCOMPARE(other.lines, QStringList());

      QStringList seen;
      const auto keep = [&seen](EKind kind, const QString& got) {
        seen += QString::number(kind) + got;
      };
      CMessageBoardHelper::setHandler(keep);
      message.post(text, nullptr);
      CMessageBoardHelper::setHandler({});
      QCOMPARE(seen, QStringList(QString::number(message.kind) + text));
    }
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
    constexpr int kMessagesOfThread = 500;
    std::atomic<int> count = 0;
    const auto handler = [&count](EKind, const QString&) { ++count; };
    CMessageBoardHelper::setHandler(handler);
    std::vector<std::thread> threads(4);
    for (std::thread& thread : threads) {
      thread = std::thread([&handler] {
        for (int n = 0; n < kMessagesOfThread; ++n) {
          CMessageBoardHelper::setWarning("text");
          CMessageBoardHelper::setHandler(handler);
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
    QCOMPARE(count.load(), 4 * kMessagesOfThread);
  }
};

QTEST_APPLESS_MAIN(tst_CMessageBoardHelper)
#include "tst_CMessageBoardHelper.moc"
