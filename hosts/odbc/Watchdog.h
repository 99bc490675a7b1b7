// Cancels statements that take too long. The drivers' own limits do not work everywhere.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "hosts/odbc/Sql.h"

namespace fetchkit::odbc {

// Watches the statements of one connection, one at a time, on a thread of its own that begins with
// the first of them that has a limit.
class Watchdog {
 public:
  Watchdog() = default;
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  // A statement is watched from the constructor to the destructor.
  class Watch {
   public:
    // limit: 0: never cancels.
    Watch(Watchdog& watchdog, SQLHSTMT statement, std::chrono::milliseconds limit);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    // Whether the statement was cancelled.
    bool HasCancelled();

   private:
    Watchdog& watchdog_;
  };

 private:
  using Clock = std::chrono::steady_clock;

  void Run();

  std::mutex mutex_;
  std::condition_variable changed_;
  SQLHSTMT statement_ = SQL_NULL_HANDLE;  // that is watched
  Clock::time_point deadline_{};
  Clock::time_point wakesAt_ = Clock::time_point::max();  // the thread, if nobody wakes it
  bool hasCancelled_ = false;
  bool isCancelling_ = false;  // the driver has the handle
  bool ends_ = false;
  std::thread thread_;
};

}  // namespace fetchkit::odbc
