#include "component/com/Shells.h"

#include <new>
#include <unordered_map>

#include "component/com/Locked.h"

namespace fetchkit::Shells {
namespace {

// One table for all threads. It is made with the first shell and freed with the last, so that
// nothing is left to a destructor at unloading.
SRWLOCK lock = SRWLOCK_INIT;
std::unordered_map<const void*, void*>* shells = nullptr;

}  // namespace

void Add(const void* core, void* shell) {
  const Locked held(lock);
  if (!shells) shells = new std::unordered_map<const void*, void*>;
  shells->emplace(core, shell);
}

void Remove(const void* core) noexcept {
  const Locked held(lock);
  if (!shells) return;
  shells->erase(core);
  if (shells->empty()) {
    delete shells;
    shells = nullptr;
  }
}

void* Find(const void* core) {
  const Locked held(lock);
  if (!shells) return nullptr;
  const auto found = shells->find(core);
  return found == shells->end() ? nullptr : found->second;
}

}  // namespace fetchkit::Shells
