#include "component/ui/ToolTip.h"

#include "component/ui/WindowTexts.h"

namespace fetchkit::ui {
void ToolTip::SetText(const Text& text) {
  if (text_ == text) return;
  text_ = text;
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = control_;
  tool.uId = reinterpret_cast<UINT_PTR>(control_);
  tool.lpszText = Editable(text_);
  if (window_) {
    SendMessageW(window_.get(), TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    return;
  }
  window_ = Counted<HWND, DestroyTip>(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                                      WS_POPUP | TTS_NOPREFIX, 0, 0, 0, 0, control_,
                                                      nullptr, nullptr, nullptr));
  SendMessageW(window_.get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace fetchkit::ui
