#pragma once

#include "CCompensationHeader.h"
#include "CCompensationPoint.h"
#include "CXMLMetaData.h"
#include "ktoParameter_export.h"

#include <QByteArray>
#include <QList>
#include <QString>

class ICLogfile;

/// A compensation file: the table that corrects one axis, with the range in which it is valid, read
/// from and written to XML with the root element "C_COMPENSATION_FORMAT".
///
/// Editing checks nothing but indices; the check operations tell what is wrong with a table and
/// change nothing. They compare the texts as floating point numbers, one that is not a number
/// counts as 0. Versions are texts such as "1.5". A file loads when it has none, the expected text,
/// or the same main number; the sub-number never matters. An object is used from one thread at a
/// time.
///
/// @snippet usage.cpp ICCompensationFile
class KTOPARAMETER_EXPORT ICCompensationFile {
 public:
  /// Result of every load and save; errorMsg() says more. Only a buffer that cannot be opened gives
  /// other numbers: 1 when it cannot be parsed, 2 for another root element, 3 for the version.
  enum EResult {
    Ok = 0,
    ContentError = 1,  ///< a required element is missing, or an element cannot be made
    OpenError = 2,     ///< cannot be opened or parsed, or has another root element
    VersionError = 4,  ///< is not compatible with the expected version
    SaveError = 5,     ///< cannot be written
  };

  /// The two forms of a point in the file.
  enum EDataPointFormat {
    CurrentFormat = 0,  ///< the adjustment is in "ADJUST"
    OldFormat = 1,      ///< the adjustment is in "ERROR"
    NoFormat = 2,       ///< nothing was detected
  };

  /// Result of checkAll().
  enum ECheckResult { CheckOk = 0, BadHeader = 1, BadPoints = 2 };

  static constexpr int kMaxPoints = 511;  ///< no point beyond these is ever good

  /// A new, empty object, owned by the caller. The logfile may be null; it is not owned and must
  /// live longer than the object.
  static ICCompensationFile* create(ICLogfile* logfile);
  virtual ~ICCompensationFile();

  /// Why the last load or save failed; empty when it did not.
  virtual QString errorMsg() const = 0;
  /// No points, 0.0 in the header, no meta data, no message, no detected format, and the current
  /// format for saving.
  virtual void clear() = 0;

  /// A load begins with all that clear() does but for the format for saving. When an element is
  /// missing, what was read before it stays. The old format is posted to the message board as a
  /// debug warning.
  virtual int load(const QString& fileName, const QString& version) = 0;
  virtual int loadFromBuffer(const QByteArray& buffer, const QString& version) = 0;

  /// Writes in UTF-16, with that version. Empty meta data is filled with the user's name (the
  /// environment variable "USER") and today's date first, and stays filled. On failure the old
  /// file, or the buffer, stays as it was.
  virtual int save(const QString& fileName, const QString& version) = 0;
  virtual int saveToBuffer(QByteArray& buffer, const QString& version) = 0;

  virtual CXMLMetaData metaData() const = 0;
  virtual void setMetaData(const CXMLMetaData& metaData) = 0;

  virtual CCompensationHeader header() const = 0;
  virtual void setHeader(const CCompensationHeader& header) = 0;

  // The points, in table order. An index outside 0 to count() - 1 gives false, and changes nothing.
  virtual int count() const = 0;
  virtual int size() const = 0;  ///< the same as count()
  virtual QList<CCompensationPoint> allPoints() const = 0;
  virtual void setAllPoints(const QList<CCompensationPoint>& points) = 0;
  virtual CCompensationPoint point(int index) const = 0;  ///< 0.0 and 0.0 when there is none
  virtual bool setPoint(int index, const CCompensationPoint& point) = 0;
  virtual void appendPoint(const CCompensationPoint& point) = 0;
  /// Inserts before the point at the index; at the end there is none, appendPoint() does that.
  virtual bool insertPoint(int index, const CCompensationPoint& point) = 0;
  virtual bool removePoint(int index) = 0;

  /// True when the minimum is below the maximum.
  virtual bool checkHeader() const = 0;
  /// True when there is such a point among the first kMaxPoints, it lies within the header's range
  /// and strictly between its two neighbours.
  virtual bool checkPoint(int index) const = 0;
  /// Checks the table as a whole: a point is bad beyond the first kMaxPoints, outside the header's
  /// range, and when it is not above all points before it. So all smaller points after one that is
  /// too large are bad, which checkPoint() does not say. The list, when given, becomes the indices
  /// of the bad ones, ascending. True when there are none.
  virtual bool checkAllPoints(QList<int>* badIndices) const = 0;
  /// An ECheckResult: the header first, then the points.
  virtual int checkAll() const = 0;

  /// The format that the last load found, by the first point. A table without points counts as
  /// NoFormat.
  virtual EDataPointFormat detectedDataPointFormat() const = 0;
  /// The format of the next saves, whatever was loaded. Everything but CurrentFormat is the old
  /// one.
  virtual void setDataPointSaveFormat(EDataPointFormat format) = 0;

 protected:
  ICCompensationFile() = default;

 private:
  Q_DISABLE_COPY(ICCompensationFile)
};
