#pragma once

#include "ThreadSanitizer.h"

#include <QThread>

#ifdef KTO_THREAD_SANITIZER

#include <atomic>
#include <thread>

/// The end of a thread of Qt. The thread sanitizer does not see how Qt orders what it does after
/// run() before the delivery of finished() and the return of wait(), and reports races within Qt.
/// So here these two wait for the end once more, in a way that it sees. The object is a member of
/// the thread, which lives where it is waited for.
class CTracedThreadEnd {
 public:
  explicit CTracedThreadEnd(QThread& thread) {
    QObject::connect(&thread, &QThread::finished, &thread, [this] { await(++mDelivered); });
  }
  /// To be called in run(): what is local to a thread is destroyed when Qt is through with it.
  void announce() {
    ++mStarted;
    thread_local const SMark mark{mEnded};
  }
  /// To be called after wait().
  void await() const { await(mStarted); }

 private:
  struct SMark {
    ~SMark() { ++ended; }
    std::atomic<int>& ended;
  };

  void await(int ends) const {
    while (mEnded < ends) std::this_thread::yield();
  }

  std::atomic<int> mStarted{0};
  std::atomic<int> mEnded{0};
  int mDelivered = 0;
};

#else

/// The end of a thread of Qt, of which only the thread sanitizer must be told.
class CTracedThreadEnd {
 public:
  explicit CTracedThreadEnd(QThread& /*thread*/) {}
  void announce() {}
  void await() const {}
};

#endif
