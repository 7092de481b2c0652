#include "InOrder.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace {

/// How many things for each core may be ahead of the one whose turn it is.
constexpr int kAhead = 4;

class CWorkers {
 public:
  CWorkers(int count, const std::function<void(int)>& work)
      : mCount(count), mWork(work), mDone(static_cast<size_t>(count)) {
    const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    mAhead = kAhead * cores;
    mThreads.reserve(static_cast<size_t>(cores));
    try {
      for (int i = 0; i < std::min(cores, count); ++i) mThreads.emplace_back([this] { run(); });
    } catch (const std::system_error&) {  // no more threads; those that are there do
    }
  }

  ~CWorkers() {
    {
      const std::lock_guard lock(mMutex);
      mNext = mCount;
    }
    mHasRoom.notify_all();
    for (std::thread& thread : mThreads) thread.join();
  }
  Q_DISABLE_COPY(CWorkers)

  /// Waits until the work of the next number is done.
  void wait(int i) {
    if (mThreads.empty()) return mWork(i);
    std::unique_lock lock(mMutex);
    SDone& done = mDone[static_cast<size_t>(i)];
    mIsDone.wait(lock, [&done] { return done.isDone; });
    const std::exception_ptr error = std::exchange(done.error, nullptr);
    mTaken = i + 1;
    lock.unlock();
    mHasRoom.notify_all();
    if (error) std::rethrow_exception(error);
  }

 private:
  struct SDone {
    bool isDone = false;
    std::exception_ptr error;  // what the work has thrown
  };

  void run() {
    std::unique_lock lock(mMutex);
    for (;;) {
      mHasRoom.wait(lock, [this] { return mNext == mCount || mNext < mTaken + mAhead; });
      if (mNext == mCount) return;
      const int i = mNext++;
      lock.unlock();
      const std::exception_ptr error = thrownBy(i);
      lock.lock();
      mDone[static_cast<size_t>(i)] = {true, error};
      mIsDone.notify_one();
    }
  }

  std::exception_ptr thrownBy(int i) const {
    try {
      mWork(i);
    } catch (...) {
      return std::current_exception();
    }
    return nullptr;
  }

  const int mCount;
  const std::function<void(int)>& mWork;
  int mAhead = 0;
  std::mutex mMutex;  // of the following
  std::condition_variable mHasRoom;
  std::condition_variable mIsDone;
  int mNext = 0;
  int mTaken = 0;
  std::vector<SDone> mDone;
  std::vector<std::thread> mThreads;
};

}  // namespace

void workInOrder(int count, const std::function<void(int)>& work,
                 const std::function<bool(int)>& take) {
  CWorkers workers(count, work);
  for (int i = 0; i < count; ++i) {
    workers.wait(i);
    if (!take(i)) return;
  }
}
