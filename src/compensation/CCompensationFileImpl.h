#pragma once

#include "CCompensationTable.h"
#include "CXmlAbstractLumoFile.h"

/// The compensation file: turns the document into the table and back.
class CCompensationFileImpl : public CCompensationTable, public CXmlAbstractLumoFile {
  Q_DECLARE_TR_FUNCTIONS(CCompensationFileImpl)

 public:
  explicit CCompensationFileImpl(ICLogfile* logfile);

  QString errorMsg() const override { return mErrorMsg; }
  void clear() override;
  int load(const QString& fileName, const QString& version) override;
  int loadFromBuffer(const QByteArray& buffer, const QString& version) override;
  int save(const QString& fileName, const QString& version) override;
  int saveToBuffer(QByteArray& buffer, const QString& version) override;

  using CCompensationTable::metaData;
  using CCompensationTable::setMetaData;

  EDataPointFormat detectedDataPointFormat() const override { return mDetectedFormat; }
  void setDataPointSaveFormat(EDataPointFormat format) override { mSaveFormat = format; }
  bool handleVersionError(const QString& fileVersion, const QString& expectedVersion) override {
    return isCompatible(fileVersion, expectedVersion);
  }

 private:
  using CXmlAbstractLumoFile::save;

  static QLatin1String adjustmentTag(EDataPointFormat format);

  void startLoad();
  int readDocument(int openResult);
  int readCompensationHeader();
  int readCompensationPoints();
  static CCompensationPoint readPoint(const CDomElement& element, EDataPointFormat format);
  int notFound(QLatin1String tag);

  int setDataToDocument(const QString& version);
  void fillMetaData();
  int writeCompensationHeader();
  int writeCompensationPoints();
  int notWritten(QLatin1String tag);

  QString mErrorMsg;
  EDataPointFormat mDetectedFormat = NoFormat;
  EDataPointFormat mSaveFormat = CurrentFormat;
};
