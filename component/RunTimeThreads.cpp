// Thread-local objects and one-time work of the statically linked C++ run-time.
//
// The run-time of this tool chain takes an index of the system's thread-local storage when the
// first exception is thrown, and never gives it back: a host that loads and unloads the DLL about a
// thousand times would have none left. This is the function that its compiler calls for the address
// of such an object, over an index that goes with the DLL.
#include "component/RunTimeThreads.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "component/Windows.h"

namespace {

// As the compiler lays it out.
struct ThreadLocal {
  std::uintptr_t size;
  std::uintptr_t alignment;
  std::uintptr_t number;  // 0 until the first use, then from 1 on
  const void* initial;    // null: zeros
};

constexpr std::uintptr_t kMost = 64;  // there are half a dozen

struct Objects {
  void* at[kMost];
};

LONG slot = -1;
LONG objects = 0;

DWORD Slot() {
  if (slot < 0) {
    const DWORD fresh = TlsAlloc();
    if (fresh == TLS_OUT_OF_INDEXES) std::abort();
    if (InterlockedCompareExchange(&slot, static_cast<LONG>(fresh), -1) != -1) TlsFree(fresh);
  }
  return static_cast<DWORD>(slot);
}

std::uintptr_t NumberOf(ThreadLocal& object) {
  auto* number = reinterpret_cast<void* volatile*>(&object.number);
  if (!*number) {
    const auto fresh = static_cast<std::uintptr_t>(InterlockedIncrement(&objects));
    // Two threads at once: the second one's number stays unused.
    InterlockedCompareExchangePointer(number, reinterpret_cast<void*>(fresh), nullptr);
  }
  return reinterpret_cast<std::uintptr_t>(*number);
}

}  // namespace

// The run-time's own memory for exceptions when there is no other, 73 KB.
namespace __gnu_cxx {
void __freeres();
}

// Memory that cannot be had ends the process, as in the run-time's own version: nobody could be
// told. Blocks of malloc are aligned for every object that there is.
extern "C" void* __emutls_get_address(ThreadLocal* object) {
  const DWORD index = Slot();
  auto* mine = static_cast<Objects*>(TlsGetValue(index));
  if (!mine) {
    mine = static_cast<Objects*>(std::calloc(1, sizeof(Objects)));
    if (!mine || !TlsSetValue(index, mine)) std::abort();
  }
  const std::uintptr_t number = NumberOf(*object);
  if (number >= kMost) std::abort();
  void*& at = mine->at[number];
  if (!at) {
    at = std::malloc(object->size);
    if (!at) std::abort();
    if (object->initial)
      std::memcpy(at, object->initial, object->size);
    else
      std::memset(at, 0, object->size);
  }
  return at;
}

// state: 0 at first, as the library has it. A thread that comes while another one is at it waits.
extern "C" int __wrap_pthread_once(LONG* state, void (*work)()) {
  constexpr LONG kNotYet = 0;
  constexpr LONG kDone = 1;
  constexpr LONG kAtWork = 2;
  // An exception passes on, and the next one to come tries again.
  struct Attempt {
    ~Attempt() { InterlockedExchange(state, result); }
    LONG* state;
    LONG result = kNotYet;
  };
  for (;;) {
    const LONG before = InterlockedCompareExchange(state, kAtWork, kNotYet);
    if (before == kDone) return 0;
    if (before == kNotYet) break;
    Sleep(0);
  }
  Attempt attempt{state};
  work();
  attempt.result = kDone;
  return 0;
}

namespace fetchkit {

void FreeThreadLocals() noexcept {
  if (slot < 0) return;
  const auto index = static_cast<DWORD>(slot);
  auto* mine = static_cast<Objects*>(TlsGetValue(index));
  if (!mine) return;
  for (void* at : mine->at)
    std::free(at);
  std::free(mine);
  TlsSetValue(index, nullptr);
}

void FreeRunTime() noexcept {
  FreeThreadLocals();
  if (slot >= 0) TlsFree(static_cast<DWORD>(slot));
  slot = -1;
  __gnu_cxx::__freeres();
}

}  // namespace fetchkit
