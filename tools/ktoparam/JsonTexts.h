#pragma once

#include <QJsonValue>
#include <QString>

/// Null stands in JSON for what does not exist.
inline QJsonValue textOrNull(const QString& text) {
  return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}
