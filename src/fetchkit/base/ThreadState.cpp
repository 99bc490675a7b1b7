#include "fetchkit/base/ThreadState.h"

#include <utility>

#include "fetchkit/base/Guard.h"

namespace fetchkit {

ThreadState& CurrentThread() {
  if (void* state = GetThreadSlot()) return *static_cast<ThreadState*>(state);
  auto fresh = std::make_unique<ThreadState>();
  fresh->systemDiagnostics = SystemDiagnostics();
  SetThreadSlot(fresh.get());
  return *fresh.release();
}

bool ReleaseThread() {
  void* state = GetThreadSlot();
  if (state != nullptr && static_cast<ThreadState*>(state)->hostCalls > 0) {
    Step(u"ReleaseThread", [] {
      TellDiagnostics(u"ReleaseThread",
                      u"Refused: the library waits for the host. Call it when that has returned.",
                      {});
    });
    return false;
  }
  EndThreadState(state);
  return true;
}

void EndThreadState(void* state) {
  // The slot is emptied first: a host object that calls the library while it is let go meets a
  // fresh state instead of one that is half gone.
  SetThreadSlot(nullptr);
  delete static_cast<ThreadState*>(state);
}

DiagnosticsSink* SetDiagnosticsSink(DiagnosticsSink* sink) {
  return Guarded(
      u"SetDiagnosticsSink", static_cast<DiagnosticsSink*>(nullptr),
      [&] { return std::exchange(CurrentThread().diagnostics, sink); }, LastError::Kept);
}

void TellDiagnostics(TextView what, TextView description, TextView statement, Severity severity,
                     TextView databaseText) {
  if (!IsHeard(severity)) return;
  const Failure failure{Text(what), Text(description), Text(statement), Text(databaseText),
                        severity};
  const ThreadState& thread = CurrentThread();
  if (thread.systemDiagnostics && severity == Severity::Failure)
    thread.systemDiagnostics->OnFailure(failure);
  if (thread.diagnostics) thread.diagnostics->OnFailure(failure);
}

bool IsHeard(Severity severity) {
  const ThreadState& thread = CurrentThread();
  return thread.diagnostics || (thread.systemDiagnostics && severity == Severity::Failure);
}

}  // namespace fetchkit
