#pragma once

#include "CFileHandle.h"

#include <QByteArray>
#include <QString>

/// Where a name leads, in bytes, as the system resolves it. The folder stays open, so that nobody
/// can put another one in its place meanwhile.
struct SFilePlace {
  enum ELastLink { FollowLast, KeepLast };

  CFileHandle folder;  ///< good for the calls that end in "at", not for reading it
  QByteArray name;     ///< of a file in it, which need not exist; a folder may be "." or ".."
  /// Found on the way, and not followed: a symbolic link of somebody else in a sticky folder that
  /// all may write to, as the system's protection of such links has it (error EACCES).
  bool hasStrangersLink = false;

  /// Follows every link on the way, the last one only if told. 0, or the system's error.
  int find(const QString& fileName, ELastLink last);

  /// A name in the bytes of the system, with the search path that it may begin with, as Qt reads
  /// it.
  static QByteArray bytesOf(const QString& fileName);

  /// Whether both are one file, which need not exist.
  bool isSame(const SFilePlace& other) const;

 private:
  int enter(int from, const char* path);
  bool isStrangersLink(const struct stat& link) const;
};
