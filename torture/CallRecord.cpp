#include "CallRecord.h"

#include <dlfcn.h>
#include <linux/fcntl.h>  // not <fcntl.h>, which declares open() with other parameters
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <map>
#include <utility>

namespace {

using NCallRecord::SCall;

struct SRecord {
  bool isOn = false;
  std::string folder;
  std::map<ino_t, int> numbers;
  int last = 0;
  std::vector<SCall> calls;
};
SRecord sRecord;

/// What is noted behind a call leaves the call's error alone.
struct SKeptError {
  const int error = errno;
  ~SKeptError() { errno = error; }
};

template <class Result, class... Parameters>
Result call(const char* name, Parameters... parameters) {
  return reinterpret_cast<Result (*)(Parameters...)>(::dlsym(RTLD_NEXT, name))(parameters...);
}

/// The path through which the system finds what is open.
std::string pathOf(int file) {
  return "/proc/self/fd/" + std::to_string(file);
}

std::string pathIn(int folder, const char* path) {
  return folder == AT_FDCWD || *path == '/' ? path : pathOf(folder) + '/' + path;
}

bool isOurs(const std::string& path) {
  return sRecord.isOn && path.compare(0, sRecord.folder.size(), sRecord.folder) == 0;
}

/// Where an open file is; empty when it is not beneath the folder.
std::string ourPath(int file) {
  char buffer[PATH_MAX];
  const ssize_t size = sRecord.isOn ? ::readlink(pathOf(file).c_str(), buffer, sizeof buffer) : -1;
  const std::string path(buffer, size > 0 ? static_cast<size_t>(size) : 0);
  return isOurs(path) ? path : std::string();
}

/// The system uses the numbers of removed files again.
int numberOf(const struct stat& info, bool isNew = false) {
  int& number = sRecord.numbers[info.st_ino];
  if (isNew || number == 0) number = ++sRecord.last;
  return number;
}
int numberOf(int file, bool isNew = false) {
  struct stat info {};
  return ::stat(pathOf(file).c_str(), &info) == 0 ? numberOf(info, isNew) : 0;
}

void noteName(const std::string& path) {
  const size_t slash = path.rfind('/');
  const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  char place[PATH_MAX];
  if (::realpath(folder.c_str(), place) == nullptr || !isOurs(std::string(place))) return;
  sRecord.calls.push_back({SCall::Name, NCallRecord::numberOf(place), 0, path.substr(slash + 1),
                           NCallRecord::numberOf(path)});
}

void noteNames(int result, const std::string& path, const std::string& other = {}) {
  const SKeptError kept;
  if (result != 0 || !sRecord.isOn) return;
  noteName(path);
  if (!other.empty()) noteName(other);
}

void note(SCall::EKind kind, int file, long offset = 0, const std::string& bytes = {}) {
  const SKeptError kept;
  if (!ourPath(file).empty()) sRecord.calls.push_back({kind, numberOf(file), offset, bytes});
}

/// What was written last, ending at the file's position.
void noteWrite(int file, const char* bytes, ssize_t size) {
  const SKeptError kept;
  if (size <= 0 || !sRecord.isOn) return;
  const long end = ::lseek(file, 0, SEEK_CUR);
  note(SCall::Write, file, end - size, std::string(bytes, static_cast<size_t>(size)));
}

void noteCopy(int to, int from, ssize_t size) {
  const SKeptError kept;
  if (size <= 0 || ourPath(to).empty()) return;
  std::string bytes(static_cast<size_t>(size), '\0');
  const long end = ::lseek(from, 0, SEEK_CUR);
  if (::pread(from, &bytes[0], bytes.size(), end - size) == size) noteWrite(to, &bytes[0], size);
}

int noteSync(int result, int file) {
  note(result == 0 ? SCall::Sync : SCall::FailedSync, file);
  return result;
}

template <class... Parameters>
int openFile(const char* name, const std::string& path, int flags, Parameters... parameters) {
  struct stat info {};
  const bool isNew = (flags & __O_TMPFILE) != 0 ||
                     ((flags & O_CREAT) != 0 && sRecord.isOn && ::stat(path.c_str(), &info) != 0);
  const int file = call<int>(name, parameters...);
  const SKeptError kept;
  const std::string found = ourPath(file);
  if (found.empty()) return file;
  numberOf(file, isNew);
  if (isNew && (flags & __O_TMPFILE) == 0) noteName(found);
  if ((flags & O_TRUNC) != 0) note(SCall::Resize, file);
  return file;
}

}  // namespace

// The names under which the C library has these calls, and those of this library.
#pragma GCC visibility push(default)

namespace NCallRecord {

void start(const std::string& folder) {
  sRecord = {true, folder, {}, 0, {}};
}
void stop() {
  sRecord.isOn = false;
}
std::vector<SCall> take() {
  return std::exchange(sRecord.calls, {});
}
int numberOf(const std::string& path) {
  struct stat info {};
  return ::lstat(path.c_str(), &info) == 0 ? ::numberOf(info) : 0;
}

}  // namespace NCallRecord

extern "C" {

int open(const char* path, int flags, mode_t mode) {
  return openFile("open", path, flags, path, flags, mode);
}
int open64(const char* path, int flags, mode_t mode) {
  return openFile("open64", path, flags, path, flags, mode);
}
int openat(int folder, const char* path, int flags, mode_t mode) {
  return openFile("openat", pathIn(folder, path), flags, folder, path, flags, mode);
}
ssize_t write(int file, const void* bytes, size_t size) {
  const auto done = call<ssize_t>("write", file, bytes, size);
  noteWrite(file, static_cast<const char*>(bytes), done);
  return done;
}
ssize_t sendfile(int to, int from, off_t* offset, size_t size) noexcept {
  const auto done = call<ssize_t>("sendfile", to, from, offset, size);
  noteCopy(to, from, done);
  return done;
}
int ftruncate(int file, off_t size) noexcept {
  const int result = call<int>("ftruncate", file, size);
  if (result == 0) note(SCall::Resize, file, size);
  return result;
}
int fsync(int file) {
  return noteSync(call<int>("fsync", file), file);
}
int fdatasync(int file) {
  return noteSync(call<int>("fdatasync", file), file);
}
int rename(const char* from, const char* to) noexcept {
  const int result = call<int>("rename", from, to);
  noteNames(result, to, from);
  return result;
}
int renameat(int folder, const char* from, int other, const char* to) noexcept {
  const int result = call<int>("renameat", folder, from, other, to);
  noteNames(result, pathIn(other, to), pathIn(folder, from));
  return result;
}
int renameat2(int folder, const char* from, int other, const char* to, unsigned flags) noexcept {
  const int result = call<int>("renameat2", folder, from, other, to, flags);
  noteNames(result, pathIn(other, to), pathIn(folder, from));
  return result;
}
int link(const char* from, const char* to) noexcept {
  const int result = call<int>("link", from, to);
  noteNames(result, to);
  return result;
}
int linkat(int folder, const char* from, int other, const char* to, int flags) noexcept {
  const int result = call<int>("linkat", folder, from, other, to, flags);
  noteNames(result, pathIn(other, to));
  return result;
}
int unlink(const char* path) noexcept {
  const int result = call<int>("unlink", path);
  noteNames(result, path);
  return result;
}
int unlinkat(int folder, const char* path, int flags) noexcept {
  const int result = call<int>("unlinkat", folder, path, flags);
  noteNames(result, pathIn(folder, path));
  return result;
}

}  // extern "C"
#pragma GCC visibility pop
