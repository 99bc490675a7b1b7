// The thread slot on Windows, and how the entry point keeps it.
//
// One index of thread-local storage that holds a plain pointer: a thread_local object with a
// destructor would keep the DLL from being unloaded.
#pragma once

namespace fetchkit {

// Ends the calling thread's state during the notice that the thread ends, when nobody else's
// objects may be touched: references to them are given up, not released.
void AbandonThread() noexcept;

// The same for the states of all threads, and frees the slot: for the unloading of the DLL.
void AbandonAllThreads() noexcept;

// Whether the calling thread is in one of the two: who holds a foreign reference forgets it then.
bool IsAbandoning() noexcept;

}  // namespace fetchkit
