#pragma once

#include "CLabels.h"
#include "CProgress.h"

#include <QFile>
#include <QString>

#include <cstdio>
#include <functional>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

class QJsonObject;

/// What was printed, to be printed later.
using CPrinted = std::vector<std::function<void()>>;

/// The two streams of the tool: results on one, messages on the other, both in UTF-8. Results are
/// no longer than 20 times the files that were read, and a few lines: what is longer is the work of
/// somebody who wants to fill a disk, and is cut off with a message and a failure.
///
/// Other threads than that which prints may use it as well, each with a CTurn.
class COutput {
 public:
  COutput(FILE* results, FILE* messages);

  enum EStyle { Bold = 1, Red = 31, Yellow = 33 };  // as terminals number them
  /// Part of a result, unchanged unless results go to a terminal whose user wants colour.
  QString styled(const QString& text, EStyle style) const;
  /// Part of a result that a program reads as it is; a terminal gets escapes.
  QString exact(const QString& text) const;

  /// How wide results may be to be read well: as the terminal, or 80.
  int columns() const { return mColumns; }

  /// What is being done meanwhile, as CProgress shows it.
  void reading(const QString& fileName, qint64 bytes);
  void doing(const QString& text);

  /// How names and the like are written.
  const CLabels& labels() const { return mLabels; }

  void line(const QString& text);
  void json(const QJsonObject& object);

  /// "ktoparam: text"; control characters become escapes, so that one message is one line, and only
  /// the beginning and the end of a very long one are shown.
  void message(const QString& text);
  /// "ktoparam: file: text", with a line number when there is one.
  void message(const QString& file, const QString& text, int line = 0);

  /// Keeps what its thread prints, until that is printed in its turn by print().
  class CTurn {
   public:
    explicit CTurn(COutput& out);
    ~CTurn();
    Q_DISABLE_COPY(CTurn)
    /// What was printed until now.
    CPrinted take();

   private:
    COutput& mOut;
  };
  static void print(const CPrinted& printed);

  /// Results that are cut off are no failure; their last line tells it.
  void mayBeCut() { mMayBeCut = true; }

  /// To be called once, at the end: false, with a message, when results could not be written, or
  /// not all of them.
  bool finish();

 private:
  /// Prints, unless the thread has to wait for its turn.
  void inTurn(std::function<void()> printing);
  void write(const QByteArray& bytes);
  void writeJson(const QJsonObject& object);
  void writeMessage(const QString& text);
  /// How many bytes may still be written.
  qint64 space() const;

  QFile mResults;
  QFile mMessages;
  bool mIsTerminal;
  bool mHasColour;
  int mColumns;
  CProgress mProgress;
  CLabels mLabels;
  qint64 mWritten = 0;
  bool mIsCut = false;
  bool mMayBeCut = false;
  bool mFailed = false;
  std::mutex mMutex;  // of the following
  std::map<std::thread::id, CPrinted> mKept;
};
