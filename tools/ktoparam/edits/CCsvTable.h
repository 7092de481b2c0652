#pragma once

#include "CAssignments.h"

#include <QLatin1String>
#include <QString>
#include <QVector>

#include <map>

/// The headings that say whose value it is.
namespace NValueColumns {

inline const QLatin1String kHardwareId("hardwareId");
inline const QLatin1String kSubDevice("subDevice");
inline const QLatin1String kName("name");
inline const QLatin1String kValue("value");

}  // namespace NValueColumns

/// A file of values as "export --format csv" writes it and a spreadsheet saves it: the rows as new
/// values for a value file. The columns are found by their headings. Whatever is wrong is reported
/// with its line.
class CCsvTable {
 public:
  CCsvTable(const QString& fileName, COutput& out) : mFileName(fileName), mOut(out) {}

  /// False when the file cannot be read as such a table.
  bool load();
  /// Reads the rows, those of one hardware id alone unless it is empty. False when some are wrong;
  /// the others are read then.
  bool readRows(const CLoadedFile& destination, const QString& onlyId);

  const QVector<SAssignment>& rows() const { return mRows; }
  /// The number of those for other hardware ids.
  int skipped() const { return mSkipped; }

 private:
  bool refuse(const QString& problem, int line) const;
  bool readText();
  bool findColumns(QChar separator);
  bool readRow(const QStringList& fields, int line);
  void learnNames(const CLoadedFile& destination);
  QString known(const QString& name) const;

  const QString mFileName;
  COutput& mOut;
  QString mText;
  QChar mSeparator;
  QStringList mHeadings;
  QString mOnlyId;
  QString mUsualId;                       // of rows that name none; empty when they must
  std::map<QString, QString> mFullNames;  // by how export shortens them, where it does
  QVector<SAssignment> mRows;
  int mSkipped = 0;
};
