#pragma once

#include "SDefinitionDifference.h"

#include <QStringList>

/// What one respect of a definition was and is, and what that does to values.
struct SDefinitionChange {
  SDefinitionDifference::EEffect effect = SDefinitionDifference::Safe;
  QString oldText;
  QString newText;
  QString reason;

  /// Takes over what is worse than all before.
  void judge(SDefinitionDifference::EEffect other, const QString& why) {
    if (other <= effect && !reason.isEmpty()) return;
    effect = other;
    reason = why;
  }

  /// The first entries of a list, and how many there are in all; null for an empty one.
  static QString listed(const QStringList& entries);
};
