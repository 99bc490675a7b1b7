#include "component/ui/FormWindow.h"

#include <utility>

#include "component/ui/ControlWindows.h"
#include "component/ui/ListWindows.h"
#include "component/ui/PickWindow.h"
#include "component/ui/TreeWindow.h"

namespace fetchkit::ui {
namespace {

// Messages of the window to itself.
constexpr UINT kMoveFocus = WM_APP + 1;
constexpr UINT kLater = WM_APP + 2;

}  // namespace

void ControlWindow::Refresh() {
  const bool visible = (GetWindowLongPtrW(window_, GWL_STYLE) & WS_VISIBLE) != 0;
  // The keyboard must not stay with a control that takes no more keys.
  if (GetFocus() == window_ && !(model_.Visible() && model_.Enabled()))
    SendMessageW(GetParent(window_), WM_NEXTDLGCTL, 0, FALSE);
  if (visible != model_.Visible()) ShowWindow(window_, model_.Visible() ? SW_SHOWNA : SW_HIDE);
  if ((IsWindowEnabled(window_) != FALSE) != model_.Enabled())
    EnableWindow(window_, model_.Enabled());
}

FormWindow::FormWindow(HINSTANCE module, int templateId, std::span<const Follows> follows,
                       Form& form)
    : Dialog(module, templateId, follows), form_(form) {
  form_.Attach(this);
}

FormWindow::~FormWindow() {
  form_.Attach(nullptr);
}

void FormWindow::Run(HWND owner) {
  ShowModal(owner);
  controls_.clear();
  byModel_.clear();
  if (form_.IsOpen()) form_.UserClosed();
}

void FormWindow::OnInit() {
  const Text caption = form_.Caption();
  SetWindowTextW(window(), reinterpret_cast<const wchar_t*>(caption.c_str()));
  BindControls();
  for (const auto& [id, control] : controls_)
    changed_.insert(&control->model());
}

void FormWindow::OnCommand(int id, int code) {
  if (refreshing_) return;
  if (id == IDOK) {
    form_.UserPressedEnter();
    return;
  }
  if (const auto found = controls_.find(id); found != controls_.end())
    found->second->OnCommand(code);
}

bool FormWindow::OnNotify(const NMHDR& notice, LRESULT& result) {
  const auto found = controls_.find(static_cast<int>(notice.idFrom));
  return found != controls_.end() && found->second->OnNotify(notice, result);
}

bool FormWindow::OnMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) {
  switch (message) {
    case WM_DRAWITEM: {
      const auto& drawing = *reinterpret_cast<const DRAWITEMSTRUCT*>(second);
      const auto found = controls_.find(static_cast<int>(drawing.CtlID));
      if (found == controls_.end()) return false;
      found->second->OnDraw(drawing);
      result = TRUE;
      return true;
    }
    case kMoveFocus:
      if (const Control* wanted = form_.TakeFocusWish()) {
        if (const auto found = byModel_.find(wanted); found != byModel_.end())
          SendMessageW(window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(found->second->window()),
                       TRUE);
      }
      return true;
    case kLater:
      if (const auto found = controls_.find(static_cast<int>(first)); found != controls_.end())
        found->second->OnLater();
      return true;
    default:
      return false;
  }
}

void FormWindow::OnLayout() {
  const bool before = std::exchange(refreshing_, true);
  for (const auto& [id, control] : controls_)
    control->OnLayout();
  refreshing_ = before;
}

// Models that a handler has changed are drawn once, however often they changed.
void FormWindow::OnHandled() {
  if (!refreshing_ && window()) RefreshChanged();
}

void FormWindow::RefreshChanged() {
  refreshing_ = true;
  while (!changed_.empty()) {
    const auto changed = std::exchange(changed_, {});
    for (const Control* model : changed)
      if (const auto found = byModel_.find(model); found != byModel_.end())
        found->second->Refresh();
  }
  refreshing_ = false;
}

void FormWindow::FocusWanted(Control&) {
  // Later: a window that is just losing the focus must not be given it back at once.
  if (window()) PostMessageW(window(), kMoveFocus, 0, 0);
}

void FormWindow::Closed(Form&) {
  Close();
}

void FormWindow::PostLater(ControlWindow& control) {
  PostMessageW(window(), kLater, static_cast<WPARAM>(GetDlgCtrlID(control.window())), 0);
}

Control* FormWindow::ModelOf(HWND window) const {
  const auto found = controls_.find(window ? GetDlgCtrlID(window) : 0);
  const bool ours = found != controls_.end() && found->second->window() == window;
  return ours ? &found->second->model() : nullptr;
}

void FormWindow::Add(int id, std::unique_ptr<ControlWindow> control) {
  byModel_[&control->model()] = control.get();
  controls_[id] = std::move(control);
}

void FormWindow::Bind(Frame& model, int id) {
  Add(id, std::make_unique<CaptionWindow>(model, Window(id)));
}

void FormWindow::Bind(Label& model, int id) {
  Add(id, std::make_unique<CaptionWindow>(model, Window(id)));
}

void FormWindow::Bind(CommandButton& model, int id) {
  Add(id, std::make_unique<ButtonWindow>(model, Window(id)));
}

void FormWindow::Bind(TextBox& model, int id) {
  Add(id, std::make_unique<TextBoxWindow>(*this, model, Window(id)));
}

void FormWindow::Bind(DateSpinner& model, int id) {
  Add(id, std::make_unique<DateWindow>(*this, model, Window(id)));
}

void FormWindow::Bind(TreeView& model, int id) {
  Add(id, std::make_unique<TreeWindow>(*this, model, Window(id)));
}

void FormWindow::Bind(MSFlexGrid& model, int id) {
  Add(id, std::make_unique<GridWindow>(*this, model, Window(id)));
}

void FormWindow::Bind(ListBox& model, int id) {
  Add(id, std::make_unique<ListBoxWindow>(*this, model, Window(id)));
}

void FormWindow::Bind(PickCombo& model, int id) {
  Add(id, std::make_unique<PickWindow>(*this, model, Window(id)));
}

}  // namespace fetchkit::ui
