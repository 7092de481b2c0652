#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>

/// System calls that fail on demand, and that a test may watch. The library is loaded before the C
/// library, so that the calls of Qt pass through it too; a process that asks for nothing runs as
/// without it. Calls are named as the C library names them.
namespace NFaults {

enum EMode {
  Once,        ///< the n-th call fails
  FromThenOn,  ///< so do all that come after it
  Short        ///< the n-th write writes half, and all after it fail
};
using CWatcher = std::function<void(const std::string& call, int file, bool isDone)>;

/// Calls that fail until others are named, as on a file system that does not have them.
void refuse(const std::set<std::string>& calls);
/// nth counts from 1; error is what errno becomes.
void arm(const std::string& call, int nth, int error, EMode mode);
/// Ends the faults; how often each call was made since arm() is kept.
void disarm();
std::map<std::string, int> calls();
/// The watcher is told of every call of a file, after it. Its own calls are not
/// counted and do not fail. An empty one ends the watch.
void watch(const CWatcher& watcher);

}  // namespace NFaults
