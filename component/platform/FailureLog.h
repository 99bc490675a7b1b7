// The file that failures are written to.
#pragma once

#include "component/Windows.h"
#include "fetchkit/base/ThreadState.h"

namespace fetchkit {

// The value LogFile under Software\\FetchKit, the user's before the machine's; the same one for
// 32-bit and 64-bit programs. Empty when there is none.
Text LogFileOfRegistry();

// Appends one line in UTF-8: local time, process and thread, step, what went wrong, statement, the
// database's words, with tabs between. What looks like a connection string or a password is left
// out of the texts. A file of 10 MB is set aside as FILE.old first. The system's error number; 0
// when it was written.
DWORD AppendToLog(const Text& file, const Failure& failure) noexcept;

// Whether lines can be appended: makes the file if there is none. The system's error number or 0.
DWORD TryLog(const Text& file) noexcept;

// The text up to what looks like a connection string or a password, on each of its lines.
Text WithoutSecrets(TextView text);

}  // namespace fetchkit
