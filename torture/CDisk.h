#pragma once

#include "CallRecord.h"

#include <functional>
#include <map>
#include <utility>

/// What a disk may hold after a power cut, by what POSIX promises and nothing more: a write is
/// kept, lost or torn as long as its file is not synced, and a name stands for any of the files
/// that it stood for since its folder was synced. A sync that failed has lost what it was to keep.
class CDisk {
 public:
  using SCall = NCallRecord::SCall;

  void apply(const SCall& call);
  /// All of it is on the disk.
  void settle();
  /// What a name may stand for; 0 is no file. The last is what it stands for without a power cut.
  std::vector<int> files(int folder, const std::string& name) const;
  /// Whether a condition holds for every content that a file may have.
  bool always(int number, const std::function<bool(const std::string&)>& holds) const;
  /// The content without a power cut.
  std::string content(int number) const;

 private:
  struct SFile {
    std::string synced;
    std::vector<SCall> unsynced;
    bool isSpoilt = false;
  };
  struct SName {
    std::vector<int> files{0};
    size_t spoilt = 0;  ///< so many of them
  };
  using CKey = std::pair<int, std::string>;  ///< the folder, and the name in it

  void sync(int number);

  std::map<int, SFile> mFiles;  ///< and folders
  std::map<CKey, SName> mNames;
};
