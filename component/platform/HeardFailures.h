// What the component hears of each thread's failures: their number, the last one, who is told, and
// the log file.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "fetchkit/base/ThreadState.h"

namespace fetchkit {

class HeardFailures : public DiagnosticsSink {
 public:
  // The calling thread's, from the first call of the library on the thread on.
  static HeardFailures& OfThread();

  void OnFailure(const Failure& failure) override;

  std::int32_t count() const { return count_; }
  const Failure& last() const { return last_; }  // empty texts when there was none

  // Forgets the failures so far.
  void Clear();

  // Tells the listener from now on, as long as somebody else holds it. One that is told hears of no
  // failures that it causes meanwhile.
  void Tell(const std::shared_ptr<DiagnosticsSink>& listener);

  // The file that failures are written to: the thread's own, otherwise the one that the registry
  // names for every thread; empty for none. Setting the empty text keeps the thread out of any
  // file.
  Text LogFile() const;
  void SetLogFile(Text file) { logFile_ = std::move(file); }

 private:
  void TellListeners();

  std::int32_t count_ = 0;
  Failure last_;
  std::optional<Text> logFile_;
  std::vector<std::weak_ptr<DiagnosticsSink>> listeners_;
  bool telling_ = false;
};

}  // namespace fetchkit
