// Loads every hostile file of hostile.txt in a process of its own: from a path and from a buffer,
// with its outcome, its time and its memory.

#include "CAtomicFile.h"
#include "CDomDoc.h"
#include "TestFiles.h"
#include "Torture.h"

#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QtEndian>

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <ctime>

using namespace NTorture;

namespace {

enum EEncoding { Utf16Le, Utf16Be, Utf8, EncodingCount };
const std::array<const char*, EncodingCount> kEncodings{"UTF-16LE", "UTF-16BE", "UTF-8"};
constexpr char16_t kBytes = 0xF800;  // private units from here on are bytes

struct SFile {
  QString line;  ///< the beginning of that of the list
  QStringList cells;
  std::array<QString, EncodingCount> messages;
};

/// Encodes unit by unit, so that a text may hold what no text should.
QByteArray encode(const QString& text, EEncoding encoding) {
  QByteArray bytes;
  for (int i = 0; i < text.size(); ++i) {
    const ushort unit = text.at(i).unicode();
    const QString pair = text.mid(i, 2);
    const bool isPair = pair.size() == 2 && pair[0].isHighSurrogate() && pair[1].isLowSurrogate();
    if (unit >= kBytes && unit < kBytes + 0x100) {
      bytes += static_cast<char>(unit - kBytes);
    } else if (encoding != Utf8) {
      const ushort stored = encoding == Utf16Be ? qToBigEndian(unit) : qToLittleEndian(unit);
      bytes.append(reinterpret_cast<const char*>(&stored), sizeof stored);
    } else if (isPair || !text.at(i).isSurrogate()) {
      bytes += pair.left(isPair ? 2 : 1).toUtf8();
      i += isPair ? 1 : 0;
    } else {
      bytes.append(static_cast<char>(0xE0 | (unit >> 12)));
      bytes.append(static_cast<char>(0x80 | ((unit >> 6) & 0x3F)));
      bytes.append(static_cast<char>(0x80 | (unit & 0x3F)));
    }
  }
  return bytes;
}

QByteArray flood(const QStringList& cells, EEncoding encoding) {
  static const QRegularExpression repeated("^([0-9]+)\\*(.*)$",
                                           QRegularExpression::DotMatchesEverythingOption);
  QByteArray bytes;
  for (const QString& cell : cells) {
    const QRegularExpressionMatch match = repeated.match(cell);
    const int times = match.hasMatch() ? match.captured(1).toInt() : 1;
    const QString piece = match.hasMatch() ? match.captured(2) : cell;
    if (piece.contains("%1"))
      for (int i = 0; i < times; ++i) bytes += encode(piece.arg(i), encoding);
    else
      bytes += encode(piece, encoding).repeated(times);
  }
  return bytes;
}

QString unescape(QString text) {
  static const QRegularExpression escape("\\\\(u([0-9a-f]{4})|x([0-9a-f]{2})|n|r)");
  QRegularExpressionMatch match;
  for (int from = 0; (from = text.indexOf(escape, from, &match)) >= 0; ++from) {
    const QString unit = match.captured(2);
    const QString byte = match.captured(3);
    const int code = !unit.isEmpty()   ? unit.toInt(nullptr, 16)
                     : !byte.isEmpty() ? kBytes + byte.toInt(nullptr, 16)
                                       : (match.captured(1) == "n" ? '\n' : '\r');
    text.replace(from, match.capturedLength(), QChar(code));
  }
  return text;
}

/// The files of one line.
QList<QStringList> filesOf(const QString& kind, const QStringList& cells) {
  if (kind == "flood") return {cells};
  QStringList forbidden{QChar(0xD800), QChar(0xDFFF), QString(QChar(0xDC00)) + QChar(0xD800)};
  if (kind == "control") forbidden = QStringList{QChar(0xFFFE), QChar(0xFFFF)};
  for (int c = 0; c < 0x20 && kind == "control"; ++c)
    if (c != '\t' && c != '\n' && c != '\r') forbidden += QChar(c);
  QList<QStringList> files;
  for (const QString& cell : cells) {
    if (kind == "whole") files += QStringList(cell);
    if (kind == "inside" || kind == "value") files += QStringList("<r>\n" + cell + "</r>");
    if (kind == "value") files += QStringList("<r>\n<a b='" + cell + "'/></r>");
    if (kind != "control" && kind != "half") continue;
    for (const QString& text : qAsConst(forbidden))
      files += QStringList(QString(cell).replace("%1", text));
  }
  return files;
}

/// All files of the list.
QList<SFile> allFiles() {
  const QString list = QString::fromUtf8(NTestFiles::read(KTO_HOSTILE_FILES));
  QList<SFile> files;
  SFile file;
  for (const QString& line : list.split('\n', Qt::SkipEmptyParts)) {
    const QString kind = line.section(' ', 0, 0);
    const QString rest = line.section(' ', 1);
    const QString message = rest == "read" ? QString() : rest;
    file.line = line.left(80);
    if (kind == "message" || kind == "utf16" || kind == "le") file.messages[Utf16Le] = message;
    if (kind == "message" || kind == "utf16" || kind == "be") file.messages[Utf16Be] = message;
    if (kind == "message" || kind == "utf8") file.messages[Utf8] = message;
    for (const QStringList& cells : filesOf(kind, unescape(rest).split("  "))) {
      file.cells = cells;
      files += file;
    }
  }
  return files;
}

/// What a process found out, in memory that it shares with this one.
struct SOutcome {
  char fromBuffer[400];  ///< the message of the refusal, or nothing
  char fromPath[400];
  double seconds;  ///< the longer of the two loads
  double megabytes;
};

/// Reads the bytes, or those of a file.
void load(const QString& fileName, QByteArray bytes, SOutcome& outcome, char* message) {
  CDomDoc document;
  QString error;
  const std::clock_t start = std::clock();
  if (fileName.isEmpty() || CAtomicFile::read(fileName, bytes, error))
    document.setContent(bytes, error);
  const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  outcome.seconds = std::max(outcome.seconds, seconds);
  qstrncpy(message, qPrintable(error), sizeof outcome.fromPath);
}

/// False when the process did not come to its end.
bool runApart(const QStringList& cells, EEncoding encoding, const QString& fileName,
              SOutcome& outcome) {
  outcome = SOutcome();
  const pid_t child = ::fork();
  if (child == 0) {
    QByteArray bytes = flood(cells, encoding);
    NTestFiles::write(fileName, bytes);
    load(QString(), bytes, outcome, outcome.fromBuffer);
    bytes.clear();
    load(fileName, bytes, outcome, outcome.fromPath);
    ::_exit(EXIT_SUCCESS);
  }
  int status = 0;
  struct rusage usage {};
  const bool waited = ::wait4(child, &status, 0, &usage) == child;
  outcome.megabytes = static_cast<double>(usage.ru_maxrss) / 1024;
  return waited && WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
}

/// How many times the processor time of a quiet machine the same work takes now.
double slowness() {
  constexpr double kQuietSeconds = 0.18;
  const QByteArray tags = "<r>" + QByteArray("<a/>").repeated(1000000) + "</r>";
  const std::clock_t start = std::clock();
  for (QXmlStreamReader reader(tags); !reader.atEnd();) reader.readNext();
  const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  return std::max(1.0, seconds / kQuietSeconds);
}

}  // namespace

int main(int argc, char** argv) {
  const SOptions options(argc, argv);
  // What is quadratic in a file takes longer than ten seconds, also on a busy machine.
  const double maxSeconds = options.pick(10, 1);
  constexpr double kMaxMegabytes = 600;
  const CFolder folder;
  const QString file = folder.filePath("file");
  auto* outcome = static_cast<SOutcome*>(
      ::mmap(nullptr, sizeof(SOutcome), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  CTally tally("hostile files");
  double longest = 0;
  double largest = 0;
  const QList<SFile> files = allFiles();
  for (const SFile& hostile : files) {
    for (const EEncoding encoding : {Utf16Le, Utf16Be, Utf8}) {
      const QString name = QString("%1 in %2").arg(hostile.line, kEncodings[encoding]);
      const QString& expected = hostile.messages[encoding];
      bool ended = true;
      // A machine that others use needs more processor time for the same load, so what took too
      // long is measured again, and may take as much longer as another reader does at the same
      // time.
      bool isInTime = false;
      for (int tries = 0; ended && !isInTime && tries < 5; ++tries) {
        const double mayTake = maxSeconds * (tries == 0 ? 1 : slowness());
        ended = runApart(hostile.cells, encoding, file, *outcome);
        isInTime = outcome->seconds < mayTake;
      }
      const bool inLimits = isInTime && outcome->megabytes < kMaxMegabytes;
      tally.check(ended, name + ": crashed");
      tally.check(outcome->fromBuffer == expected,
                  name + ": " + outcome->fromBuffer + " | expected " + expected);
      tally.check(outcome->fromPath == expected, name + ": from a path: " + outcome->fromPath);
      tally.check(!options.hasLimits || inLimits,
                  name + QString(": %1 s, %2 MB").arg(outcome->seconds).arg(outcome->megabytes));
      longest = std::max(longest, outcome->seconds);
      largest = std::max(largest, outcome->megabytes);
    }
  }
  return tally.finish(QString("%1 files in three encodings, from path and buffer; the longest load "
                              "took %2 s, the largest process %3 MB")
                          .arg(files.size())
                          .arg(longest, 0, 'f', 2)
                          .arg(largest, 0, 'f', 0));
}
