#include "component/platform/HeardFailures.h"

#include <limits>
#include <utility>

#include "component/platform/FailureLog.h"

namespace fetchkit {

std::unique_ptr<DiagnosticsSink> SystemDiagnostics() {
  return std::make_unique<HeardFailures>();
}

HeardFailures& HeardFailures::OfThread() {
  return static_cast<HeardFailures&>(*CurrentThread().systemDiagnostics);
}

void HeardFailures::OnFailure(const Failure& failure) {
  if (count_ < std::numeric_limits<std::int32_t>::max()) ++count_;
  try {
    last_ = failure;
    if (const Text file = LogFile(); !file.empty()) AppendToLog(file, last_);
    if (!telling_ && !listeners_.empty()) TellListeners();
  } catch (...) {
    // Without memory it is counted alone.
  }
}

void HeardFailures::TellListeners() {
  std::vector<std::shared_ptr<DiagnosticsSink>> told;
  for (const auto& each : listeners_)
    if (auto listener = each.lock()) told.push_back(std::move(listener));
  // The listener is the caller's: it may do anything but end the thread's state, and what it does
  // may fail, which makes that the last one.
  const HostCall call;
  const Failure failure = last_;
  telling_ = true;
  for (const auto& listener : told)
    listener->OnFailure(failure);
  telling_ = false;
}

void HeardFailures::Clear() {
  count_ = 0;
  last_ = {};
}

void HeardFailures::Tell(const std::shared_ptr<DiagnosticsSink>& listener) {
  std::erase_if(listeners_, [](const auto& each) { return each.expired(); });
  listeners_.push_back(listener);
}

Text HeardFailures::LogFile() const {
  return logFile_ ? *logFile_ : LogFileOfRegistry();
}

}  // namespace fetchkit
