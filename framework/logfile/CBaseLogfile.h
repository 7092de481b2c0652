#pragma once

#include "ICLogfile.h"

#include <QString>

#include <atomic>
#include <mutex>

/// Mask, prefix and locking, which all logfiles of this folder have in common: they differ only in
/// their sink.
class CBaseLogfile : public ICLogfile {
 public:
  explicit CBaseLogfile(quint32 levelMask);

  bool isActive() const override;
  bool isLevelEnabled(quint32 level) const override;
  quint32 levelMask() const override;
  void setLevelMask(quint32 levelMask) override;
  QString prefix() const override;
  void setPrefix(const QString& prefix) override;
  void write(quint32 level, const QString& text) override;

 protected:
  /// Time, level and text, as the file and the console show them; ends in a line break.
  static QByteArray stampedLine(quint32 level, const QString& text);

 private:
  // Both are called under the lock.
  virtual bool hasSink() const = 0;
  virtual void writeLine(quint32 level, const QString& text) = 0;

  std::atomic<quint32> mLevelMask;
  mutable std::mutex mMutex;
  QString mPrefix;
};
