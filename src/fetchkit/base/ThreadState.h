// What hangs on the calling thread: its session, its last error, its diagnostics sink.
//
// All of it is reached through one slot that holds a plain pointer. The slot is not a thread_local
// with a destructor, because such an object keeps a Windows DLL from being unloaded; who ends a
// thread's state is arranged by the platform: base/PortableThreadSlot.cpp on POSIX systems, the
// component's entry point on Windows.
#pragma once

#include <memory>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Text.h"

namespace fetchkit {

enum class Severity {
  Note,     // belongs to a healthy session: a probe's "no", a value that a dialog refused
  Failure,  // something is missing that should be there
};

// What a trap met, or a statement that the database refused.
struct Failure {
  Text what;          // the step or member that failed, such as "Initialize: LoginDate"
  Text description;   // what went wrong, for a person
  Text statement;     // the SQL text that was being read or run; empty when there was none
  Text databaseText;  // the database's own words for a refusal; empty where the host offers none
  Severity severity = Severity::Failure;
};

// Told of failures that are silent by design, and of notes. Called on the thread on which they
// happen, in the midst of the work: it must not throw and must not call back into the library.
class DiagnosticsSink {
 public:
  virtual ~DiagnosticsSink() = default;
  virtual void OnFailure(const Failure& failure) = 0;
};

// Base of what a thread's state owns without knowing it.
class ThreadOwned {
 public:
  virtual ~ThreadOwned() = default;
};

struct ThreadState {
  Text lastError;             // description of the last member's last error; empty when it had none
  bool memberAtWork = false;  // whether a public member is being run
  Text failingStatement;      // noted while an error passes its statement's owner
  Text databaseText;          // and the database's own words, where it is a refusal
  DiagnosticsSink* diagnostics = nullptr;  // not owned; null when nobody asks
  std::unique_ptr<DiagnosticsSink>
      systemDiagnostics;                  // hears failures too; null where there is none
  int hostCalls = 0;                      // HostCalls in scope
  std::unique_ptr<ThreadOwned> session;   // floor 3 knows its type
  std::unique_ptr<ThreadOwned> services;  // utility/WindowServices.cpp knows its type
};

// The calling thread's state, created on first use.
ThreadState& CurrentThread();

// In scope while a host's object is at work for the library. The host may call back meanwhile, and
// what waits for its answer goes on with the thread's state: ReleaseThread is refused.
class HostCall {
 public:
  HostCall() : thread_(CurrentThread()) { ++thread_.hostCalls; }
  ~HostCall() { --thread_.hostCalls; }
  HostCall(const HostCall&) = delete;
  HostCall& operator=(const HostCall&) = delete;

 private:
  ThreadState& thread_;
};

// Ends the calling thread's state now: session objects and the host's connection are let go.
// Later calls start afresh. Needs not be called before a thread ends. False, with everything as it
// was and the diagnostics sink told, from inside a call of the library's to the host.
bool ReleaseThread();

// Installs the calling thread's sink (null: none) and returns the one before it. The sink must
// outlive its installation. Without memory for a thread's first call none is installed.
DiagnosticsSink* SetDiagnosticsSink(DiagnosticsSink* sink);

// Tells the sink, and of a failure the system's too; does not touch the last error.
void TellDiagnostics(TextView what, TextView description, TextView statement,
                     Severity severity = Severity::Failure, TextView databaseText = {});

// Whether anybody hears what is told.
bool IsHeard(Severity severity);

// What the system itself wants to hear of a thread, beside the thread's own sink: failures, no
// notes. Asked once for each thread's state, which owns the answer; null for nothing.
std::unique_ptr<DiagnosticsSink> SystemDiagnostics();

// The slot itself. Get answers null before the first Set on a thread. A state that is in the slot
// when its thread ends is given to EndThreadState.
void* GetThreadSlot();
void SetThreadSlot(void* state);
void EndThreadState(void* state);

}  // namespace fetchkit
