#include "Faults.h"

#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <type_traits>

namespace {

using namespace NFaults;

struct SPlan {
  std::string call;
  int nth = 0;
  int error = 0;
  EMode mode = Once;
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
  return sPlan.mode == FromThenOn || (number == sPlan.nth) == (sPlan.mode == Once);
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
    if constexpr (std::is_same_v<First, int>) sWatcher(name, first, result >= 0);
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
  sPlan = {call, nth, error, mode, {}};
}
void disarm() {
  sIsArmed = false;
}
std::map<std::string, int> calls() {
  return sPlan.calls;
}
void watch(const CWatcher& watcher) {
  sIsUsed = true;
  sWatcher = watcher;
}

}  // namespace NFaults

extern "C" {

#define KTO_PASS(Result, name, parameters, ...) \
  Result name parameters {                      \
    return pass<Result>(#name, __VA_ARGS__);    \
  }

KTO_PASS(int, open64, (const char* path, int flags, mode_t mode), path, flags, mode)
KTO_PASS(int, openat, (int folder, const char* path, int flags, mode_t mode), folder, path, flags,
         mode)
KTO_PASS(ssize_t, read, (int file, void* bytes, size_t size), file, bytes, size)
KTO_PASS(int, fstat, (int file, struct stat* info) noexcept, file, info)
KTO_PASS(int, fsync, (int file), file)
KTO_PASS(int, renameat, (int folder, const char* from, int other, const char* to) noexcept, folder,
         from, other, to)
KTO_PASS(int, renameat2,
         (int folder, const char* from, int other, const char* to, unsigned flags) noexcept, folder,
         from, other, to, flags)
KTO_PASS(int, linkat, (int folder, const char* from, int other, const char* to, int flags) noexcept,
         folder, from, other, to, flags)
KTO_PASS(int, close, (int file), file)
KTO_PASS(int, fchmod, (int file, mode_t mode) noexcept, file, mode)
KTO_PASS(int, fchown, (int file, uid_t user, gid_t group) noexcept, file, user, group)
KTO_PASS(int, unlinkat, (int folder, const char* path, int flags) noexcept, folder, path, flags)
KTO_PASS(ssize_t, fgetxattr, (int file, const char* name, void* value, size_t size) noexcept, file,
         name, value, size)
KTO_PASS(ssize_t, flistxattr, (int file, char* names, size_t size) noexcept, file, names, size)
KTO_PASS(int, fsetxattr,
         (int file, const char* name, const void* value, size_t size, int flags) noexcept, file,
         name, value, size, flags)
KTO_PASS(int, fremovexattr, (int file, const char* name) noexcept, file, name)
KTO_PASS(ssize_t, sendfile, (int to, int from, off_t* offset, size_t size) noexcept, to, from,
         offset, size)

ssize_t write(int file, const void* bytes, size_t size) {
  const bool isShort = sIsUsed && sIsArmed && sPlan.mode == Short && sPlan.call == "write" &&
                       sPlan.calls["write"] + 1 == sPlan.nth;
  return pass<ssize_t>("write", file, bytes, isShort ? size / 2 : size);
}

}  // extern "C"
#pragma GCC visibility pop
