#include "NSafeWrite.h"

#include "CAtomicFile.h"
#include "COutput.h"
#include "NFileHints.h"
#include "NFileMessage.h"
#include "Tool.h"

#include <csignal>

namespace {

/// Keeps Ctrl-C and its like waiting: a save that they cut short would leave its temporary file.
class CSignalShield {
 public:
  CSignalShield() {
    sigset_t ends;
    sigemptyset(&ends);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&ends, signal);
    sigprocmask(SIG_BLOCK, &ends, &mBefore);
  }
  CSignalShield(const CSignalShield&) = delete;
  CSignalShield& operator=(const CSignalShield&) = delete;
  ~CSignalShield() { sigprocmask(SIG_SETMASK, &mBefore, nullptr); }

 private:
  sigset_t mBefore{};
};

}  // namespace

bool NSafeWrite::run(const QString& fileName, COutput& out, const std::function<QString()>& save) {
  out.doing(Tool::tr("Writing %1 …").arg(fileName));
  const CSignalShield shield;
  const QString error = save();
  if (error.isEmpty()) return true;
  out.message(fileName, NFileMessage::withoutFile(error, fileName));
  NFileHints::tellWhyUnsaved(fileName, out);
  return false;
}

bool NSafeWrite::bytes(const QString& fileName, const QByteArray& bytes, COutput& out) {
  QString notKept;
  const bool isSaved = run(fileName, out, [&]() -> QString {
    QString error;
    return CAtomicFile::write(fileName, bytes, {}, error, &notKept) ? QString() : error;
  });
  if (!notKept.isEmpty()) out.message(fileName, notKept);
  return isSaved;
}
