// A reference to an object of the host's.
#pragma once

#include <utility>

#include "component/com/ComPtr.h"
#include "component/platform/WindowsThreadSlot.h"

namespace fetchkit {

// Released with its holder, except while a thread's state is abandoned: then it is given up,
// because the host's DLL may be gone already.
template <class I>
class HostPtr : public ComPtr<I> {
 public:
  HostPtr() = default;
  HostPtr(ComPtr<I> object) : ComPtr<I>(std::move(object)) {}  // NOLINT
  HostPtr(const HostPtr&) = default;
  HostPtr(HostPtr&&) noexcept = default;
  HostPtr& operator=(const HostPtr&) = default;
  HostPtr& operator=(HostPtr&&) noexcept = default;
  ~HostPtr() {
    if (IsAbandoning()) this->Detach();
  }
};

}  // namespace fetchkit
