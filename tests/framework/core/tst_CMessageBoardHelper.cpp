#include "CMessageBoardHelper.h"

#include "CKeptLines.h"

#include <QStringList>
#include <QtTest>

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

QStringList sQtMessages;

void catchQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  sQtMessages << QStringLiteral("%1 %2 %3")
                     .arg(QString::number(type), QString::fromLatin1(context.category), text);
}

}  // namespace

Q_DECLARE_METATYPE(Post)
Q_DECLARE_METATYPE(EKind)

class tst_CMessageBoardHelper : public QObject {
  Q_OBJECT

 private slots:
  void cleanup() { CMessageBoardHelper::setHandler({}); }
  void kinds_data();
  void kinds();
  void handlerMayPostAndReplaceItself();
  void postingFromManyThreads();
};

void tst_CMessageBoardHelper::kinds_data() {
  QTest::addColumn<Post>("post");
  QTest::addColumn<EKind>("kind");
  QTest::addColumn<QString>("logLine");
  QTest::addColumn<QString>("qtMessage");
  QTest::newRow("debug warning") << Post(&CMessageBoardHelper::setFormDebugWarning)
                                 << EKind::DebugWarning << "8 50 %s %1"
                                 << "0 kto.messageboard 50 %s %1";
  QTest::newRow("warning") << Post(&CMessageBoardHelper::setWarning) << EKind::Warning
                           << "4 50 %s %1"
                           << "1 kto.messageboard 50 %s %1";
  QTest::newRow("critical") << Post(&CMessageBoardHelper::setCritical) << EKind::Critical
                            << "4 50 %s %1"
                            << "2 kto.messageboard 50 %s %1";
}

void tst_CMessageBoardHelper::kinds() {
  QFETCH(Post, post);
  QFETCH(EKind, kind);
  QFETCH(QString, logLine);
  QFETCH(QString, qtMessage);
  const QString text = QStringLiteral("50 %s %1");  // neither Qt nor printf may interpret it
  CMemoryLogfile logfile;

  sQtMessages.clear();
  const auto before = qInstallMessageHandler(catchQtMessage);
  post(text, &logfile);
  qInstallMessageHandler(before);
  QCOMPARE(sQtMessages, QStringList(qtMessage));
  QCOMPARE(logfile.lines, QStringList(logLine));

  std::vector<std::pair<EKind, QString>> seen;
  CMessageBoardHelper::setHandler(
      [&seen](EKind seenKind, const QString& seenText) { seen.emplace_back(seenKind, seenText); });
  post(text, nullptr);
  QCOMPARE(seen.size(), std::size_t(1));
  QCOMPARE(seen.front().first, kind);
  QCOMPARE(seen.front().second, text);
}

void tst_CMessageBoardHelper::handlerMayPostAndReplaceItself() {
  QStringList seen;
  CMessageBoardHelper::setHandler([&seen](EKind, const QString& text) {
    CMessageBoardHelper::setHandler([&seen](EKind, const QString& later) { seen << later; });
    CMessageBoardHelper::setWarning(QStringLiteral("inner"));
    seen << text;  // the handler that runs is still alive
  });
  CMessageBoardHelper::setWarning(QStringLiteral("outer"));
  QCOMPARE(seen, (QStringList{QStringLiteral("inner"), QStringLiteral("outer")}));
}

void tst_CMessageBoardHelper::postingFromManyThreads() {
  constexpr int kThreads = 4;
  constexpr int kMessages = 500;
  std::atomic<int> count = 0;
  const auto handler = [&count](EKind, const QString&) { ++count; };
  CMessageBoardHelper::setHandler(handler);
  std::vector<std::thread> threads(kThreads);
  for (std::thread& thread : threads) {
    thread = std::thread([&handler] {
      for (int n = 0; n < kMessages; ++n) {
        CMessageBoardHelper::setWarning(QStringLiteral("text"));
        CMessageBoardHelper::setHandler(handler);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  QCOMPARE(count.load(), kThreads * kMessages);
}

QTEST_APPLESS_MAIN(tst_CMessageBoardHelper)
#include "tst_CMessageBoardHelper.moc"
