#pragma once

#include "ktoFramework_export.h"

#include <QStringList>

#include <vector>

class CFileHandle;

/// Keeps everybody else who takes this lock out of the folder of a file, so that nobody's edit is
/// lost between a load and the save that follows. The folder is that where a save puts the file:
/// of a symbolic link, the folder of its target. No file is made for it.
///
/// The lock is advisory: it stops nobody who does not take it. Those who only read need no lock,
/// since a save replaces a file in one step. Of other programs, ktoparam takes it with every
/// command that changes a file. On a network file system it mostly holds within one machine only.
/// Whoever may read the folder can take it.
///
/// The object owns the lock, which ends with it or with its process, however that ends; a process
/// that is forked meanwhile and runs no other program keeps it until its own end. An object is used
/// by one thread at a time. Two objects shut each other out, even in one thread, so a thread
/// locks all that it needs with one.
///
/// @snippet usage.cpp CFolderLock
class KTOFRAMEWORK_EXPORT CFolderLock {
 public:
  enum EResult {
    Locked,       ///< all folders are
    Busy,         ///< none is: until the time was up, somebody else had one of them
    NotPossible,  ///< one cannot be reached or read, or is where there are no locks; the rest are
  };

  CFolderLock();
  ~CFolderLock();

  /// Locks the folders of these files, which need not exist, in place of those that were locked
  /// before. Waits up to so many milliseconds for others; 0 does not wait. Of all who wait for
  /// several folders, one can always go on.
  EResult lock(const QStringList& fileNames, int milliseconds);
  void unlock();

 private:
  Q_DISABLE_COPY(CFolderLock)

  std::vector<CFileHandle> mFolders;
};
