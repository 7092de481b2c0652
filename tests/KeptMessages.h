#pragma once

#include "CMessageBoardHelper.h"
#include "ICLogfile.h"

#include <QStringList>

/// A logfile that keeps the lines of the levels that are on.
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

/// Takes the messages off the board, each after its kind, while it lives.
struct SKeptMessages {
  SKeptMessages() {
    CMessageBoardHelper::setHandler(
        [this](int kind, const QString& text) { texts += QString::number(kind) + ' ' + text; });
  }
  ~SKeptMessages() { CMessageBoardHelper::setHandler({}); }
  QStringList texts;
};

/// What an action tells Qt's message handler: "type category text" of each message.
template <class Action>
QStringList qtMessages(const Action& action) {
  static QStringList messages;
  messages.clear();
  const auto keep = [](QtMsgType type, const QMessageLogContext& context, const QString& text) {
    messages += QString::number(type) + ' ' + context.category + ' ' + text;
  };
  const auto before = qInstallMessageHandler(keep);
  action();
  qInstallMessageHandler(before);
  return messages;
}
