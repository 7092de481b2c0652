#pragma once

#include "CCompensationFindings.h"
#include "ICCompensationFile.h"

class COutput;
class QJsonArray;
class QJsonObject;

/// A compensation table and what is wrong with it, shown as text and as JSON. Points are numbered
/// from 1.
class CCompensationReport {
 public:
  /// The file must live as long as this.
  explicit CCompensationReport(const ICCompensationFile& file) : mFile(file), mFindings(file) {}

  /// "current" or "old"; empty for a table without points.
  static QString formatName(ICCompensationFile::EDataPointFormat format);

  bool isGood() const { return mFindings.isEmpty(); }

  /// The range, its problems and how many points there are.
  void print(COutput& out) const;
  void addTo(QJsonObject& object) const;

  /// Which points are listed.
  enum EPoints { AllPoints, WrongPoints };

  /// A table of points. Among all of them, a "!" marks the wrong ones.
  void printPoints(EPoints which, COutput& out) const;
  QJsonArray pointsJson(EPoints which) const;

 private:
  QString countText() const;
  QList<int> indices(EPoints which) const;

  const ICCompensationFile& mFile;
  const CCompensationFindings mFindings;
};
