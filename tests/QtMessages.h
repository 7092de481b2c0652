#pragma once

#include <QStringList>

/// What an action tells Qt's message handler: "type category text" of each message.
template <class Action>
QStringList qtMessages(const Action& action) {
  static QStringList messages;
  messages.clear();
  const auto keep = [](QtMsgType type, const QMessageLogContext& context, const QString& text) {
    messages += QStringLiteral("%1 %2 %3")
                    .arg(QString::number(type), QString::fromLatin1(context.category), text);
  };
  const auto before = qInstallMessageHandler(keep);
  action();
  qInstallMessageHandler(before);
  return messages;
}
