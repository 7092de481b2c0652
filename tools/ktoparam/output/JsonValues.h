#pragma once

#include <QJsonArray>
#include <QJsonObject>

/// JSON has null for what does not exist.
inline QJsonValue textOrNull(const QString& text) {
  return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

/// The same for values, which may be empty texts.
inline QJsonValue presentOrNull(const QString& value) {
  return value.isNull() ? QJsonValue() : QJsonValue(value);
}
