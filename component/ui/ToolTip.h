// The small window that explains a control.
#pragma once

#include "component/Windows.h"
#include "component/ui/Counted.h"
#include "fetchkit/base/Text.h"

namespace fetchkit::ui {

inline void DestroyTip(HWND tip) {
  DestroyWindow(tip);
}

// The small window that explains a control while the pointer rests on it. There is none while the
// text is empty.
class ToolTip {
 public:
  explicit ToolTip(HWND control) : control_(control) {}
  void SetText(const Text& text);

 private:
  HWND control_;
  Counted<HWND, DestroyTip> window_;
  Text text_;
};

}  // namespace fetchkit::ui
