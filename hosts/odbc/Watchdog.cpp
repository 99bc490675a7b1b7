#include "hosts/odbc/Watchdog.h"

namespace fetchkit::odbc {

Watchdog::Watchdog(SQLHSTMT statement, std::chrono::milliseconds limit) {
  if (limit.count() > 0)
    thread_ = std::thread([this, statement, limit] { Watch(statement, limit); });
}

Watchdog::~Watchdog() {
  {
    const std::lock_guard lock(mutex_);
    hasEnded_ = true;
  }
  ended_.notify_one();
  if (thread_.joinable()) thread_.join();
}

bool Watchdog::HasCancelled() {
  const std::lock_guard lock(mutex_);
  return hasCancelled_;
}

void Watchdog::Watch(SQLHSTMT statement, std::chrono::milliseconds limit) {
  std::unique_lock lock(mutex_);
  while (!ended_.wait_for(lock, limit, [this] { return hasEnded_; })) {
    hasCancelled_ = true;
    lock.unlock();
    SQLCancel(statement);
    lock.lock();
    // Again, until it has ended: a cancellation between two calls of the driver meets nothing.
    limit = std::chrono::milliseconds(200);
  }
}

}  // namespace fetchkit::odbc
