#pragma once

#include "CDomDoc.h"
#include "CXMLMetaData.h"
#include "ktoFramework_export.h"

#include <QCoreApplication>
#include <QFileDevice>
#include <QLatin1String>
#include <QPair>

#include <optional>

class ICLogfile;

/// What a file held, for the question whether it holds the same now: its size and a hash, which
/// means nothing to another process.
using CContentId = QPair<int, size_t>;

/// An XML file of the tool chain: a root tag, a version attribute, a "Head" with meta data, and
/// what the derived file makes of the rest. Reads and writes files and buffers.
class KTOFRAMEWORK_EXPORT CXmlAbstractLumoFile {
  Q_DECLARE_TR_FUNCTIONS(CXmlAbstractLumoFile)

 public:
  /// Result of opening a buffer.
  enum EOpenResult { Opened = 0, ParseFailed = 1, WrongRootTag = 2, VersionRejected = 3 };

  /// versionAttribute: how the root's version attribute is spelled. The logfile may be null and is
  /// not owned.
  CXmlAbstractLumoFile(ICLogfile* logfile, QLatin1String versionAttribute);
  virtual ~CXmlAbstractLumoFile();
  CXmlAbstractLumoFile(const CXmlAbstractLumoFile&) = delete;
  CXmlAbstractLumoFile& operator=(const CXmlAbstractLumoFile&) = delete;

  /// Reads a file, checks its root tag and version. On failure error names the file and, where
  /// there is one, the line; openError() is the same without the file.
  virtual bool open(const QString& fileName, const QString& rootTag, const QString& version,
                    QString& error);
  /// The same for a buffer; 0 (Opened) on success.
  virtual int open(const QByteArray& buffer, const QString& rootTag, const QString& version,
                   QString& error);

  /// Permissions that a save gives the file; none (the default) keeps those of the file that is
  /// replaced. Owner, group, access control list and "user" attributes are kept in either case, as
  /// CAtomicFile::write() says.
  virtual QFileDevice::Permissions permissions() const { return mPermissions; }
  virtual void setPermissions(QFileDevice::Permissions permissions) { mPermissions = permissions; }

  /// Writes the document in UTF-16, replacing the file in one step: afterwards there is either the
  /// old file or the new one. On failure error says why. An owner, group, access control list or
  /// attribute that could not be kept is told as a warning on the message board and in the logfile.
  virtual bool save(const QString& fileName, QString& error);
  /// The same in "UTF-16" or "UTF-8".
  virtual bool save(const QString& fileName, const QString& encoding, QString& error);
  virtual bool save(QByteArray& buffer, QString& error);

  /// The content of a file, and that of the last one which this object opened or saved, if any.
  static CContentId contentIdOf(const QByteArray& bytes);
  std::optional<CContentId> contentId() const { return mContentId; }

  /// The document's "Head"; empty texts and a null date when it is missing.
  virtual CXMLMetaData metaData() const;
  /// Writes the document's "Head"; false when there is no document.
  virtual bool setMetaData(const CXMLMetaData& metaData);

  /// The first child of that name, appended when missing; null below a null parent.
  virtual CDomElement domElement(QLatin1String tag, CDomElement parent);
  /// The first child of that name, or null.
  virtual CDomElement existingDomElement(QLatin1String tag, const CDomElement& parent) const;

  /// Asked after the root tag has matched, when the versions differ as texts; a missing attribute
  /// is an empty text. False refuses the file.
  virtual bool handleVersionError(const QString& fileVersion, const QString& expectedVersion) = 0;

  /// Starts a document with a root element and its version.
  void createNewDocument(const QString& rootTag, const QString& version);
  CDomDoc& domDocument() { return mDocument; }
  const CDomDoc& domDocument() const { return mDocument; }

  ICLogfile* logfile() const { return mLogfile; }
  /// Posts a critical message for the user and writes it to the logfile; a quiet file does neither,
  /// and leaves the reporting to whoever uses it.
  void setMessageBoardCritical(const QString& text) const;
  void setQuiet(bool quiet) { mIsQuiet = quiet; }

 protected:
  /// Why the last open failed, without the file's name.
  QString openError() const { return mOpenError; }
  /// Whether it was handleVersionError() that refused the file.
  bool isVersionRejected() const { return mOpenResult == VersionRejected; }
  /// The rule of files that may lack their version: none, or the same main number.
  static bool isCompatible(const QString& fileVersion, const QString& expectedVersion);

 private:
  EOpenResult openBytes(const QByteArray& bytes, const QString& rootTag, const QString& version);

  ICLogfile* mLogfile;
  const QLatin1String mVersionAttribute;
  CDomDoc mDocument;
  QFileDevice::Permissions mPermissions;
  QString mOpenError;
  std::optional<CContentId> mContentId;
  EOpenResult mOpenResult = Opened;
  bool mIsQuiet = false;
};
