#include "fetchkit/dialogs/Form.h"

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

void Control::Changed() {
  if (form_.observer_ != nullptr) form_.observer_->Changed(*this);
}

}  // namespace fetchkit
