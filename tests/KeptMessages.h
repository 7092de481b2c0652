#pragma once

#include "CMessageBoardHelper.h"

#include <QStringList>

/// Takes the messages off the board, each after its kind, while it lives.
struct SKeptMessages {
  SKeptMessages() {
    CMessageBoardHelper::setHandler(
        [this](int kind, const QString& text) { texts += QString::number(kind) + ' ' + text; });
  }
  ~SKeptMessages() { CMessageBoardHelper::setHandler({}); }
  QStringList texts;
};
