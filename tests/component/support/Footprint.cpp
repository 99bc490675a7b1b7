#include "support/Footprint.h"

#include <psapi.h>

#include <array>

namespace fetchkit::test {

// Without allocations of its own between two measurements.
Footprint Footprint::Now() {
  Footprint now;
  std::array<HANDLE, 64> heaps;
  const DWORD count = GetProcessHeaps(heaps.size(), heaps.data());
  for (DWORD i = 0; i < count && i < heaps.size(); ++i) {
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heaps[i]);
    while (HeapWalk(heaps[i], &entry))
      if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) {
        ++now.blocks;
        now.bytes += entry.cbData;
      }
    HeapUnlock(heaps[i]);
  }
  PROCESS_MEMORY_COUNTERS memory{};
  memory.cb = sizeof memory;
  if (GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory))
    now.resident = static_cast<long long>(memory.WorkingSetSize);
  const HANDLE fresh = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  now.handle = HandleToLong(fresh) / 4;
  CloseHandle(fresh);
  std::array<DWORD, 1200> slots;
  for (DWORD slot = TlsAlloc(); slot != TLS_OUT_OF_INDEXES; slot = TlsAlloc())
    slots[static_cast<std::size_t>(now.freeSlots++)] = slot;
  for (int i = 0; i < now.freeSlots; ++i)
    TlsFree(slots[static_cast<std::size_t>(i)]);
  return now;
}

}  // namespace fetchkit::test
