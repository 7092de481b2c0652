#pragma once

#include <csignal>

/// Keeps Ctrl-C and its like waiting for as long as it lives: a save that they cut short would
/// leave its temporary file behind.
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
