#pragma once

#include "ICSettingsTreeNode.h"
#include "ktoParameter_export.h"

#include <QByteArray>
#include <QString>

class ICLogfile;

/// A settings file: a free tree of groups and typed values, read from and written to XML with the
/// root element "C_SETTINGS_FORMAT".
///
/// Versions are texts such as "1.5". A file loads when it has none, the expected text, or the same
/// main number; the sub-number never matters. An object is used from one thread at a time.
///
/// @snippet usage.cpp ICSettingsFile
class KTOPARAMETER_EXPORT ICSettingsFile {
 public:
  /// Result of every load and save; errorMsg() says more.
  enum ESettingsError {
    NoError = 0,
    OpenError = 1,     ///< cannot be opened or parsed, or has another root element
    VersionError = 2,  ///< does not go with the expected version
    TypeError = 3,     ///< a value without a type, or of an unknown one
    ValueError = 4,    ///< a value, of another type than string, without a text
    SaveError = 5,     ///< cannot be written or could not be loaded again, or there is no tree
  };

  /// A new object without a tree, owned by the caller. The logfile is not owned and must live
  /// longer than the object; with a null one the object has a silent one of its own.
  static ICSettingsFile* create(ICLogfile* logfile);
  virtual ~ICSettingsFile();

  /// Why the last load or save failed; empty when it did not.
  virtual QString errorMsg() const = 0;
  /// Deletes the tree.
  virtual void clear() = 0;

  /// OpenError and VersionError leave the tree as it was. TypeError and ValueError end the reading:
  /// the new tree holds what precedes the faulty element, and the message is posted to the
  /// message board.
  virtual ESettingsError load(const QString& fileName, const QString& version) = 0;
  virtual ESettingsError loadFromBuffer(const QByteArray& buffer, const QString& version) = 0;

  /// Writes the tree in UTF-16, with that version. On SaveError the old file, or the buffer, stays
  /// as it was; among the reasons are texts and names that XML cannot hold, and a value of another
  /// type than string without a text.
  virtual ESettingsError save(const QString& fileName, const QString& version) = 0;
  virtual ESettingsError saveToBuffer(QByteArray& buffer, const QString& version) = 0;

  /// The root, a group named "C_SETTINGS_FORMAT", whose children are the top elements of the file
  /// in their order; null before the first load and after clear(). Owned by this object.
  virtual ICSettingsTreeNode* root() = 0;

 protected:
  ICSettingsFile() = default;

 private:
  Q_DISABLE_COPY(ICSettingsFile)
};
