#include "fetchkit/base/Guard.h"

#include <exception>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/ThreadState.h"
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

void NoteCurrentError(TextView what) noexcept {
  try {
    ThreadState& thread = CurrentThread();
    thread.lastError = DescribeCurrentError();
    const Text statement = std::exchange(thread.failingStatement, {});
    TellDiagnostics(what, thread.lastError, statement);
  } catch (...) {
    // Out of memory while noting it: the caller's answer matters more than the note.
  }
}

}  // namespace fetchkit
