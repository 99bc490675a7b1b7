#include "component/ui/Win32FormView.h"

#include "component/ui/Controls.h"
#include "component/ui/FormWindow.h"
#include "fetchkit/dialogs/frmFilter.h"
#include "fetchkit/dialogs/frmFilterColumn.h"
#include "fetchkit/dialogs/frmMultiChoose.h"

namespace fetchkit::ui {
namespace {

constexpr Follows kFilterFollows[] = {
    {ID_FRAME3, 0, 0, 35, 100},      {ID_TVW_FILTER, 0, 0, 35, 100}, {ID_FRAME2, 35, 0, 65, 100},
    {ID_MSG_FILTER, 35, 0, 65, 100}, {ID_FRAME1, 35, 100, 65, 0},    {ID_LBL_TITLE, 35, 100, 65, 0},
    {ID_LXT_OTHER, 35, 100, 30, 0},  {ID_LBL_FROM, 35, 100, 0, 0},   {ID_TXT_FROM, 35, 100, 30, 0},
    {ID_DAT_FROM, 35, 100, 30, 0},   {ID_LBL_TO, 65, 100, 0, 0},     {ID_TXT_TO, 65, 100, 35, 0},
    {ID_DAT_TO, 65, 100, 35, 0},     {ID_DAT_DATE, 35, 100, 30, 0},  {IDOK, 100, 100, 0, 0},
    {IDCANCEL, 100, 100, 0, 0},      {ID_CMD_CLEAR, 35, 100, 0, 0},
};

constexpr Follows kTwoListsFollow[] = {
    {ID_LBL_ALL, 0, 0, 50, 0},
    {ID_ALL, 0, 0, 50, 100},
    {ID_LBL_SELECTED, 50, 0, 50, 0},
    {ID_SELECTED, 50, 0, 50, 100},
    {ID_CMD_RIGHT_ONE, 50, 50, 0, 0},
    {ID_CMD_RIGHT_ALL, 50, 50, 0, 0},
    {ID_CMD_LEFT_ONE, 50, 50, 0, 0},
    {ID_CMD_LEFT_ALL, 50, 50, 0, 0},
    {ID_CMD_SERIAL_UP, 100, 50, 0, 0},
    {ID_CMD_SERIAL_DOWN, 100, 50, 0, 0},
    {IDOK, 100, 100, 0, 0},
    {IDCANCEL, 100, 100, 0, 0},
};

class FilterWindow : public FormWindow {
 public:
  FilterWindow(HINSTANCE module, frmFilter& form, HWND& noted)
      : FormWindow(module, FRM_FILTER, kFilterFollows, form), form_(form), noted_(noted) {}
  ~FilterWindow() override { noted_ = nullptr; }

 private:
  void BindControls() override {
    noted_ = window();
    Bind(form_.Frame3, ID_FRAME3);
    Bind(form_.tvwFilter, ID_TVW_FILTER);
    Bind(form_.Frame2, ID_FRAME2);
    Bind(form_.msgFilter, ID_MSG_FILTER);
    Bind(form_.Frame1, ID_FRAME1);
    Bind(form_.lblTitle, ID_LBL_TITLE);
    Bind(form_.lxtOther, ID_LXT_OTHER);
    Bind(form_.lblFrom, ID_LBL_FROM);
    Bind(form_.txtFrom, ID_TXT_FROM);
    Bind(form_.datFrom, ID_DAT_FROM);
    Bind(form_.lblTo, ID_LBL_TO);
    Bind(form_.txtTo, ID_TXT_TO);
    Bind(form_.datTo, ID_DAT_TO);
    Bind(form_.datDate, ID_DAT_DATE);
    Bind(form_.cmdOk[0], IDOK);
    Bind(form_.cmdOk[1], IDCANCEL);
    Bind(form_.cmdOk[2], ID_CMD_CLEAR);
  }

  frmFilter& form_;
  HWND& noted_;
};

class ChooserWindow : public FormWindow {
 public:
  ChooserWindow(HINSTANCE module, frmFilterColumn& form)
      : FormWindow(module, FRM_FILTER_COLUMN, kTwoListsFollow, form), form_(form) {}

 private:
  void BindControls() override {
    Bind(form_.lblAll, ID_LBL_ALL);
    Bind(form_.msgAll, ID_ALL);
    Bind(form_.cmdRightOne, ID_CMD_RIGHT_ONE);
    Bind(form_.cmdRightAll, ID_CMD_RIGHT_ALL);
    Bind(form_.cmdLeftOne, ID_CMD_LEFT_ONE);
    Bind(form_.cmdLeftAll, ID_CMD_LEFT_ALL);
    Bind(form_.lblSelected, ID_LBL_SELECTED);
    Bind(form_.msgSelected, ID_SELECTED);
    Bind(form_.cmdOK, IDOK);
    Bind(form_.cmdCancel, IDCANCEL);
  }

  frmFilterColumn& form_;
};

class MultiChooseWindow : public FormWindow {
 public:
  MultiChooseWindow(HINSTANCE module, frmMultiChoose& form)
      : FormWindow(module, FRM_MULTI_CHOOSE, kTwoListsFollow, form), form_(form) {}

 private:
  void BindControls() override {
    Bind(form_.lblAll, ID_LBL_ALL);
    Bind(form_.lstAll, ID_ALL);
    Bind(form_.cmdRightOne, ID_CMD_RIGHT_ONE);
    Bind(form_.cmdRightAll, ID_CMD_RIGHT_ALL);
    Bind(form_.cmdLeftOne, ID_CMD_LEFT_ONE);
    Bind(form_.cmdLeftAll, ID_CMD_LEFT_ALL);
    Bind(form_.lblSelected, ID_LBL_SELECTED);
    Bind(form_.lstSelected, ID_SELECTED);
    Bind(form_.cmdSerial[0], ID_CMD_SERIAL_UP);
    Bind(form_.cmdSerial[1], ID_CMD_SERIAL_DOWN);
    Bind(form_.cmdOk, IDOK);
    Bind(form_.cmdCancel, IDCANCEL);
  }

  frmMultiChoose& form_;
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
  FilterWindow(module_, form, filter_).Run(OwnerOf(hWndOwner));
}

void Win32FormView::ShowModal(frmFilterColumn& form, const frmFilter&) {
  ChooserWindow(module_, form).Run(filter_);
}

void Win32FormView::ShowModal(frmMultiChoose& form, std::int32_t hWndOwner) {
  MultiChooseWindow(module_, form).Run(OwnerOf(hWndOwner));
}

}  // namespace fetchkit::ui
