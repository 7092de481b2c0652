#pragma once

#include <QString>
#include <QVector>

/// A text with "*", which matches any characters, and "?", which matches one.
class CNamePattern {
 public:
  explicit CNamePattern(const QString& text) : mText(text), mCharacters(text.toUcs4()) {}

  const QString& text() const { return mText; }
  /// Takes time in proportion to the two lengths at most, whatever the pattern.
  bool matches(const QString& name) const;

 private:
  QString mText;
  QVector<uint> mCharacters;
};
