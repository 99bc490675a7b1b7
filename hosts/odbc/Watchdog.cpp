#include "hosts/odbc/Watchdog.h"

namespace fetchkit::odbc {

Watchdog::~Watchdog() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  changed_.notify_all();
  if (thread_.joinable()) thread_.join();
}

Watchdog::Watch::Watch(Watchdog& watchdog, SQLHSTMT statement, std::chrono::milliseconds limit)
    : watchdog_(watchdog) {
  {
    const std::lock_guard lock(watchdog_.mutex_);
    watchdog_.hasCancelled_ = false;
    if (limit.count() <= 0) return;
    if (!watchdog_.thread_.joinable())
      watchdog_.thread_ = std::thread([&watchdog] { watchdog.Run(); });
    watchdog_.statement_ = statement;
    watchdog_.deadline_ = Clock::now() + limit;
    // Limits are alike, so that the thread mostly wakes in time by itself.
    if (watchdog_.deadline_ >= watchdog_.wakesAt_) return;
  }
  watchdog_.changed_.notify_all();
}

Watchdog::Watch::~Watch() {
  std::unique_lock lock(watchdog_.mutex_);
  watchdog_.statement_ = SQL_NULL_HANDLE;
  // The handle is the caller's to free from here on.
  watchdog_.changed_.wait(lock, [this] { return !watchdog_.isCancelling_; });
}

bool Watchdog::Watch::HasCancelled() {
  const std::lock_guard lock(watchdog_.mutex_);
  return watchdog_.hasCancelled_;
}

void Watchdog::Run() {
  std::unique_lock lock(mutex_);
  while (!ends_) {
    const bool isIdle = statement_ == SQL_NULL_HANDLE;
    wakesAt_ = isIdle ? Clock::time_point::max() : deadline_;
    if (isIdle) {
      changed_.wait(lock);
    } else if (const Clock::time_point until = deadline_; Clock::now() < until) {
      changed_.wait_until(lock, until);
    } else {
      hasCancelled_ = true;
      isCancelling_ = true;
      SQLHSTMT const statement = statement_;
      lock.unlock();
      SQLCancel(statement);
      lock.lock();
      isCancelling_ = false;
      changed_.notify_all();
      // Again, until it has ended: a cancellation between two calls of the driver meets nothing.
      deadline_ = Clock::now() + std::chrono::milliseconds(200);
    }
  }
}

}  // namespace fetchkit::odbc
