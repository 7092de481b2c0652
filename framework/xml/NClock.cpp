#include "NClock.h"

#include <atomic>

namespace NClock {

namespace {
std::atomic<DateFunction> sToday{nullptr};
}  // namespace

QDate today() {
  const DateFunction function = sToday;
  return function != nullptr ? function() : QDate::currentDate();
}

void setToday(DateFunction function) {
  sToday = function;
}

}  // namespace NClock
