// What the statically linked C++ run-time keeps per thread and for the whole DLL.
#pragma once

namespace fetchkit {

// The calling thread's part, when the thread ends. No exception may be in flight.
void FreeThreadLocals() noexcept;

// The rest, when the DLL is unloaded; to be called last.
void FreeRunTime() noexcept;

}  // namespace fetchkit
