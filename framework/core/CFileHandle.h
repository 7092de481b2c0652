#pragma once

#include <unistd.h>

#include <utility>

/// An open file or folder, closed at the end of its life.
class CFileHandle {
 public:
  explicit CFileHandle(int number = -1) : mNumber(number) {}
  CFileHandle(CFileHandle&& other) noexcept : mNumber(other.mNumber) { other.mNumber = -1; }
  CFileHandle& operator=(CFileHandle&& other) noexcept {
    std::swap(mNumber, other.mNumber);
    return *this;
  }
  ~CFileHandle() {
    if (isOpen()) ::close(mNumber);
  }

  bool isOpen() const { return mNumber >= 0; }
  int number() const { return mNumber; }

 private:
  int mNumber;
};
