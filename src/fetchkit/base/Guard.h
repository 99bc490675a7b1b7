// The two error traps of the system.
//
// Failures are not raised to the host. A routine either stops at its first error and answers with
// a neutral value (Guarded), or skips the failing statement and goes on (a sequence of Steps, one
// per statement; StepEnding says what ended one). Both note the error as the thread's last one,
// which WriteLog reads, and tell the thread's diagnostics sink, so that what is silent by design
// can still be seen by whoever asks.
//
// The last error is that of the last public member: the outermost trap on a thread is one's, and
// begins with the error cleared. Members that need no trap have a MemberScope of their own; plain
// properties keep the error, and so does WriteLog, which reads it.
#pragma once

#include <type_traits>
#include <utility>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/base/ThreadState.h"

namespace fetchkit {

// What becomes of the thread's last error when a public member begins.
enum class LastError { Cleared, Kept };

// A public member at work on the calling thread. Members call each other: only the outermost one
// touches the last error, the others cost no more than a look at the thread.
class MemberScope {
 public:
  explicit MemberScope(LastError atBegin = LastError::Cleared) noexcept
      : thread_(static_cast<ThreadState*>(GetThreadSlot())) {
    if (thread_ == nullptr) thread_ = FirstOnThread();
    outermost_ = thread_ == nullptr || !thread_->memberAtWork;
    if (!outermost_ || thread_ == nullptr) return;
    thread_->memberAtWork = true;
    if (atBegin == LastError::Cleared) thread_->lastError.clear();
  }
  ~MemberScope() {
    // The thread may have been released meanwhile.
    if (outermost_ && thread_ != nullptr && thread_ == GetThreadSlot())
      thread_->memberAtWork = false;
  }
  MemberScope(const MemberScope&) = delete;
  MemberScope& operator=(const MemberScope&) = delete;

  bool IsOutermost() const { return outermost_; }

 private:
  // Null when there is no memory for a thread's state.
  static ThreadState* FirstOnThread() noexcept;

  ThreadState* thread_;
  bool outermost_;
};

// To be called inside a catch block only: notes the exception that is being handled. One that is a
// mere note is told, but is not the thread's last error.
void NoteCurrentError(TextView what, Severity severity = Severity::Failure) noexcept;

// What is being done, in each of the traps: a literal or a text. Nobody looks at it, not even for
// its length, until there is something to note.
//
// Runs body and answers with its result, or with neutral when it throws. A body that takes an
// argument gets the result to build on by reference, and what it has built until an error stands.
// A neutral value that needs memory belongs into the body.
template <class What, class Result, class Body>
Result Guarded(const What& what, Result neutral, Body&& body,
               LastError atBegin = LastError::Cleared) {
  const MemberScope scope(atBegin);
  try {
    if constexpr (std::is_invocable_v<Body&, Result&>) {
      body(neutral);
    } else {
      return body();
    }
  } catch (...) {
    NoteCurrentError(what);
  }
  return neutral;
}

// For members that fail for want of memory alone and that the library calls, too: Guarded when the
// host calls. Inside another member the error goes on to that one's trap instead, so that a text
// there was no memory for is never taken for an empty one.
template <class What, class Result, class Body>
Result GuardedOutermost(const What& what, Result neutral, Body&& body) {
  const MemberScope scope;
  try {
    return body();
  } catch (...) {
    if (!scope.IsOutermost()) throw;
    NoteCurrentError(what);
  }
  return neutral;
}

// Runs one statement and goes on whatever it throws. Answers whether it came through. severity:
// what it means when it does not.
template <class What, class Body>
bool Step(const What& what, Body&& body, Severity severity = Severity::Failure) {
  const MemberScope scope;
  try {
    body();
    return true;
  } catch (...) {
    NoteCurrentError(what, severity);
    return false;
  }
}

enum class Ending {
  Through,
  BadValue,  // ConvertError: the same values will end it again
  Fault,     // anything else, of the host or for want of memory
};

// As Step, for who goes on differently after a value that cannot be read.
template <class What, class Body>
Ending StepEnding(const What& what, Body&& body) {
  try {
    body();
    return Ending::Through;
  } catch (const ConvertError&) {
    NoteCurrentError(what);
    return Ending::BadValue;
  } catch (...) {
    NoteCurrentError(what);
    return Ending::Fault;
  }
}

}  // namespace fetchkit
