#pragma once

#include "CProgress.h"

#include <QFile>
#include <QString>

#include <cstdio>

class QJsonObject;

/// The two streams of the tool: results on one, messages on the other, both in UTF-8.
class COutput {
 public:
  COutput(FILE* results, FILE* messages);

  enum EStyle { Bold = 1, Red = 31, Yellow = 33 };  // as terminals number them
  /// Part of a result, unchanged unless results go to a terminal whose user wants colour.
  QString styled(const QString& text, EStyle style) const;

  /// What is being done meanwhile, as a line that the next text takes the place of.
  CProgress& progress() { return mProgress; }

  void line(const QString& text);
  void json(const QJsonObject& object);

  /// "ktoparam: text"; control characters become escapes, so that one message is one line.
  void message(const QString& text);
  /// "ktoparam: file: text", with a line number when there is one.
  void message(const QString& file, const QString& text, int line = 0);

  /// To be called once, at the end: false, with a message, when results could not be written.
  bool finish();

 private:
  void write(const QByteArray& bytes);

  QFile mResults;
  QFile mMessages;
  bool mHasColour;
  CProgress mProgress;
  bool mFailed = false;
};
