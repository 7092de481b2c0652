#pragma once

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
  CallCount
};
enum EMode {
  Once,        ///< the n-th call fails
  FromThenOn,  ///< so do all that come after it
  Short,       ///< a write writes half, and everything after it fails
  KillBefore,  ///< the process is killed before the call
  KillAfter    ///< and behind it
};

/// As on a file system that has neither unnamed files nor second names.
void usePlainFileSystem(bool isPlain);
/// nth counts from 1; error is what errno becomes.
void arm(ECall call, int nth, int error, EMode mode);
/// Ends the faults; how often each call was made since arm() is kept.
void disarm();
int calls(ECall call);
/// Whether the fault came to pass.
bool hasStruck();
const char* name(ECall call);

}  // namespace NFaults
