#include "component/ui/Win32FormView.h"

#include "component/ui/Controls.h"
#include "component/ui/FormWindow.h"
#include "fetchkit/dialogs/frmFilter.h"
#include "fetchkit/dialogs/frmFilterColumn.h"
#include "fetchkit/dialogs/frmMultiChoose.h"

namespace fetchkit::ui {
namespace {

constexpr TemplateControl kFilterControls[] = {
    {u"Frame3", -1, ID_FRAME3, 0, 0, 35, 100},
    {u"tvwFilter", -1, ID_TVW_FILTER, 0, 0, 35, 100},
    {u"Frame2", -1, ID_FRAME2, 35, 0, 65, 100},
    {u"msgFilter", -1, ID_MSG_FILTER, 35, 0, 65, 100},
    {u"Frame1", -1, ID_FRAME1, 35, 100, 65, 0},
    {u"lblTitle", -1, ID_LBL_TITLE, 35, 100, 65, 0},
    {u"lxtOther", -1, ID_LXT_OTHER, 35, 100, 30, 0},
    {u"lblFrom", -1, ID_LBL_FROM, 35, 100, 0, 0},
    {u"txtFrom", -1, ID_TXT_FROM, 35, 100, 30, 0},
    {u"datFrom", -1, ID_DAT_FROM, 35, 100, 30, 0},
    {u"lblTo", -1, ID_LBL_TO, 65, 100, 0, 0},
    {u"txtTo", -1, ID_TXT_TO, 65, 100, 35, 0},
    {u"datTo", -1, ID_DAT_TO, 65, 100, 35, 0},
    {u"datDate", -1, ID_DAT_DATE, 35, 100, 30, 0},
    {u"cmdOk", 0, IDOK, 100, 100, 0, 0},
    {u"cmdOk", 1, IDCANCEL, 100, 100, 0, 0},
    {u"cmdOk", 2, ID_CMD_CLEAR, 35, 100, 0, 0},
};

// frmFilterColumn and frmMultiChoose.
constexpr TemplateControl kTwoListsControls[] = {
    {u"lblAll", -1, ID_LBL_ALL, 0, 0, 50, 0},
    {u"msgAll", -1, ID_ALL, 0, 0, 50, 100},
    {u"lstAll", -1, ID_ALL, 0, 0, 50, 100},
    {u"lblSelected", -1, ID_LBL_SELECTED, 50, 0, 50, 0},
    {u"msgSelected", -1, ID_SELECTED, 50, 0, 50, 100},
    {u"lstSelected", -1, ID_SELECTED, 50, 0, 50, 100},
    {u"cmdRightOne", -1, ID_CMD_RIGHT_ONE, 50, 50, 0, 0},
    {u"cmdRightAll", -1, ID_CMD_RIGHT_ALL, 50, 50, 0, 0},
    {u"cmdLeftOne", -1, ID_CMD_LEFT_ONE, 50, 50, 0, 0},
    {u"cmdLeftAll", -1, ID_CMD_LEFT_ALL, 50, 50, 0, 0},
    {u"cmdSerial", 0, ID_CMD_SERIAL_UP, 100, 50, 0, 0},
    {u"cmdSerial", 1, ID_CMD_SERIAL_DOWN, 100, 50, 0, 0},
    {u"cmdOK", -1, IDOK, 100, 100, 0, 0},
    {u"cmdOk", -1, IDOK, 100, 100, 0, 0},
    {u"cmdCancel", -1, IDCANCEL, 100, 100, 0, 0},
};

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
  FormWindow window(module_, FRM_FILTER, kFilterControls, form);
  filter_ = &window;
  window.Run(OwnerOf(hWndOwner));
}

void Win32FormView::ShowModal(frmFilterColumn& form, const frmFilter&) {
  FormWindow(module_, FRM_FILTER_COLUMN, kTwoListsControls, form).Run(filter_->window());
}

void Win32FormView::ShowModal(frmMultiChoose& form, std::int32_t hWndOwner) {
  FormWindow(module_, FRM_MULTI_CHOOSE, kTwoListsControls, form).Run(OwnerOf(hWndOwner));
}

}  // namespace fetchkit::ui
