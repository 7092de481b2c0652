#include "Torture.h"

#include "CMessageBoardHelper.h"
#include "NClock.h"

#include <QFileInfo>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace NTorture {

SOptions::SOptions(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    isLong |= std::strcmp(argv[i], "--long") == 0;
    hasLimits &= std::strcmp(argv[i], "--no-limits") != 0;
  }
  // Thousands of refused files are no news, and a run over midnight has one date.
  CMessageBoardHelper::setHandler([](CMessageBoardHelper::EMessageKind, const QString&) {});
  NClock::setToday([] { return QDate(2026, 11, 20); });
}

CFolder::CFolder()
    : QTemporaryDir((QFileInfo("/dev/shm").isWritable() ? "/dev/shm" : QDir::tempPath()) +
                    "/kto-torture-XXXXXX") {}

bool CTally::check(bool ok, const QString& what) {
  ++mChecks;
  if (!ok && ++mFailures <= 50) std::fprintf(stderr, "%s: FAILED: %s\n", mName, qPrintable(what));
  return ok;
}

int CTally::finish(const QString& figures) const {
  std::printf("%s: %s; %lld checks, %lld failed\n", mName, qPrintable(figures), mChecks, mFailures);
  return mFailures == 0 && mChecks > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace NTorture
