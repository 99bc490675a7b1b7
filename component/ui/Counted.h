// What the windows create and destroy, counted: a dialog must leave nothing behind.
#pragma once

#include "component/Windows.h"

namespace fetchkit::ui {

// Windows, fonts, image lists, menus and activation contexts that exist now. Of all threads.
LONG LivingResources();

// To be called once for each that is created and destroyed.
void NoteCreated();
void NoteDestroyed();

// Owns a handle and counts it. Destroy: the system's function that ends it.
template <class Handle, auto Destroy>
class Counted {
 public:
  Counted() = default;
  explicit Counted(Handle handle) : handle_(handle) {
    if (handle_) NoteCreated();
  }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
  Counted(Counted&& other) noexcept : handle_(other.handle_) { other.handle_ = Handle(); }
  Counted& operator=(Counted&& other) noexcept {
    Handle mine = handle_;
    handle_ = other.handle_;
    other.handle_ = mine;
    return *this;
  }
  ~Counted() {
    if (!handle_) return;
    Destroy(handle_);
    NoteDestroyed();
  }

  Handle get() const { return handle_; }
  explicit operator bool() const { return handle_ != Handle(); }

 private:
  Handle handle_ = Handle();
};

}  // namespace fetchkit::ui
