#pragma once

#include "ktoFramework_export.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFileDevice>
#include <QString>

/// Reads and replaces whole files so that nothing can be lost on the way.
class KTOFRAMEWORK_EXPORT CAtomicFile {
  Q_DECLARE_TR_FUNCTIONS(CAtomicFile)

 public:
  /// Largest file that is read or written, in bytes.
  static constexpr qint64 kMaxBytes = 512LL * 1024 * 1024;

  /// Reads a regular file. On failure error is the reason, without the file's name.
  static bool read(const QString& fileName, QByteArray& content, QString& error);

  /// Replaces a file by the content, or creates it: the content goes to a temporary file in the
  /// same folder, to the disk, and only then takes the file's name. A symbolic link stays one, its
  /// target is replaced; what is neither missing nor a regular file is refused. Without permissions
  /// those of the replaced file stay. On failure error is the reason and the file is what it was;
  /// only when the folder itself could not be brought to the disk may it be the new one.
  static bool write(const QString& fileName, const QByteArray& content,
                    QFileDevice::Permissions permissions, QString& error);

  /// Keeps a regular file, before it is replaced, under the name that is its own and ".bak", or
  /// ".bak.1", ".bak.2" and so on when there is one already: no file is ever overwritten. The
  /// content stays readable under both names until the file is replaced; of a symbolic link, that
  /// of its target is kept beside the link. On success backupName is the new name; on failure error
  /// is the reason, without the file's name.
  static bool keepAsBackup(const QString& fileName, QString& backupName, QString& error);
};
