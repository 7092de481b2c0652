#pragma once

#include "CXmlAbstractLumoFile.h"

#include <QDomElement>

class CParameterFileErrorHandler;

/// What definition and value files share: Head meta data with this library's defaults, the text of
/// the last error, and the question to the error handler when versions differ.
class CParamBaseFile : public CXmlAbstractLumoFile {
  Q_DECLARE_TR_FUNCTIONS(CParamBaseFile)

 public:
  /// Neither logfile nor handler is owned; both may be null.
  CParamBaseFile(ICLogfile* logfile, CParameterFileErrorHandler* handler);
  ~CParamBaseFile() override;

  /// Asks the handler to which this pointer points at the moment of the question, since a handler
  /// that is asked may put another one in its place. The pointer must outlive this object.
  void followErrorHandler(CParameterFileErrorHandler* const& handler) { mAskedHandler = &handler; }

  QString errorMsg() const { return mErrorMsg; }
  /// Line of the element that failed, 0 when a message tells the line itself or has none.
  int errorLine() const { return mErrorLine; }

  QString author() const { return mMetaData.author(); }
  QString comment() const { return mMetaData.comment(); }
  QDate date() const { return mMetaData.date(); }
  const CXMLMetaData& headMetaData() const { return mMetaData; }
  using CXmlAbstractLumoFile::setMetaData;
  /// The date becomes today's; it cannot be set.
  void setMetaData(const QString& author, const QString& comment);

  /// The text of a sub-element that a "Param" must have.
  bool existingParamSubElemetStr(const CDomElement& paramElement, QLatin1String tag,
                                 unsigned int id, QString& value);
  bool existingParamSubElemetStr(const QDomElement& paramElement, const QString& tag,
                                 unsigned int id, QString& value);

  bool handleVersionError(const QString& version, const QString& otherVersion) override;

 protected:
  /// For the derived files, which both decide by the handler's rule for value files.
  bool handleValueFileVersionError(const QString& version, const QString& otherVersion);
  CParameterFileErrorHandler& errorHandler() { return **mAskedHandler; }

  /// Opens the file and takes over its Head.
  bool openChecked(const QString& fileName, const QString& rootTag, const QString& version);
  /// Starts a document with the Head of this object's meta data.
  void createDocumentWithHead(const QString& rootTag, const QString& version);
  void prependToError(const QString& prefix) { mErrorMsg.prepend(prefix); }
  /// Stores a message; returns false.
  bool fail(const QString& message);
  /// Stores a message and the line of the element that it is about; returns false.
  bool failAt(const CDomElement& element, const QString& message);
  void logDetail(const QString& text) const;

  CXMLMetaData mMetaData;
  QString mErrorMsg;
  int mErrorLine = 0;

 private:
  const std::unique_ptr<CParameterFileErrorHandler> mDefaultHandler;
  CParameterFileErrorHandler* const mErrorHandler;
  CParameterFileErrorHandler* const* mAskedHandler = &mErrorHandler;
};
