// Texts at the edge: the system's counted strings, inner NULs included.
#pragma once

#include <new>
#include <utility>

#include "component/Windows.h"
#include "fetchkit/base/Text.h"

namespace fetchkit {

static_assert(sizeof(OLECHAR) == sizeof(char16_t));

// Valid as long as the string; a null one is the empty text.
inline TextView ViewOf(BSTR text) {
  if (!text) return {};
  return {reinterpret_cast<const char16_t*>(text), SysStringLen(text)};
}

// A new string, never null: std::bad_alloc instead. The caller frees it.
inline BSTR NewBstr(TextView text) {
  const BSTR copy = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()),
                                      static_cast<UINT>(text.size()));
  if (!copy) throw std::bad_alloc();
  return copy;
}

class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(TextView text) : text_(NewBstr(text)) {}
  Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }
  ~Bstr() { SysFreeString(text_); }

  BSTR get() const { return text_; }
  TextView view() const { return ViewOf(text_); }

  // Where a call puts a string that the caller frees. What was held is freed first.
  BSTR* Out() {
    SysFreeString(std::exchange(text_, nullptr));
    return &text_;
  }

  // The string itself, for a call that may replace it.
  BSTR* InOut() { return &text_; }

  BSTR Detach() { return std::exchange(text_, nullptr); }

 private:
  BSTR text_ = nullptr;
};

}  // namespace fetchkit
