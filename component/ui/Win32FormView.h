// The library's dialogs in real windows.
#pragma once

#include "component/Windows.h"
#include "fetchkit/dialogs/FormView.h"

namespace fetchkit::ui {

class FormWindow;

// Window of its own for each form; the chooser's owner is the filter dialog's window.
class Win32FormView : public FormView {
 public:
  // The module that holds the dialogs' resources.
  explicit Win32FormView(HINSTANCE module) : module_(module) {}

  void ShowModal(frmFilter& form, std::int32_t hWndOwner) override;
  void ShowModal(frmFilterColumn& form, const frmFilter& owner) override;
  void ShowModal(frmMultiChoose& form, std::int32_t hWndOwner) override;

 private:
  HINSTANCE module_;
  FormWindow* filter_ = nullptr;  // the filter dialog, from which alone the chooser is opened
};

}  // namespace fetchkit::ui
