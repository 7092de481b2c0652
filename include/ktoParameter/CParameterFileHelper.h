#pragma once

#include "CParamDefItem.h"
#include "CParamFileElement.h"
#include "CParamVal.h"
#include "NktoGlobal.h"
#include "SFileBeginning.h"
#include "ktoParameter_export.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

class CDeviceElement;
class CParameterFileMotorReaderThread;
class ICLogfile;

/// Services for parameter files: file types, comments, versions, when two values are equal, and
/// the names of motors. All static ones may be called from any thread.
///
/// A file of motors is a value file of type FILE_TYPE_MOTOR_PARAMETERS, version 1, whose hardware
/// ids are the names of the motors. A file that cannot be read contributes no names; the reason is
/// in the logfile, and nothing is posted to the message board.
///
/// An object reads motor names in the background, on a thread of its own. It is itself used from
/// the one thread that it lives in, whose event loop delivers the signals.
///
/// @snippet usage.cpp CParameterFileHelper
class KTOPARAMETER_EXPORT CParameterFileHelper : public QObject {
  Q_OBJECT

 public:
  /// The name of each file type, which is the root tag of its files.
  static const QHash<NktoGlobal::EParamFileType, QString> mFileTypeStrHash;

  static QString fileTypeToStr(NktoGlobal::EParamFileType type);  ///< empty for an unknown type
  /// The type whose name occurs in the text, e.g. in the line with the root tag; of several the one
  /// that comes first; -1 when there is none.
  static NktoGlobal::EParamFileType fileTypeFromStr(const QString& text);

  /// The type by the root tag, which must be at the very start of one of the first three lines
  /// (and within the first MiB); -1 when it does not, when the tag names no type, or when the file
  /// cannot be read. A file that is not detected may well be one that loads: readBeginning() asks
  /// the parser.
  static NktoGlobal::EParamFileType detectFileType(const QByteArray& data);
  static NktoGlobal::EParamFileType detectFileType(const QString& fileName);

  /// Root tag, version and comment, found as a load finds them: in every encoding and wherever the
  /// tag is. Of a file no more is read than that takes, as a rule.
  static SFileBeginning readBeginning(const QByteArray& data);
  static SFileBeginning readBeginning(const QString& fileName);

  /// The comment in the Head of an XML file; what follows the Head is not looked at. Empty when
  /// there is none or the data is damaged before.
  static QString comment(const QByteArray& data);
  /// The revision number in the version attribute of an XML file's root, as CStr::stringToRevision
  /// gives it; 0 when there is none or it is not a revision. What follows is not looked at.
  static quint32 fileVersion(const QByteArray& data);

  /// True when the values are equal under the definition: as 64-bit numbers for an unsigned type,
  /// where a text that is not a number counts as 0, and as exact texts for all others.
  /// CParamValueRules::areEqual() compares without such surprises.
  static bool compareValues(const CParamVal& a, const CParamVal& b, const CParamDefItem& def);

  /// The names of the motors in a file, ascending. The logfile may be null and is not owned.
  static QStringList readMotorNames(const QString& fileName, ICLogfile* logfile);
  /// Each motor's name with the file that it is from: the last file when there are several.
  static QMap<QString, QString> readMotorNames(const QStringList& fileNames, ICLogfile* logfile);
  /// The same for the value files of a project, with the project path in their names.
  static QMap<QString, QString> readMotorNames(const QList<CParamFileElement>& files,
                                               ICLogfile* logfile);

  explicit CParameterFileHelper(QObject* parent = nullptr);
  /// The logfile may be null, is not owned and must outlive the object. A reading in the background
  /// writes to it from its own thread.
  CParameterFileHelper(ICLogfile* logfile, QObject* parent);
  /// Waits until a reading that has begun is done.
  ~CParameterFileHelper() override;

  // As the static ones, with the logfile of this object.
  QStringList readMotorNames(const QString& fileName) const;
  QMap<QString, QString> readMotorNames(const QStringList& fileNames) const;

  /// Begins to read the motors of a device, or of the given files, in the background and returns;
  /// readMotorNamesFinisched() tells the end. The path is the project path of those files of the
  /// device that have none. False, and nothing happens, while a reading runs, for a device without
  /// files, an empty path or an empty list, and when the system grants no thread.
  ///
  /// Only the first reading takes its inputs: each later one reads the files of the first again,
  /// whatever it is given. For other files make another object.
  bool startReadMotorNames(const CDeviceElement& device, const QString& path);
  bool startReadMotorNames(const QList<CParamFileElement>& files);

  /// Each motor's name with the file that it is from, the last one when there are several, with the
  /// comment of that file. While a reading runs these are the names found so far; afterwards
  /// they stay until the next one begins.
  QMap<QString, CParamFileElement> motorNames() const;

 Q_SIGNALS:
  // Both are emitted, in this order, when a reading has ended, with what motorNames() gives at that
  // time. When the event loop delivers the end only after another reading was begun, these are the
  // names which that one has found so far; its own end is signalled too.
  void readMotorNamesFinisched(const QMap<QString, CParamFileElement>& motorNames);
  void readMotorNamesFinisched();

 public Q_SLOTS:
  /// Emits the signals. Connected to the end of a reading.
  void onReadMotorNamesFinisched();

 private:
  CParameterFileMotorReaderThread& createMotorReader();
  bool startMotorReader();
  static QHash<NktoGlobal::EParamFileType, QString> initFileTypeStrHash();

  ICLogfile* mLogfile;
  std::unique_ptr<CParameterFileMotorReaderThread> mMotorReader;
};
