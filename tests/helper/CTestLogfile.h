#pragma once

#include "ICLogfile.h"

#include <QStringList>

#include <functional>
#include <mutex>

/// Keeps the errors that are written to it, and lets a test act at each in the thread that writes.
class CTestLogfile : public ICLogfile {
 public:
  explicit CTestLogfile(std::function<void()> onError = nullptr) : mOnError(std::move(onError)) {}

  bool isActive() const override { return true; }
  bool isLevelEnabled(quint32 level) const override { return (level & levelMask()) != 0; }
  quint32 levelMask() const override { return kLevelErrors; }
  void setLevelMask(quint32 /*levelMask*/) override {}
  QString prefix() const override { return QStringLiteral("test"); }
  void setPrefix(const QString& /*prefix*/) override {}
  void write(quint32 level, const QString& text) override {
    if (!isLevelEnabled(level)) return;
    if (mOnError) mOnError();
    const std::lock_guard lock(mMutex);
    mErrors += text;
  }

  QStringList errors() const {
    const std::lock_guard lock(mMutex);
    return mErrors;
  }

 private:
  const std::function<void()> mOnError;
  mutable std::mutex mMutex;
  QStringList mErrors;
};
