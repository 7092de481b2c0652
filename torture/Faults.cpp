#include "Faults.h"

#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>

namespace {

using namespace NFaults;

struct SPlan {
  bool isArmed = false;
  ECall call = Open;
  int nth = 0;
  int error = 0;
  EMode mode = Once;
  bool hasStruck = false;
  std::array<int, CallCount> calls{};
};
SPlan sPlan;
std::array<bool, CallCount> sRefused{};

/// Counts a call; true when it is to fail. What a call does then is the caller's affair.
bool strikes(ECall call) {
  if (!sPlan.isArmed) return false;
  const int number = ++sPlan.calls[call];
  const bool isIt = call == sPlan.call && number == sPlan.nth;
  const bool isBehind = sPlan.hasStruck && sPlan.mode == FromThenOn && call == sPlan.call;
  const bool isFull = sPlan.hasStruck && sPlan.mode == Short && call == Write;
  sPlan.hasStruck |= isIt;
  if (isIt && sPlan.mode == KillBefore) ::raise(SIGKILL);
  errno = sPlan.error;
  return isIt || isBehind || isFull;
}

template <class Function>
Function real(const char* name) {
  return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

/// The call, or its failure.
template <class Result, class... Parameters>
Result pass(ECall call, const char* name, Parameters... parameters) {
  if (sRefused[call]) {
    errno = EOPNOTSUPP;
    return static_cast<Result>(-1);
  }
  const bool fails = strikes(call);
  const int error = errno;
  const bool isDone = !fails || call == Close || sPlan.mode == KillAfter;  // Linux closes anyway
  const Result result =
      isDone ? real<Result (*)(Parameters...)>(name)(parameters...) : static_cast<Result>(-1);
  if (!fails) return result;
  if (sPlan.mode == KillAfter) ::raise(SIGKILL);
  errno = error;
  return static_cast<Result>(-1);
}

}  // namespace

namespace NFaults {

__attribute__((visibility("default"))) void refuse(std::initializer_list<ECall> calls) {
  sRefused.fill(false);
  for (const ECall call : calls) sRefused[call] = true;
}

__attribute__((visibility("default"))) void arm(ECall call, int nth, int error, EMode mode) {
  sPlan = {true, call, nth, error, mode, false, {}};
}
__attribute__((visibility("default"))) void disarm() {
  sPlan.isArmed = false;
}
__attribute__((visibility("default"))) int calls(ECall call) {
  return sPlan.calls[call];
}
__attribute__((visibility("default"))) bool hasStruck() {
  return sPlan.hasStruck;
}
__attribute__((visibility("default"))) const char* name(ECall call) {
  static const char* const kNames[] = {"open",      "read",      "fstat",     "write",
                                       "fsync",     "rename",    "linkat",    "close",
                                       "fchmod",    "fchown",    "unlink",    "sendfile",
                                       "renameat2", "fgetxattr", "fsetxattr", "fremovexattr"};
  return kNames[call];
}

}  // namespace NFaults

// The names under which the C library has these calls.
#pragma GCC visibility push(default)
extern "C" {

int open(const char* path, int flags, mode_t mode) {
  return pass<int>(Open, "open", path, flags, mode);
}
int open64(const char* path, int flags, mode_t mode) {
  return pass<int>(Open, "open64", path, flags, mode);
}
int openat(int folder, const char* path, int flags, mode_t mode) {
  return pass<int>(Open, "openat", folder, path, flags, mode);
}
int openat64(int folder, const char* path, int flags, mode_t mode) {
  return pass<int>(Open, "openat64", folder, path, flags, mode);
}
ssize_t write(int file, const void* bytes, size_t size) {
  if (sPlan.isArmed && sPlan.mode == Short && !sPlan.hasStruck && strikes(Write))
    return real<ssize_t (*)(int, const void*, size_t)>("write")(file, bytes, size / 2);
  return pass<ssize_t>(Write, "write", file, bytes, size);
}
ssize_t read(int file, void* bytes, size_t size) {
  return pass<ssize_t>(Read, "read", file, bytes, size);
}
int fstat(int file, struct stat* info) noexcept {
  return pass<int>(Stat, "fstat", file, info);
}
int fsync(int file) {
  return pass<int>(Sync, "fsync", file);
}
int fdatasync(int file) {
  return pass<int>(Sync, "fdatasync", file);
}
int rename(const char* from, const char* to) noexcept {
  return pass<int>(Rename, "rename", from, to);
}
int renameat(int folder, const char* from, int other, const char* to) noexcept {
  return pass<int>(Rename, "renameat", folder, from, other, to);
}
int renameat2(int folder, const char* from, int other, const char* to, unsigned flags) noexcept {
  return pass<int>(RenameToNew, "renameat2", folder, from, other, to, flags);
}
int link(const char* from, const char* to) noexcept {
  return pass<int>(Link, "link", from, to);
}
int linkat(int folder, const char* from, int other, const char* to, int flags) noexcept {
  return pass<int>(Link, "linkat", folder, from, other, to, flags);
}
int close(int file) {
  return pass<int>(Close, "close", file);
}
int fchmod(int file, mode_t mode) noexcept {
  return pass<int>(Chmod, "fchmod", file, mode);
}
int fchown(int file, uid_t user, gid_t group) noexcept {
  return pass<int>(Chown, "fchown", file, user, group);
}
int unlink(const char* path) noexcept {
  return pass<int>(Unlink, "unlink", path);
}
int unlinkat(int folder, const char* path, int flags) noexcept {
  return pass<int>(Unlink, "unlinkat", folder, path, flags);
}
ssize_t fgetxattr(int file, const char* name, void* value, size_t size) noexcept {
  return pass<ssize_t>(GetAttribute, "fgetxattr", file, name, value, size);
}
ssize_t flistxattr(int file, char* names, size_t size) noexcept {
  return pass<ssize_t>(GetAttribute, "flistxattr", file, names, size);
}
int fsetxattr(int file, const char* name, const void* value, size_t size, int flags) noexcept {
  return pass<int>(SetAttribute, "fsetxattr", file, name, value, size, flags);
}
int fremovexattr(int file, const char* name) noexcept {
  return pass<int>(RemoveAttribute, "fremovexattr", file, name);
}
ssize_t sendfile(int to, int from, off_t* offset, size_t size) noexcept {
  return pass<ssize_t>(SendFile, "sendfile", to, from, offset, size);
}
ssize_t sendfile64(int to, int from, off_t* offset, size_t size) noexcept {
  return pass<ssize_t>(SendFile, "sendfile64", to, from, offset, size);
}

}  // extern "C"
#pragma GCC visibility pop
