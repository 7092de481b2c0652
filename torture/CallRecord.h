#pragma once

#include <string>
#include <vector>

/// Records what is asked of the disk. The library stands in front of the C library and of the
/// failing calls, so that a call is recorded with the result that its caller sees.
namespace NCallRecord {

/// Files and folders bear numbers, a new one with every file that is created.
struct SCall {
  enum EKind {
    Write,      ///< the bytes of a file from the offset on
    Resize,     ///< a file to as many bytes as the offset says
    Name,       ///< a name in a folder stands for a file, or with 0 for none
    Sync,       ///< a file, or the names in a folder
    FailedSync  ///< the system may forget what it was to bring to the disk
  };
  EKind kind;
  int number;  ///< of the file, or of the folder of a name
  long offset = 0;
  std::string bytes = {};  ///< or the name
  int named = 0;
};

/// Records from now on what happens beneath a folder, a path without links.
void start(const std::string& folder);
void stop();
/// The calls since the last time, or the start.
std::vector<SCall> take();
int numberOf(const std::string& path);  ///< 0 when there is nothing

}  // namespace NCallRecord
