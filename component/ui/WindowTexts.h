// Texts of windows and how wide they are.
#pragma once

#include "component/Windows.h"
#include "fetchkit/base/Text.h"

namespace fetchkit::ui {

inline const wchar_t* Wide(const Text& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}

// For structures of the system that are also written to, where it only reads.
inline LPWSTR Editable(const Text& text) {
  return const_cast<LPWSTR>(Wide(text));
}

Text TextOf(HWND window);

// A device context of the window with its font in it.
class Measuring {
 public:
  explicit Measuring(HWND window);
  ~Measuring();
  Measuring(const Measuring&) = delete;
  Measuring& operator=(const Measuring&) = delete;

  int Width(const Text& text) const;
  int Height() const;

 private:
  HWND window_;
  HDC device_;
  HGDIOBJ before_;
};

}  // namespace fetchkit::ui
