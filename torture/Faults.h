#pragma once

#include <initializer_list>

/// System calls that fail on demand. The library stands in front of the C library, so that the
/// calls of Qt pass through it too; only the process that arms it is affected.
namespace NFaults {

enum ECall {
  Open,
  Read,
  Stat,
  Write,
  Sync,
  Rename,
  Link,
  Close,
  Chmod,
  Chown,
  Unlink,
  SendFile,
  RenameToNew,
  GetAttribute,
  SetAttribute,
  RemoveAttribute,
  CallCount
};
enum EMode {
  Once,        ///< the n-th call fails
  FromThenOn,  ///< so do all that come after it
  Short,       ///< a write writes half, and everything after it fails
  KillBefore,  ///< the process is killed before the call
  KillAfter    ///< and behind it
};

/// Calls that fail until others are named, as on a file system that does not have them.
void refuse(std::initializer_list<ECall> calls);
/// nth counts from 1; error is what errno becomes.
void arm(ECall call, int nth, int error, EMode mode);
/// Ends the faults; how often each call was made since arm() is kept.
void disarm();
int calls(ECall call);
/// Whether the fault came to pass.
bool hasStruck();
const char* name(ECall call);

}  // namespace NFaults
