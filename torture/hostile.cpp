// Loads every hostile file in a process of its own: from a path and from a buffer, with its
// outcome, its time and its memory.

#include "CXmlAbstractLumoFile.h"
#include "HostileCases.h"
#include "Torture.h"

#include <QRegularExpression>

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>

using namespace NTorture;
using namespace NHostile;

namespace {

class CAnyFile : public CXmlAbstractLumoFile {
 public:
  CAnyFile() : CXmlAbstractLumoFile(nullptr, QLatin1String("version")) {}
  bool handleVersionError(const QString&, const QString&) override { return true; }
};

/// What a process found out, in memory that it shares with this one.
struct SOutcome {
  char fromBuffer[400];  ///< the message of the refusal, or nothing
  char fromPath[400];
  double seconds;  ///< the longer of the two loads
  double megabytes;
};

struct SWorst {
  double value = 0;
  QString name;

  void update(double newValue, const QString& newName) {
    if (newValue > value) *this = {newValue, newName};
  }
};

double cpuSeconds() {
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

template <class Source>
void load(const Source& source, SOutcome& outcome, char* message) {
  CAnyFile file;
  QString error;
  const double start = cpuSeconds();
  file.open(source, QString(), QString(), error);
  outcome.seconds = std::max(outcome.seconds, cpuSeconds() - start);
  error.remove(QRegularExpression("^File \"[^\"]*\": "));
  // The root tag, which is asked last, is not looked at here.
  if (!error.startsWith("Line ") || !error.contains(": the root element is <"))
    qstrncpy(message, qPrintable(error), sizeof outcome.fromPath);
}

void runCase(const SCase& hostile, EEncoding encoding, const QString& fileName, SOutcome& outcome) {
  {
    const QByteArray bytes = hostile.make(encoding);
    writeFile(fileName, bytes);
    load(bytes, outcome, outcome.fromBuffer);
  }
  load(fileName, outcome, outcome.fromPath);
}

/// False when the process did not come to its end.
bool runApart(const SCase& hostile, EEncoding encoding, const QString& fileName,
              SOutcome& outcome) {
  const pid_t child = ::fork();
  if (child == 0) {
    runCase(hostile, encoding, fileName, outcome);
    ::_exit(EXIT_SUCCESS);
  }
  int status = 0;
  struct rusage usage {};
  const bool waited = ::wait4(child, &status, 0, &usage) == child;
  outcome.megabytes = static_cast<double>(usage.ru_maxrss) / 1024;
  return waited && WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
  const SOptions options(argc, argv);
  // Others may use the machine; what is quadratic in a file takes longer than ten seconds.
  const double maxSeconds = options.pick(10, 1);
  constexpr double kMaxMegabytes = 600;
  const char* const names[] = {"UTF-16LE", "UTF-16BE", "UTF-8"};
  const CFolder folder;
  const std::vector<SCase> cases = allCases();
  auto* outcome = static_cast<SOutcome*>(
      ::mmap(nullptr, sizeof(SOutcome), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  CTally tally("hostile files");
  SWorst longest;
  SWorst largest;
  for (const SCase& hostile : cases) {
    for (const EEncoding encoding : {Utf16Le, Utf16Be, Utf8}) {
      const QString name = QString("%1 in %2").arg(hostile.name.left(80), names[encoding]);
      const QString expected = encoding == Utf8 ? hostile.utf8Message : hostile.utf16Message;
      *outcome = SOutcome();
      const bool ended = runApart(hostile, encoding, folder.path("file"), *outcome);
      const bool inLimits = outcome->seconds < maxSeconds && outcome->megabytes < kMaxMegabytes;
      tally.check(ended, name + ": crashed");
      tally.check(outcome->fromBuffer == expected,
                  name + ": " + outcome->fromBuffer + " | expected " + expected);
      tally.check(outcome->fromPath == expected, name + ": from a path: " + outcome->fromPath);
      tally.check(!options.hasLimits || inLimits,
                  name + QString(": %1 s, %2 MB").arg(outcome->seconds).arg(outcome->megabytes));
      longest.update(outcome->seconds, name);
      largest.update(outcome->megabytes, name);
    }
  }
  return tally.finish(
      QString("%1 files in three encodings, from path and buffer; the longest load took "
              "%2 s (%3), the largest process %4 MB (%5)")
          .arg(cases.size())
          .arg(longest.value, 0, 'f', 2)
          .arg(longest.name)
          .arg(largest.value, 0, 'f', 0)
          .arg(largest.name));
}
