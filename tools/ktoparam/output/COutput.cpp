#include "COutput.h"

#include "NDisplayText.h"
#include "NShortText.h"
#include "TerminalColumns.h"
#include "Tool.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <unistd.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr qint64 kTimesTheFiles = 20;
constexpr qint64 kFewLines = 4096;
constexpr int kLongestMessage = 10000;

bool isHarmless(char byte) {
  return (byte >= ' ' && byte <= '~') || byte == '\n';
}

/// JSON in which nothing is left that a terminal obeys or does not show; its texts stay the same,
/// since such characters stand in them only.
QByteArray escapedJson(const QByteArray& json) {
  QByteArray result;
  result.reserve(json.size());
  const auto end = json.cend();
  for (auto at = json.cbegin(); at != end;) {
    const auto odd = std::find_if_not(at, end, isHarmless);
    const auto next = std::find_if(odd, end, isHarmless);
    // Qt drops a byte order mark in front, so the character before, of which there is one, goes
    // with it.
    const auto from = odd == end ? end : odd - 1;
    const QString text = QString::fromUtf8(from, static_cast<int>(next - from));
    result.append(at, static_cast<int>(from - at)).append(NDisplayText::escaped(text).toUtf8());
    at = next;
  }
  return result;
}

}  // namespace

COutput::COutput(FILE* results, FILE* messages)
    : mIsTerminal(isatty(fileno(results)) != 0),
      mHasColour(mIsTerminal && qEnvironmentVariableIsEmpty("NO_COLOR") &&
                 qgetenv("TERM") != "dumb"),
      mColumns(terminalColumns(results)),
      mProgress(messages, mMessages) {
  if (mColumns == 0) mColumns = kUsualColumns;
  mFailed = !mResults.open(results, QIODevice::WriteOnly);
  mMessages.open(messages, QIODevice::WriteOnly | QIODevice::Unbuffered);
}

COutput::CTurn::CTurn(COutput& out) : mOut(out) {
  const std::lock_guard lock(mOut.mMutex);
  mOut.mKept[std::this_thread::get_id()];
}

COutput::CTurn::~CTurn() {
  const std::lock_guard lock(mOut.mMutex);
  mOut.mKept.erase(std::this_thread::get_id());
}

CPrinted COutput::CTurn::take() {
  const std::lock_guard lock(mOut.mMutex);
  return std::exchange(mOut.mKept[std::this_thread::get_id()], CPrinted());
}

void COutput::print(const CPrinted& printed) {
  for (const auto& printing : printed) printing();
}

void COutput::inTurn(std::function<void()> printing) {
  {
    const std::lock_guard lock(mMutex);
    const auto kept = mKept.find(std::this_thread::get_id());
    if (kept != mKept.end()) {
      kept->second.push_back(std::move(printing));
      return;
    }
  }
  printing();
}

void COutput::reading(const QString& fileName, qint64 bytes) {
  inTurn([=] { mProgress.reading(fileName, bytes); });
}

void COutput::doing(const QString& text) {
  inTurn([=] { mProgress.doing(text); });
}

void COutput::write(const QByteArray& bytes) {
  mProgress.erase();
  mIsCut = mIsCut || bytes.size() > space();
  if (mIsCut) return;
  mWritten += bytes.size();
  mFailed = mFailed || mResults.write(bytes) != bytes.size();
}

qint64 COutput::space() const {
  // Help has no files.
  const qint64 files = mProgress.bytesOfFiles();
  return files == 0 ? std::numeric_limits<qint64>::max()
                    : kTimesTheFiles * files + kFewLines - mWritten;
}

QString COutput::styled(const QString& text, EStyle style) const {
  return mHasColour ? QStringLiteral("\x1b[%1m%2\x1b[0m").arg(QString::number(style), text) : text;
}

QString COutput::exact(const QString& text) const {
  return mIsTerminal ? NDisplayText::escaped(text) : text;
}

void COutput::line(const QString& text) {
  inTurn([this, bytes = QByteArray(text.toUtf8() + '\n')] { write(bytes); });
}

void COutput::json(const QJsonObject& object) {
  inTurn([=] { writeJson(object); });
}

void COutput::writeJson(const QJsonObject& object) {
  const QJsonDocument document(object);
  const QByteArray text = escapedJson(document.toJson(QJsonDocument::Indented));
  // What is deeply nested would be blanks for the most part.
  write(text.size() <= space() ? text : escapedJson(document.toJson(QJsonDocument::Compact)));
}

void COutput::message(const QString& text) {
  inTurn([=] { writeMessage(text); });
}

void COutput::writeMessage(const QString& text) {
  mProgress.erase();
  const QString told = text.size() > kLongestMessage ? NShortText::of(text) : text;
  mMessages.write("ktoparam: " + NDisplayText::escaped(told).toUtf8() + '\n');
}

void COutput::message(const QString& file, const QString& text, int line) {
  const QString place = line > 0 ? QStringLiteral("%1:%2").arg(file, QString::number(line)) : file;
  message(QStringLiteral("%1: %2").arg(place, text));
}

bool COutput::finish() {
  mProgress.erase();
  const QString cut = Tool::tr(
                          "the results are cut off here, since they are more than %1 times as "
                          "long as the files.")
                          .arg(kTimesTheFiles);
  if (mIsCut && mMayBeCut) mResults.write(cut.toUtf8() + '\n');
  mFailed = !mResults.flush() || mFailed;
  if (mFailed)
    message(Tool::tr("the results could not be written: %1").arg(mResults.errorString()));
  if (mIsCut && !mMayBeCut) message(cut);
  return !mFailed && (!mIsCut || mMayBeCut);
}
