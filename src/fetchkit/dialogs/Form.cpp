#include "fetchkit/dialogs/Form.h"

#include <algorithm>
#include <utility>

#include "fetchkit/base/Guard.h"

namespace fetchkit {

Control* Form::TakeFocusWish() {
  return std::exchange(focusWish_, nullptr);
}

void Form::Close() {
  if (!std::exchange(open_, false)) return;
  focusWish_ = nullptr;
  if (observer_ != nullptr) observer_->Closed(*this);
}

void Form::RefuseSilently(TextView warning) const {
  Step(name_, [&] {
    Text& lastError = CurrentThread().lastError;
    lastError = u"A value has the wrong type.";
    TellDiagnostics(Join(name_, u": ", warning), lastError, {}, Severity::Note);
  });
}

void Control::SetFocus() {
  form_.focusWish_ = this;
  if (form_.observer_ != nullptr) form_.observer_->FocusWanted(*this);
}

void Control::MoveFocusOn(bool back) {
  if (!form_.open_ || (form_.focusWish_ != nullptr && !back)) return;
  const auto& controls = form_.controls_;
  const std::size_t count = controls.size();
  const auto self = std::find(controls.begin(), controls.end(), this) - controls.begin();
  for (std::size_t step = 1; step < count; ++step) {
    const std::size_t at = static_cast<std::size_t>(self) + (back ? count - step : step);
    Control& next = *controls[at % count];
    if (next.TakesFocus() && next.visible_ && next.enabled_) return next.SetFocus();
  }
}

void Control::Changed() {
  if (form_.observer_ != nullptr) form_.observer_->Changed(*this);
}

}  // namespace fetchkit
