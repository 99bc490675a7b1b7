#include "fetchkit/base/Guard.h"

#include <exception>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit {
namespace {

Text DescribeCurrentError() {
  try {
    throw;
  } catch (const Error& error) {
    return error.description();
  } catch (const std::exception& error) {
    return FromUtf8(error.what());
  } catch (...) {
    return u"The host raised an error of an unknown kind.";
  }
}

}  // namespace

ThreadState* MemberScope::FirstOnThread() noexcept {
  try {
    return &CurrentThread();
  } catch (...) {
    return nullptr;
  }
}

void NoteCurrentError(TextView what, Severity severity) noexcept {
  try {
    ThreadState& thread = CurrentThread();
    const Text description = DescribeCurrentError();
    if (severity == Severity::Failure) thread.lastError = description;
    const Text statement = std::exchange(thread.failingStatement, {});
    const Text databaseText = std::exchange(thread.databaseText, {});
    TellDiagnostics(what, description, statement, severity, databaseText);
  } catch (...) {
    // Out of memory while noting it: the caller's answer matters more than the note. This one is
    // short enough to need none.
    if (void* state = GetThreadSlot())
      static_cast<ThreadState*>(state)->lastError.assign(u"内存不足");
  }
}

}  // namespace fetchkit
