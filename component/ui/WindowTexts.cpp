#include "component/ui/WindowTexts.h"

namespace fetchkit::ui {

Text TextOf(HWND window) {
  const int length = GetWindowTextLengthW(window);
  Text text(static_cast<std::size_t>(length), u'\0');
  const int read = GetWindowTextW(window, reinterpret_cast<wchar_t*>(text.data()), length + 1);
  text.resize(static_cast<std::size_t>(read));
  return text;
}

Measuring::Measuring(HWND window)
    : window_(window),
      device_(GetDC(window)),
      before_(
          SelectObject(device_, reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)))) {}

Measuring::~Measuring() {
  SelectObject(device_, before_);
  ReleaseDC(window_, device_);
}

int Measuring::Width(const Text& text) const {
  SIZE size{};
  GetTextExtentPoint32W(device_, Wide(text), static_cast<int>(text.size()), &size);
  return static_cast<int>(size.cx);
}

int Measuring::Height() const {
  TEXTMETRICW metrics{};
  GetTextMetricsW(device_, &metrics);
  return static_cast<int>(metrics.tmHeight);
}

}  // namespace fetchkit::ui
