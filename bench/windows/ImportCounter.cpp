#include "bench/windows/ImportCounter.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace fetchkit {
namespace {

int mallocs;
int texts;
void* (*realMalloc)(std::size_t);
BSTR(WINAPI* realText)(const OLECHAR*, UINT);

void* CountedMalloc(std::size_t size) {
  ++mallocs;
  return realMalloc(size);
}

BSTR WINAPI CountedText(const OLECHAR* characters, UINT length) {
  ++texts;
  return realText(characters, length);
}

template <class T>
const T* At(HMODULE module, std::uintptr_t offset) {
  return reinterpret_cast<const T*>(reinterpret_cast<std::uintptr_t>(module) + offset);
}

void Write(void** slot, void* function) {
  DWORD before = 0;
  VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &before);
  *slot = function;
  VirtualProtect(slot, sizeof *slot, before, &before);
}

}  // namespace

ImportCounter::ImportCounter(HMODULE module, const char* function)
    : text_(std::strcmp(function, "malloc") != 0) {
  const auto* dos = At<IMAGE_DOS_HEADER>(module, 0);
  const auto* headers = At<IMAGE_NT_HEADERS>(module, static_cast<std::uintptr_t>(dos->e_lfanew));
  const auto& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  for (const auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(module, imports.VirtualAddress);
       library->Name; ++library) {
    const auto* name = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
    const auto* address = At<IMAGE_THUNK_DATA>(module, library->FirstThunk);
    for (; name->u1.AddressOfData; ++name, ++address) {
      if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
      const auto* import = At<IMAGE_IMPORT_BY_NAME>(module, name->u1.AddressOfData);
      if (std::strcmp(reinterpret_cast<const char*>(import->Name), function) == 0)
        slot_ = reinterpret_cast<void**>(const_cast<ULONG_PTR*>(&address->u1.Function));
    }
  }
}

void ImportCounter::Install() {
  if (text_) {
    texts = 0;
    realText = reinterpret_cast<BSTR(WINAPI*)(const OLECHAR*, UINT)>(*slot_);
    Write(slot_, reinterpret_cast<void*>(CountedText));
  } else {
    mallocs = 0;
    realMalloc = reinterpret_cast<void* (*)(std::size_t)>(*slot_);
    Write(slot_, reinterpret_cast<void*>(CountedMalloc));
  }
}

int ImportCounter::Remove() {
  Write(slot_, text_ ? reinterpret_cast<void*>(realText) : reinterpret_cast<void*>(realMalloc));
  return text_ ? texts : mallocs;
}

}  // namespace fetchkit
