#include "component/ui/Win32FormView.h"

#include "component/ui/Controls.h"
#include "component/ui/FormWindow.h"
#include "fetchkit/dialogs/frmFilter.h"
#include "fetchkit/dialogs/frmFilterColumn.h"
#include "fetchkit/dialogs/frmMultiChoose.h"

namespace fetchkit::ui {
namespace {

LastSize filterSize;
LastSize columnSize;
LastSize chooseSize;
const DialogKind kFilter{FRM_FILTER, kFilterControls, 40, 70, filterSize};
const DialogKind kFilterColumn{FRM_FILTER_COLUMN, kTwoListsControls, 60, 60, columnSize};
const DialogKind kMultiChoose{FRM_MULTI_CHOOSE, kTwoListsControls, 60, 50, chooseSize};

// The window to stand over; for 0 the foreground window, when it is this process's.
HWND OwnerOf(std::int32_t handle) {
  if (const auto window = static_cast<HWND>(LongToHandle(handle)); IsWindow(window)) return window;
  const HWND foreground = GetForegroundWindow();
  DWORD process = 0;
  if (!foreground || GetWindowThreadProcessId(foreground, &process) == 0) return nullptr;
  return process == GetCurrentProcessId() ? foreground : nullptr;
}

}  // namespace

void Win32FormView::ShowModal(frmFilter& form, std::int32_t hWndOwner) {
  FormWindow window(module_, kFilter, form);
  filter_ = &window;
  window.Run(OwnerOf(hWndOwner));
}

void Win32FormView::ShowModal(frmFilterColumn& form, const frmFilter&) {
  FormWindow(module_, kFilterColumn, form).Run(filter_->window());
}

void Win32FormView::ShowModal(frmMultiChoose& form, std::int32_t hWndOwner) {
  FormWindow(module_, kMultiChoose, form).Run(OwnerOf(hWndOwner));
}

}  // namespace fetchkit::ui
