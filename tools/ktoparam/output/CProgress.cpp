#include "CProgress.h"

#include "NDisplayText.h"
#include "TerminalColumns.h"
#include "Tool.h"

#include <QIODevice>

namespace {

// What takes less than the blink of an eye is not worth a word.
constexpr qint64 kManyBytes = 8LL * 1024 * 1024;
constexpr int kManyFiles = 10;

}  // namespace

CProgress::CProgress(FILE* stream, QIODevice& device)
    : mDevice(device), mColumns(qgetenv("TERM") == "dumb" ? 0 : terminalColumns(stream)) {}

void CProgress::reading(const QString& fileName, qint64 bytes) {
  qint64& size = mSizes[fileName];
  mBytesOfFiles += bytes - size;
  size = bytes;
  mBytes += bytes;
  ++mFiles;
  doing(mFiles < kManyFiles
            ? Tool::tr("Reading %1 …").arg(fileName)
            : Tool::tr("Reading %1 (file %2) …").arg(fileName, QString::number(mFiles)));
}

void CProgress::erase() {
  if (mIsShown) mDevice.write("\r\x1b[K");
  mIsShown = false;
}

void CProgress::doing(const QString& text) {
  if (mColumns == 0 || (mBytes < kManyBytes && mFiles < kManyFiles)) return;
  erase();
  // A line that wraps could not be erased.
  mDevice.write(NDisplayText::cut(NDisplayText::escaped(text), mColumns - 1).toUtf8());
  mIsShown = true;
}
