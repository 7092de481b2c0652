#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <string>
#include <vector>

/// What a disk may hold after a power cut, by what POSIX promises and nothing more: a change of a
/// file is kept, lost or torn as long as the file is not synced, and a name may be that of any of
/// the files that had it since its folder was synced. A sync that failed has lost what it was to
/// keep.
class CDisk {
 public:
  /// The paths have no links; what is in the folders is on the disk.
  explicit CDisk(const QStringList& folders);

  /// Looks for what a call has changed in the folders. False when that is nothing.
  bool look();
  /// A file or folder was synced, or that failed.
  void sync(const QString& path, bool isDone);
  /// Numbers of the files that a name may be of; 0 is no file.
  std::vector<int> files(const QString& path) const;
  /// Whether a condition holds for every content that a file may have.
  bool always(int number, const std::function<bool(const std::string&)>& holds) const;

 private:
  struct SChange {
    size_t offset;
    std::string bytes;  ///< from the offset on; none when the file ends there from now on
  };
  /// The part of a change that does not reach the disk; zeros take its place where the file has got
  /// its size before its content.
  struct SLoss {
    size_t begin = 0;
    size_t end = 0;
    bool isZeroed = false;
  };
  struct SFile {
    std::string synced;
    std::vector<SChange> unsynced;
    std::string content;  ///< without a power cut
    bool isSpoilt = false;
  };
  struct SName {
    std::vector<int> files{0};
    size_t spoilt = 0;  ///< so many of them
  };

  static void put(std::string& content, const SChange& change, const SLoss& loss);
  static std::vector<SLoss> lossesOf(const SChange& change);
  static bool change(SFile& file, const std::string& content);

  const QStringList mFolders;
  std::map<quint64, int> mNumbers;  ///< of the files that have a name, by those of the system
  std::map<int, SFile> mFiles;
  std::map<QString, SName> mNames;
};
