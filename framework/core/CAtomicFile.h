#pragma once

#include "ktoFramework_export.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFileDevice>
#include <QString>

/// Reads and replaces whole files so that nothing is lost on the way. Names are resolved as the
/// system does it, so a file is written back to where it was read. On failure error is the reason,
/// without the file's name.
///
/// @snippet usage.cpp CAtomicFile
class KTOFRAMEWORK_EXPORT CAtomicFile {
  Q_DECLARE_TR_FUNCTIONS(CAtomicFile)

 public:
  /// Largest file that is read, in bytes.
  static constexpr qint64 kMaxBytes = 512LL * 1024 * 1024;

  /// Reads a regular file.
  static bool read(const QString& fileName, QByteArray& content, QString& error);

  /// Replaces a regular file by the content, or creates it. The content goes to a temporary file in
  /// the same folder and to the disk; only then does it take the name. Of a symbolic link, the
  /// target is replaced. The new file keeps owner, group, mode, access control list and "user"
  /// attributes; with permissions, it gets these instead of the old mode. What cannot be kept gives
  /// nobody else more rights than before, and notKept says what it is (empty otherwise). Hard links
  /// are parted: the other names keep the old content.
  ///
  /// A failed write leaves the old file, or none. There is one exception, which error then names:
  /// the folder could not be synced to the disk after the new file took its name.
  static bool write(const QString& fileName, const QByteArray& content,
                    QFileDevice::Permissions permissions, QString& error,
                    QString* notKept = nullptr);

  /// Backs up a regular file as NAME.bak, or NAME.bak.1, NAME.bak.2 and so on up to 9999; never
  /// overwrites. The backup is a second name of the file, or a copy where there can be none. Of a
  /// symbolic link, the target is backed up, beside the link. backupName is set on success.
  static bool keepAsBackup(const QString& fileName, QString& backupName, QString& error);

  /// Renames a file within a file system; fails when there is a file of the new name already.
  static bool renameToNew(const QString& fileName, const QString& newName, QString& error);

  /// Whether two names lead to one file, also when it does not exist yet.
  static bool isSameFile(const QString& fileName, const QString& otherName);

  /// Why no file can be read or written under this name: it is empty, or cannot be turned into the
  /// bytes of a file name and back without a change, so it could mean another file. Empty for any
  /// other name.
  static QString nameProblem(const QString& fileName);
};
