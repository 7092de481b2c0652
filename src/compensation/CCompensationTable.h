#pragma once

#include "ICCompensationFile.h"

/// The table with its editing and checks: a compensation file without its XML. A class of its own,
/// since the base of XML files has a setMetaData() too, which one common class could not
/// override.
class CCompensationTable : public ICCompensationFile {
 public:
  void clear() override;

  CXMLMetaData metaData() const override { return mMetaData; }
  void setMetaData(const CXMLMetaData& metaData) override { mMetaData = metaData; }
  CCompensationHeader header() const override { return mHeader; }
  void setHeader(const CCompensationHeader& header) override { mHeader = header; }

  int count() const override { return mPoints.size(); }
  int size() const override { return mPoints.size(); }
  QList<CCompensationPoint> allPoints() const override { return mPoints; }
  void setAllPoints(const QList<CCompensationPoint>& points) override { mPoints = points; }
  CCompensationPoint point(int index) const override { return mPoints.value(index); }
  bool setPoint(int index, const CCompensationPoint& point) override;
  void appendPoint(const CCompensationPoint& point) override { mPoints.append(point); }
  bool insertPoint(int index, const CCompensationPoint& point) override;
  bool removePoint(int index) override;

  bool checkHeader() const override;
  bool checkPoint(int index) const override;
  bool checkAllPoints(QList<int>* badIndices) const override;
  int checkAll() const override;

 private:
  bool hasPoint(int index) const { return index >= 0 && index < mPoints.size(); }
  double minimum() const { return mHeader.minimum().asF64(); }
  double maximum() const { return mHeader.maximum().asF64(); }
  double position(int index) const { return mPoints.at(index).position().asF64(); }

  CXMLMetaData mMetaData;
  CCompensationHeader mHeader;
  QList<CCompensationPoint> mPoints;
};
