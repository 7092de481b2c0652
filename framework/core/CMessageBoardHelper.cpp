#include "CMessageBoardHelper.h"

#include "ICLogfile.h"

#include <QLoggingCategory>

#include <mutex>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(messageBoard, "kto.messageboard")

struct SBoard {
  std::mutex mutex;
  CMessageBoardHelper::Handler handler;
};

// Never destroyed, so that messages posted while the process ends still find it.
SBoard& board() {
  static auto& theBoard = *new SBoard;
  return theBoard;
}

CMessageBoardHelper::Handler currentHandler() {
  const std::lock_guard lock(board().mutex);
  return board().handler;
}

void postToCategory(CMessageBoardHelper::EMessageKind kind, const QString& text) {
  switch (kind) {
    case CMessageBoardHelper::DebugWarning:
      qCDebug(messageBoard, "%ls", qUtf16Printable(text));
      break;
    case CMessageBoardHelper::Warning:
      qCWarning(messageBoard, "%ls", qUtf16Printable(text));
      break;
    case CMessageBoardHelper::Critical:
      qCCritical(messageBoard, "%ls", qUtf16Printable(text));
      break;
  }
}

void post(CMessageBoardHelper::EMessageKind kind, const QString& text, quint32 level,
          ICLogfile* logfile) {
  if (logfile != nullptr) logfile->write(level, text);
  if (const auto handler = currentHandler())
    handler(kind, text);
  else
    postToCategory(kind, text);
}

}  // namespace

void CMessageBoardHelper::setHandler(Handler handler) {
  const std::lock_guard lock(board().mutex);
  board().handler.swap(handler);  // the old one dies with the argument, after the lock
}

void CMessageBoardHelper::setWarning(const QString& text, ICLogfile* logfile) {
  post(Warning, text, ICLogfile::kLevelErrors, logfile);
}

void CMessageBoardHelper::setCritical(const QString& text, ICLogfile* logfile) {
  post(Critical, text, ICLogfile::kLevelErrors, logfile);
}

void CMessageBoardHelper::setFormDebugWarning(const QString& text, ICLogfile* logfile) {
  post(DebugWarning, text, ICLogfile::kLevelDetail, logfile);
}
