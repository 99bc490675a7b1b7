#include "component/platform/WindowsThreadSlot.h"

#include <new>
#include <set>

#include "component/com/Locked.h"
#include "fetchkit/base/ThreadState.h"

namespace fetchkit {
namespace {

// The lock guards the set: the states of all threads, so that those whose threads outlive the DLL
// can be freed with it. The set is made with the first state and is no static object, because its
// destructor would run on its own when the DLL goes.
SRWLOCK lock = SRWLOCK_INIT;
LONG slot = -1;  // the index of thread-local storage
std::set<void*>* states = nullptr;
DWORD abandoning = 0;  // the thread that is in AbandonThread; the loader admits one at a time

DWORD SlotForWriting() {
  const Locked held(lock);
  if (slot < 0) {
    const DWORD fresh = TlsAlloc();
    if (fresh == TLS_OUT_OF_INDEXES) throw std::bad_alloc();
    InterlockedExchange(&slot, static_cast<LONG>(fresh));
  }
  return static_cast<DWORD>(slot);
}

}  // namespace

void* GetThreadSlot() {
  const LONG index = slot;
  if (index < 0) return nullptr;
  // TlsGetValue clears the thread's last error, which a host may be about to read.
  const DWORD lastError = GetLastError();
  void* state = TlsGetValue(static_cast<DWORD>(index));
  SetLastError(lastError);
  return state;
}

void SetThreadSlot(void* state) {
  void* before = GetThreadSlot();
  if (before == state) return;
  const DWORD index = SlotForWriting();
  {
    const Locked held(lock);
    if (!states) states = new std::set<void*>;
    if (state) states->insert(state);
    states->erase(before);
  }
  TlsSetValue(index, state);
}

void AbandonThread() noexcept {
  void* state = GetThreadSlot();
  if (!state) return;
  abandoning = GetCurrentThreadId();
  EndThreadState(state);
  abandoning = 0;
}

void AbandonAllThreads() noexcept {
  AbandonThread();
  abandoning = GetCurrentThreadId();
  if (states) {
    for (void* state : *states)
      delete static_cast<ThreadState*>(state);
    delete states;
    states = nullptr;
  }
  abandoning = 0;
  if (slot >= 0) TlsFree(static_cast<DWORD>(slot));
  slot = -1;
}

bool IsAbandoning() noexcept {
  return abandoning != 0 && abandoning == GetCurrentThreadId();
}

}  // namespace fetchkit
