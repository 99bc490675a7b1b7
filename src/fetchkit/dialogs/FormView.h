// Who draws the forms.
#pragma once

#include <cstdint>

namespace fetchkit {

class frmFilter;
class frmFilterColumn;
class frmMultiChoose;

// Shows a form modally over the owner's window: attaches itself as the form's observer, passes on
// what the user does, and returns, detached, when the form has closed. A view that must end earlier
// (its owner is gone, no window can be made) calls the form's UserClosed or just returns: a form
// that is not closed by its OK is cancelled. May throw, which cancels too.
class FormView {
 public:
  virtual ~FormView() = default;

  // hWndOwner: 0 for the foreground window. The chooser's owner is the filter dialog, which is open
  // below it.
  virtual void ShowModal(frmFilter& form, std::int32_t hWndOwner) = 0;
  virtual void ShowModal(frmFilterColumn& form, const frmFilter& owner) = 0;
  virtual void ShowModal(frmMultiChoose& form, std::int32_t hWndOwner) = 0;
};

}  // namespace fetchkit
