#pragma once

#include "ICLogfile.h"

#include <QStringList>

/// Keeps the lines of the levels that are on.
class CKeptLines : public ICLogfile {
 public:
  explicit CKeptLines(quint32 levelMask = ~0U) : mLevelMask(levelMask) {}
  bool isActive() const override { return true; }
  bool isLevelEnabled(quint32 level) const override { return (level & mLevelMask) != 0; }
  quint32 levelMask() const override { return mLevelMask; }
  void setLevelMask(quint32 levelMask) override { mLevelMask = levelMask; }
  QString prefix() const override { return QString(); }
  void setPrefix(const QString& /*prefix*/) override {}
  void write(quint32 level, const QString& text) override {
    if (isLevelEnabled(level)) lines.append(text);
  }
  QStringList lines;

 private:
  quint32 mLevelMask;
};
