#include "CDisk.h"

#include "TestFiles.h"

#include <sys/stat.h>

#include <algorithm>

CDisk::CDisk(const QStringList& folders) : mFolders(folders) {
  look();
  for (auto& [number, file] : mFiles) file = {file.content, {}, file.content};
  for (const QString& folder : mFolders) sync(folder, true);
}

bool CDisk::look() {
  bool isChanged = false;
  std::map<quint64, int> numbers;
  std::map<QString, int> found;
  for (const QString& folder : mFolders) {
    for (const QFileInfo& info : QDir(folder).entryInfoList(QDir::Files | QDir::Hidden)) {
      struct stat status {};
      if (info.isSymLink() || ::lstat(qPrintable(info.filePath()), &status) != 0) continue;
      // The system uses the numbers of removed files again.
      const int next = static_cast<int>(mFiles.size()) + 1;
      const int number = mNumbers.emplace(status.st_ino, next).first->second;
      numbers[status.st_ino] = found[info.filePath()] = number;
      mNames[info.filePath()];
      isChanged |= change(mFiles[number], NTestFiles::read(info.filePath()).toStdString());
    }
  }
  for (auto& [path, name] : mNames) {
    const auto file = found.find(path);
    const int number = file == found.end() ? 0 : file->second;
    if (number == name.files.back()) continue;
    name.files.push_back(number);
    isChanged = true;
  }
  mNumbers = numbers;
  return isChanged;
}

bool CDisk::change(SFile& file, const std::string& content) {
  const std::string& old = file.content;
  const auto same = std::mismatch(old.begin(), old.end(), content.begin(), content.end()).first;
  const auto offset = static_cast<size_t>(same - old.begin());
  if (content.size() < old.size()) file.unsynced.push_back({offset, {}});
  if (offset < content.size()) file.unsynced.push_back({offset, content.substr(offset)});
  const bool isChanged = content != old;
  file.content = content;
  return isChanged;
}

void CDisk::sync(const QString& path, bool isDone) {
  const int number = files(path).back();
  SFile& file = mFiles[number];
  file.isSpoilt |= !isDone;
  if (!file.isSpoilt) file = {file.content, {}, file.content};
  for (auto& [name, state] : mNames) {
    if (name.section('/', 0, -2) != path) continue;
    if (!isDone && state.files.size() > 1) state.spoilt = state.files.size();
    if (isDone && state.files.size() > state.spoilt) state = {{state.files.back()}, 0};
  }
}

std::vector<int> CDisk::files(const QString& path) const {
  const auto found = mNames.find(path);
  return found == mNames.end() ? std::vector<int>{0} : found->second.files;
}

void CDisk::put(std::string& content, const SChange& change, const SLoss& loss) {
  if (change.bytes.empty()) {
    if (loss.end == 0) content.resize(std::min(content.size(), change.offset));
    return;
  }
  const auto write = [&](size_t from, const std::string& bytes) {
    if (bytes.empty()) return;
    content.resize(std::max(content.size(), change.offset + from + bytes.size()));
    content.replace(change.offset + from, bytes.size(), bytes);
  };
  write(0, change.bytes.substr(0, loss.begin));
  if (loss.isZeroed) write(loss.begin, std::string(loss.end - loss.begin, '\0'));
  write(loss.end, change.bytes.substr(loss.end));
}

/// All of it, and all before or after the end of a block.
std::vector<CDisk::SLoss> CDisk::lossesOf(const SChange& change) {
  constexpr size_t kBlock = 512;
  constexpr size_t kMostTears = 64;
  const size_t size = change.bytes.size();
  if (size == 0) return {{0, 1}};
  std::vector<SLoss> losses{{0, size}, {0, size, true}};
  const size_t step = kBlock * (1 + size / kBlock / kMostTears);
  for (size_t end = kBlock - change.offset % kBlock; end < size; end += step) {
    losses.push_back({0, end});
    losses.push_back({end, size});
  }
  return losses;
}

bool CDisk::always(int number, const std::function<bool(const std::string&)>& holds) const {
  const SFile& file = mFiles.at(number);
  std::string kept = file.synced;  // with the changes before the one that is lost
  if (!holds(kept)) return false;
  for (auto lost = file.unsynced.begin(); lost != file.unsynced.end(); ++lost) {
    for (const SLoss& loss : lossesOf(*lost)) {
      std::string left = kept;
      put(left, *lost, loss);
      if (!holds(left)) return false;  // so are all after it
      for (auto next = lost + 1; next != file.unsynced.end(); ++next) put(left, *next, {});
      if (!holds(left)) return false;
    }
    put(kept, *lost, {});
    if (!holds(kept)) return false;
  }
  return true;
}
