#pragma once

#include "ktoFramework_export.h"

#include <QString>

#include <functional>

class ICLogfile;

/// The message board: messages meant for the user's eyes. An application installs a handler that
/// shows them; without one they go to the QLoggingCategory "kto.messageboard". Thread-safe.
///
/// @snippet usage.cpp CMessageBoardHelper
class KTOFRAMEWORK_EXPORT CMessageBoardHelper {
 public:
  enum EMessageKind { DebugWarning = 0, Warning = 1, Critical = 2 };

  /// Called in the thread that posts, possibly from several at once, never under a lock: it may
  /// post and call setHandler() itself. A call that has begun ends with the handler it began with.
  using Handler = std::function<void(EMessageKind, const QString& text)>;

  CMessageBoardHelper() = delete;

  /// An empty handler restores the default.
  static void setHandler(Handler handler);

  /// Post a text, and write it to the logfile when one is given: warnings and criticals at
  /// ICLogfile::kLevelErrors, debug warnings at ICLogfile::kLevelDetail.
  static void setWarning(const QString& text, ICLogfile* logfile = nullptr);
  static void setCritical(const QString& text, ICLogfile* logfile = nullptr);
  static void setFormDebugWarning(const QString& text, ICLogfile* logfile = nullptr);
};
