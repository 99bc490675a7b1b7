#include "component/com/Module.h"

#include <vector>

namespace fetchkit::Module {
namespace {

HINSTANCE handle = nullptr;
TextView source;
LONG users = 0;

}  // namespace

void SetHandle(HINSTANCE module, TextView name) {
  handle = module;
  source = name;
}

TextView Source() {
  return source;
}

HINSTANCE Handle() {
  return handle;
}

Text Path() {
  std::vector<wchar_t> path(MAX_PATH);
  for (;;) {
    const DWORD length = GetModuleFileNameW(handle, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) return {path.begin(), path.begin() + length};
    path.resize(path.size() * 2);
  }
}

void Enter() {
  InterlockedIncrement(&users);
}

void Leave() {
  InterlockedDecrement(&users);
}

bool IsUsed() {
  return InterlockedCompareExchange(&users, 0, 0) != 0;
}

}  // namespace fetchkit::Module
