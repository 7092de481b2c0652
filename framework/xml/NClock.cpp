#include "NClock.h"

#include <atomic>
#include <mutex>

namespace NClock {

namespace {
std::atomic<DateFunction> sToday{nullptr};

/// The C library keeps the time zone once for all threads.
QDate localDate() {
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  return QDate::currentDate();
}

}  // namespace

QDate today() {
  const DateFunction function = sToday;
  return function != nullptr ? function() : localDate();
}

void setToday(DateFunction function) {
  sToday = function;
}

}  // namespace NClock
