#pragma once

#include "ThreadSanitizer.h"

#include <QMutex>

#ifdef KTO_THREAD_SANITIZER
#include <sanitizer/tsan_interface.h>
#endif

/// A mutex of Qt that the thread sanitizer knows for one.
class CTracedMutex {
 public:
  CTracedMutex() = default;

#ifdef KTO_THREAD_SANITIZER
  ~CTracedMutex() { __tsan_mutex_destroy(&mMutex, 0); }

  void lock() {
    __tsan_mutex_pre_lock(&mMutex, 0);
    mMutex.lock();
    __tsan_mutex_post_lock(&mMutex, 0, 0);
  }
  void unlock() {
    __tsan_mutex_pre_unlock(&mMutex, 0);
    mMutex.unlock();
    __tsan_mutex_post_unlock(&mMutex, 0);
  }
#else
  void lock() { mMutex.lock(); }
  void unlock() { mMutex.unlock(); }
#endif

 private:
  Q_DISABLE_COPY(CTracedMutex)

  QMutex mMutex;
};
