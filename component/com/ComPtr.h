// Holds one reference to a COM object.
#pragma once

#include <cstddef>
#include <utility>

#include "component/Windows.h"

namespace fetchkit {

template <class I>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(std::nullptr_t) {}  // NOLINT(google-explicit-constructor)

  // Adds a reference of its own; Attach takes over the caller's.
  explicit ComPtr(I* object) : object_(object) {
    if (object_) object_->AddRef();
  }
  static ComPtr Attach(I* object) {
    ComPtr holder;
    holder.object_ = object;
    return holder;
  }

  ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_) object_->Release();
  }

  I* get() const { return object_; }
  I* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  // Where a call puts a reference that it hands out. What was held is released first.
  I** Out() {
    *this = nullptr;
    return &object_;
  }

  // The reference itself, for a call that may replace it.
  I** InOut() { return &object_; }

  // Hands the reference over to the caller.
  I* Detach() { return std::exchange(object_, nullptr); }

  // The object under another of its interfaces; empty when it has none of that identifier.
  template <class Other>
  ComPtr<Other> As(const IID& id) const {
    void* other = nullptr;
    if (!object_ || FAILED(object_->QueryInterface(id, &other))) return {};
    return ComPtr<Other>::Attach(static_cast<Other*>(other));
  }

 private:
  I* object_ = nullptr;
};

}  // namespace fetchkit
