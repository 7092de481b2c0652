#include "Faults.h"

#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace {

using namespace NFaults;

struct SPlan {
  std::string call;
  int nth = 0;
  int error = 0;
  EMode mode = Once;
  bool hasStruck = false;
  std::map<std::string, int> calls;
};
SPlan sPlan;
std::set<std::string> sRefused;
CWatcher sWatcher;
bool sIsArmed = false;
bool sIsUsed = false;  ///< calls come before the objects above exist

/// Counts a call; true when it is to fail.
bool strikes(const std::string& call) {
  if (!sIsArmed) return false;
  const int number = ++sPlan.calls[call];
  if (call != sPlan.call || number < sPlan.nth || sPlan.nth == 0) return false;
  const bool isFirst = !std::exchange(sPlan.hasStruck, true);
  return sPlan.mode == FromThenOn || isFirst == (sPlan.mode == Once);
}

int fileOf(int file) {
  return file;
}
int fileOf(const char* /*path*/) {
  return -1;
}

/// The call, or its failure.
template <class Result, class First, class... Rest>
Result pass(const char* name, First first, Rest... rest) {
  const auto call = reinterpret_cast<Result (*)(First, Rest...)>(::dlsym(RTLD_NEXT, name));
  if (!sIsUsed) return call(first, rest...);
  const bool isRefused = sRefused.count(name) > 0;
  const bool fails = isRefused || strikes(name);
  const bool isMade = !fails || std::string("close") == name;  // Linux closes anyway
  Result result = isMade ? call(first, rest...) : -1;
  const int error = isRefused ? EOPNOTSUPP : fails ? sPlan.error : errno;
  if (fails) result = -1;
  if (sWatcher) {
    sIsUsed = false;
    sWatcher(name, fileOf(first), result >= 0);
    sIsUsed = true;
  }
  errno = error;
  return result;
}

}  // namespace

// The interface, and the names under which the C library has these calls.
#pragma GCC visibility push(default)

namespace NFaults {

void refuse(const std::set<std::string>& calls) {
  sIsUsed = true;
  sRefused = calls;
}
void arm(const std::string& call, int nth, int error, EMode mode) {
  sIsUsed = sIsArmed = true;
  sPlan = {call, nth, error, mode, false, {}};
}
void disarm() {
  sIsArmed = false;
}
std::map<std::string, int> calls() {
  return sPlan.calls;
}
bool hasStruck() {
  return sPlan.hasStruck;
}
void watch(const CWatcher& watcher) {
  sIsUsed = true;
  sWatcher = watcher;
}

}  // namespace NFaults

extern "C" {

int open64(const char* path, int flags, mode_t mode) {
  return pass<int>("open64", path, flags, mode);
}
int openat(int folder, const char* path, int flags, mode_t mode) {
  return pass<int>("openat", folder, path, flags, mode);
}
ssize_t write(int file, const void* bytes, size_t size) {
  const bool isShort = sIsUsed && sIsArmed && sPlan.mode == Short && sPlan.call == "write" &&
                       sPlan.calls["write"] + 1 == sPlan.nth;
  return pass<ssize_t>("write", file, bytes, isShort ? size / 2 : size);
}
ssize_t read(int file, void* bytes, size_t size) {
  return pass<ssize_t>("read", file, bytes, size);
}
int fstat(int file, struct stat* info) noexcept {
  return pass<int>("fstat", file, info);
}
int fsync(int file) {
  return pass<int>("fsync", file);
}
int renameat(int folder, const char* from, int other, const char* to) noexcept {
  return pass<int>("renameat", folder, from, other, to);
}
int renameat2(int folder, const char* from, int other, const char* to, unsigned flags) noexcept {
  return pass<int>("renameat2", folder, from, other, to, flags);
}
int linkat(int folder, const char* from, int other, const char* to, int flags) noexcept {
  return pass<int>("linkat", folder, from, other, to, flags);
}
int close(int file) {
  return pass<int>("close", file);
}
int fchmod(int file, mode_t mode) noexcept {
  return pass<int>("fchmod", file, mode);
}
int fchown(int file, uid_t user, gid_t group) noexcept {
  return pass<int>("fchown", file, user, group);
}
int unlinkat(int folder, const char* path, int flags) noexcept {
  return pass<int>("unlinkat", folder, path, flags);
}
ssize_t fgetxattr(int file, const char* name, void* value, size_t size) noexcept {
  return pass<ssize_t>("fgetxattr", file, name, value, size);
}
ssize_t flistxattr(int file, char* names, size_t size) noexcept {
  return pass<ssize_t>("flistxattr", file, names, size);
}
int fsetxattr(int file, const char* name, const void* value, size_t size, int flags) noexcept {
  return pass<int>("fsetxattr", file, name, value, size, flags);
}
int fremovexattr(int file, const char* name) noexcept {
  return pass<int>("fremovexattr", file, name);
}
ssize_t sendfile(int to, int from, off_t* offset, size_t size) noexcept {
  return pass<ssize_t>("sendfile", to, from, offset, size);
}

}  // extern "C"
#pragma GCC visibility pop
