#include "CProgress.h"

#include "NDisplayText.h"
#include "Tool.h"

#include <QIODevice>

#include <sys/ioctl.h>
#include <unistd.h>

namespace {

// What takes less than the blink of an eye is not worth a word.
constexpr qint64 kManyBytes = 8LL * 1024 * 1024;
constexpr int kManyFiles = 10;
constexpr int kUsualColumns = 80;

int columnsOf(FILE* stream) {
  if (isatty(fileno(stream)) == 0 || qgetenv("TERM") == "dumb") return 0;
  winsize size{};
  const bool isKnown = ioctl(fileno(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return isKnown ? size.ws_col : kUsualColumns;
}

}  // namespace

CProgress::CProgress(FILE* stream, QIODevice& device)
    : mDevice(device), mColumns(columnsOf(stream)) {}

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
