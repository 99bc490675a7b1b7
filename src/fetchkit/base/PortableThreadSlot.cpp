// The thread slot on systems whose C library ends thread-specific storage by itself. The Windows
// build leaves this file out: its entry point hears of ending threads instead.
#include <threads.h>

#include <new>

#include "fetchkit/base/ThreadState.h"

namespace fetchkit {
namespace {

// Read on every call of the library, so a plain pointer beside the storage that only knows the end.
constinit thread_local void* slot = nullptr;

void AtThreadEnd(void* state) {
  EndThreadState(state);
}

tss_t CreateEndKey() {
  tss_t key;
  if (tss_create(&key, AtThreadEnd) != thrd_success) throw std::bad_alloc();
  return key;
}

}  // namespace

void* GetThreadSlot() {
  return slot;
}

void SetThreadSlot(void* state) {
  static const tss_t endKey = CreateEndKey();
  slot = state;
  tss_set(endKey, state);
}

std::unique_ptr<DiagnosticsSink> SystemDiagnostics() {
  return nullptr;
}

}  // namespace fetchkit
