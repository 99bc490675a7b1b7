// Cancels a statement that takes too long. The drivers' own limits do not work everywhere.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "hosts/odbc/Sql.h"

namespace fetchkit::odbc {

// Watches from the constructor to the destructor.
class Watchdog {
 public:
  // 0: never cancels.
  Watchdog(SQLHSTMT statement, std::chrono::milliseconds limit);
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  // Whether it has cancelled the statement.
  bool HasCancelled();

 private:
  void Watch(SQLHSTMT statement, std::chrono::milliseconds limit);

  std::mutex mutex_;
  std::condition_variable ended_;
  bool hasEnded_ = false;
  bool hasCancelled_ = false;
  std::thread thread_;
};

}  // namespace fetchkit::odbc
