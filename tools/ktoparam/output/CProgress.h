#pragma once

#include <QString>

#include <cstdio>
#include <map>

class QIODevice;

/// One line on the terminal that tells what is being done with many or large files. It is there
/// only while that lasts; where there is no terminal, nothing is ever written.
class CProgress {
 public:
  /// Writes to the device, which stands for the stream and must live as long as this.
  CProgress(FILE* stream, QIODevice& device);

  /// A file that is read, which makes the work more.
  void reading(const QString& fileName, qint64 bytes);
  /// The bytes of all files that were read, each file once.
  qint64 bytesOfFiles() const { return mBytesOfFiles; }
  /// What is done with what was read.
  void doing(const QString& text);
  /// Leaves the line empty for whatever is written next.
  void erase();

 private:
  QIODevice& mDevice;
  const int mColumns;                // 0 when there is no terminal
  std::map<QString, qint64> mSizes;  // by the file's name
  qint64 mBytesOfFiles = 0;
  qint64 mBytes = 0;
  int mFiles = 0;
  bool mIsShown = false;
};
