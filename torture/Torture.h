#pragma once

#include <QString>
#include <QTemporaryDir>

/// What the torture programs share.
namespace NTorture {

/// The fast variant unless "--long" is given; "--no-limits" where sanitizers cost time and memory.
struct SOptions {
  bool isLong = false;
  bool hasLimits = true;

  SOptions(int argc, char** argv);
  int pick(int fast, int slow) const { return isLong ? slow : fast; }
};

/// A folder that goes with the object, in memory where the system has such a place.
class CFolder : public QTemporaryDir {
 public:
  CFolder();
};

/// Counts checks and prints those that fail.
class CTally {
 public:
  explicit CTally(const char* name) : mName(name) {}
  bool check(bool ok, const QString& what);
  /// Prints the figures; the exit status of the program.
  int finish(const QString& figures) const;

 private:
  const char* mName;
  qint64 mChecks = 0;
  qint64 mFailures = 0;
};

}  // namespace NTorture
