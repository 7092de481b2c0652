#pragma once

#include "ktoFramework_export.h"

#include <QString>
#include <QtGlobal>

/// A logfile: accepts lines of text by level. Levels are bit sets, and so is the mask that says
/// which are on. Applications may derive their own; whoever takes a logfile accepts a null one.
///
/// @snippet usage.cpp ICLogfile
class KTOFRAMEWORK_EXPORT ICLogfile {
 public:
  /// Where createLogfile() sends the lines: a text file, stderr, or the QLoggingCategory "kto".
  enum ELogType { LogFile = 0, LogConsole = 1, LogQt = 2 };

  static constexpr quint32 kLevelErrors = 4;               ///< errors that are reported
  static constexpr quint32 kLevelDetail = 8;               ///< what is done in detail
  static constexpr quint32 kLevelSaving = 12;              ///< what is saved: on with either bit
  static constexpr quint32 kLevelReadErrors = 0x40000000;  ///< what was found wrong while reading

  ICLogfile(const ICLogfile&) = delete;
  ICLogfile& operator=(const ICLogfile&) = delete;
  virtual ~ICLogfile();

  /// A new logfile, never null, owned by the caller. `name` is the path of the text file, which is
  /// opened, in append mode, at the first accepted line; a file that cannot be opened makes the
  /// logfile inactive. An empty name or an unknown type gives a logfile that stays silent.
  static ICLogfile* createLogfile(int type, const QString& name, quint32 levelMask);

  /// True when a sink exists and the mask is not 0.
  virtual bool isActive() const = 0;
  /// True when any bit of `level` is in the mask.
  virtual bool isLevelEnabled(quint32 level) const = 0;
  virtual quint32 levelMask() const = 0;
  virtual void setLevelMask(quint32 levelMask) = 0;
  /// The prefix precedes every text, separated by a colon and a blank; initially empty.
  virtual QString prefix() const = 0;
  virtual void setPrefix(const QString& prefix) = 0;
  /// Writes one line, or nothing when the level is off. Thread-safe. Line breaks and other control
  /// characters within the text are written as escapes like "\n", so that one call is one line.
  virtual void write(quint32 level, const QString& text) = 0;

 protected:
  ICLogfile() = default;
};
