#pragma once

#include <QString>
#include <QTemporaryDir>

#include <random>

/// What the torture programs share: options, random numbers, a folder and a tally of checks.
namespace NTorture {

/// The fast variant unless "--long" is given; "--no-limits" where sanitizers cost time and memory.
struct SOptions {
  bool isLong = false;
  bool hasLimits = true;

  SOptions(int argc, char** argv);
  int pick(int fast, int slow) const { return isLong ? slow : fast; }
};

/// The same numbers in every run.
class CRandom {
 public:
  explicit CRandom(unsigned seed) : mEngine(seed) {}
  int below(int end) { return static_cast<int>(mEngine() % static_cast<unsigned>(end)); }
  bool oneIn(int times) { return below(times) == 0; }

 private:
  std::mt19937 mEngine;
};

/// A folder that goes with the object, in memory where the system has such a place.
class CFolder {
 public:
  CFolder();
  QString path(const QString& name) const { return mFolder.filePath(name); }
  QString path() const { return mFolder.path(); }

 private:
  QTemporaryDir mFolder;
};

/// Counts checks and prints those that fail.
class CTally {
 public:
  explicit CTally(const char* name) : mName(name) {}
  bool check(bool ok, const QString& what);
  bool hasFailures() const { return mFailures > 0; }
  /// Prints the figures; the exit status of the program.
  int finish(const QString& figures) const;

 private:
  const char* mName;
  qint64 mChecks = 0;
  qint64 mFailures = 0;
};

QByteArray readFile(const QString& fileName);
void writeFile(const QString& fileName, const QByteArray& content);
QString exampleFile(const QString& name);
QString testFile(const QString& name);

}  // namespace NTorture
