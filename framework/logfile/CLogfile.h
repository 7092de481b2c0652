#pragma once

#include "ICLogfile.h"

#include <QString>

#include <atomic>
#include <functional>
#include <mutex>

/// The logfile of this library: mask, prefix and locking in front of a sink.
class CLogfile : public ICLogfile {
 public:
  /// Takes one line, under the lock; false when it cannot take any more.
  using CSink = std::function<bool(quint32 level, const QString& line)>;

  /// Without a sink the logfile stays silent.
  CLogfile(quint32 levelMask, CSink sink);

  bool isActive() const override;
  bool isLevelEnabled(quint32 level) const override { return (mLevelMask & level) != 0; }
  quint32 levelMask() const override { return mLevelMask; }
  void setLevelMask(quint32 levelMask) override { mLevelMask = levelMask; }
  QString prefix() const override;
  void setPrefix(const QString& prefix) override;
  void write(quint32 level, const QString& text) override;

 private:
  std::atomic<quint32> mLevelMask;
  mutable std::mutex mMutex;
  CSink mSink;
  QString mPrefix;
};
