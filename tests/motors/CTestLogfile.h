#pragma once

#include "KeptMessages.h"

#include <functional>
#include <mutex>

/// Keeps the errors that are written to it, and lets a test act at each in the thread that writes.
class CTestLogfile : public CKeptLines {
 public:
  explicit CTestLogfile(std::function<void()> onError = nullptr)
      : CKeptLines(kLevelErrors), mOnError(std::move(onError)) {}

  QString prefix() const override { return QStringLiteral("test"); }
  void write(quint32 level, const QString& text) override {
    if (!isLevelEnabled(level)) return;
    if (mOnError) mOnError();
    const std::lock_guard lock(mMutex);
    CKeptLines::write(level, text);
  }

  QStringList errors() const {
    const std::lock_guard lock(mMutex);
    return lines;
  }

 private:
  const std::function<void()> mOnError;
  mutable std::mutex mMutex;
};
