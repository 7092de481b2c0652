#include "COutput.h"

#include "DisplayText.h"
#include "Tool.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <unistd.h>

COutput::COutput(FILE* results, FILE* messages)
    : mHasColour(isatty(fileno(results)) != 0 && qEnvironmentVariableIsEmpty("NO_COLOR") &&
                 qgetenv("TERM") != "dumb"),
      mProgress(messages, mMessages) {
  mFailed = !mResults.open(results, QIODevice::WriteOnly);
  mMessages.open(messages, QIODevice::WriteOnly | QIODevice::Unbuffered);
}

void COutput::write(const QByteArray& bytes) {
  mProgress.erase();
  mFailed = mFailed || mResults.write(bytes) != bytes.size();
}

QString COutput::styled(const QString& text, EStyle style) const {
  return mHasColour ? QStringLiteral("\x1b[%1m%2\x1b[0m").arg(QString::number(style), text) : text;
}

void COutput::line(const QString& text) {
  write(text.toUtf8() + '\n');
}

void COutput::json(const QJsonObject& object) {
  write(QJsonDocument(object).toJson(QJsonDocument::Indented));
}

void COutput::message(const QString& text) {
  mProgress.erase();
  mMessages.write("ktoparam: " + DisplayText::escaped(text).toUtf8() + '\n');
}

void COutput::message(const QString& file, const QString& text, int line) {
  const QString place = line > 0 ? QStringLiteral("%1:%2").arg(file, QString::number(line)) : file;
  message(QStringLiteral("%1: %2").arg(place, text));
}

bool COutput::finish() {
  mProgress.erase();
  mFailed = !mResults.flush() || mFailed;
  if (mFailed)
    message(Tool::tr("the results could not be written: %1").arg(mResults.errorString()));
  return !mFailed;
}
