// The two error traps of the system.
//
// Failures are not raised to the host. A routine either stops at its first error and answers with
// a neutral value (Guarded), or skips the failing statement and goes on (a sequence of Steps, one
// per statement). Both note the error as the thread's last one, which WriteLog reads, and tell the
// thread's diagnostics sink, so that what is silent by design can still be seen by whoever asks.
#pragma once

#include <type_traits>
#include <utility>

#include "fetchkit/base/Text.h"

namespace fetchkit {

// To be called inside a catch block only: notes the exception that is being handled.
void NoteCurrentError(TextView what) noexcept;

// Runs body and answers with its result, or with neutral when it throws. A body that takes an
// argument gets the result to build on by reference, and what it has built until an error stands.
template <class Result, class Body>
Result Guarded(TextView what, Result neutral, Body&& body) {
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

// Runs one statement and goes on whatever it throws. Answers whether it came through.
template <class Body>
bool Step(TextView what, Body&& body) {
  try {
    body();
    return true;
  } catch (...) {
    NoteCurrentError(what);
    return false;
  }
}

}  // namespace fetchkit
