#include "fetchkit/dialogs/Form.h"

#include <utility>

namespace fetchkit {

Control* Form::TakeFocusWish() {
  return std::exchange(focusWish_, nullptr);
}

void Form::Close() {
  if (!std::exchange(open_, false)) return;
  focusWish_ = nullptr;
  if (observer_ != nullptr) observer_->Closed(*this);
}

void Control::SetFocus() {
  form_.focusWish_ = this;
  if (form_.observer_ != nullptr) form_.observer_->FocusWanted(*this);
}

void Control::Changed() {
  if (form_.observer_ != nullptr) form_.observer_->Changed(*this);
}

}  // namespace fetchkit
