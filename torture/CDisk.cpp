#include "CDisk.h"

#include <algorithm>

namespace {

using SCall = NCallRecord::SCall;

/// The part of a call that does not reach the disk; zeros take its place where the file has got its
/// size before its content.
struct SLoss {
  size_t begin = 0;
  size_t end = 0;
  bool isZeroed = false;
};

void put(std::string& content, size_t offset, const std::string& bytes) {
  if (bytes.empty()) return;
  content.resize(std::max(content.size(), offset + bytes.size()));
  content.replace(offset, bytes.size(), bytes);
}

void put(std::string& content, const SCall& call, const SLoss& loss = {}) {
  const auto offset = static_cast<size_t>(call.offset);
  if (call.kind == SCall::Resize) {
    if (loss.end == 0) content.resize(offset);
    return;
  }
  put(content, offset, call.bytes.substr(0, loss.begin));
  if (loss.isZeroed) put(content, offset, std::string(loss.end, '\0'));
  put(content, offset + loss.end, call.bytes.substr(loss.end));
}

/// All of it, and all before or behind the end of a block.
std::vector<SLoss> lossesOf(const SCall& call) {
  constexpr size_t kBlock = 512;
  constexpr size_t kMostTears = 64;
  const size_t size = call.bytes.size();
  if (call.kind == SCall::Resize) return {{0, 1}};
  std::vector<SLoss> losses{{0, size}, {0, size, true}};
  const size_t step = kBlock * (1 + size / kBlock / kMostTears);
  const size_t first = kBlock - static_cast<size_t>(call.offset) % kBlock;
  for (size_t end = first; end < size; end += step) {
    losses.push_back({0, end});
    losses.push_back({end, size});
  }
  return losses;
}

}  // namespace

void CDisk::apply(const SCall& call) {
  switch (call.kind) {
    case SCall::Write:
    case SCall::Resize:
      mFiles[call.number].unsynced.push_back(call);
      return;
    case SCall::Name: {
      mNames[{call.number, call.bytes}].files.push_back(call.named);
      return;
    }
    case SCall::Sync:
      sync(call.number);
      return;
    case SCall::FailedSync:
      mFiles[call.number].isSpoilt = true;
      for (auto& [key, name] : mNames)
        if (key.first == call.number && name.files.size() > 1) name.spoilt = name.files.size();
      return;
  }
}

void CDisk::sync(int number) {
  SFile& file = mFiles[number];
  if (!file.isSpoilt) {
    file.synced = content(number);
    file.unsynced.clear();
  }
  for (auto& [key, name] : mNames)
    if (key.first == number && name.files.size() > name.spoilt) name = {{name.files.back()}, 0};
}

void CDisk::settle() {
  for (const auto& [number, file] : mFiles) sync(number);
  for (auto& [key, name] : mNames) name = {{name.files.back()}, 0};
}

std::vector<int> CDisk::files(int folder, const std::string& name) const {
  const auto found = mNames.find({folder, name});
  return found == mNames.end() ? std::vector<int>{0} : found->second.files;
}

std::string CDisk::content(int number) const {
  const auto found = mFiles.find(number);
  if (found == mFiles.end()) return {};
  std::string bytes = found->second.synced;
  for (const SCall& call : found->second.unsynced) put(bytes, call);
  return bytes;
}

bool CDisk::always(int number, const std::function<bool(const std::string&)>& holds) const {
  const auto found = mFiles.find(number);
  if (found == mFiles.end()) return holds({});
  const std::vector<SCall>& calls = found->second.unsynced;
  std::string kept = found->second.synced;  // with the calls before the one that is lost
  if (!holds(kept)) return false;
  for (size_t lost = 0; lost < calls.size(); ++lost) {
    for (const SLoss& loss : lossesOf(calls[lost])) {
      std::string left = kept;
      put(left, calls[lost], loss);
      if (!holds(left)) return false;  // so are all behind it
      for (size_t next = lost + 1; next < calls.size(); ++next) put(left, calls[next]);
      if (!holds(left)) return false;
    }
    put(kept, calls[lost]);
    if (!holds(kept)) return false;
  }
  return true;
}
