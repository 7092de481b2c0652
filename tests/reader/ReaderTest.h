#pragma once

#include "CMessageBoardHelper.h"
#include "ICLogfile.h"
#include "ICParameterFile.h"
#include "ICSimpleParamReader.h"

#include <QStringList>

#include <memory>

/// Keeps the lines of the levels that are on.
class CKeptLines : public ICLogfile {
 public:
  explicit CKeptLines(quint32 levelMask) : mLevelMask(levelMask) {}
  bool isActive() const override { return true; }
  bool isLevelEnabled(quint32 level) const override { return (level & mLevelMask) != 0; }
  quint32 levelMask() const override { return mLevelMask; }
  void setLevelMask(quint32 levelMask) override { mLevelMask = levelMask; }
  QString prefix() const override { return QString(); }
  void setPrefix(const QString&) override {}
  void write(quint32 level, const QString& text) override {
    if (isLevelEnabled(level)) lines.append(text);
  }
  QStringList lines;

 private:
  quint32 mLevelMask;
};

/// Takes the messages off the board, each after its kind, while it lives.
struct SKeptMessages {
  SKeptMessages() {
    CMessageBoardHelper::setHandler(
        [this](int kind, const QString& text) { texts += QString::number(kind) + ' ' + text; });
  }
  ~SKeptMessages() { CMessageBoardHelper::setHandler({}); }
  QStringList texts;
};

inline std::unique_ptr<ICSimpleParamReader> makeReader(NParamDef::EAccessRight access,
                                                       const QString& hardwareId = "HW",
                                                       ICLogfile* logfile = nullptr) {
  return std::unique_ptr<ICSimpleParamReader>(ICSimpleParamReader::createSingle(
      NktoGlobal::FILE_TYPE_PARAMETERS, hardwareId, access, logfile, 0x10000, 0x10000));
}
