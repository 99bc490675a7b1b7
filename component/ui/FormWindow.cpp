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

constexpr UINT_PTR kSubclass = 1;

}  // namespace

ControlWindow::~ControlWindow() {
  RemoveWindowSubclass(window_, Subclass, kSubclass);
}

void ControlWindow::Listen() {
  SetWindowSubclass(window_, Subclass, kSubclass, reinterpret_cast<DWORD_PTR>(this));
}

LRESULT CALLBACK ControlWindow::Subclass(HWND window, UINT message, WPARAM first, LPARAM second,
                                         UINT_PTR, DWORD_PTR self) {
  // The last message: what is not taken off now stays in memory, because the window is gone when
  // its holder goes.
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, Subclass, kSubclass);
  LRESULT result = 0;
  Step(u"dialog", [&] {
    result = reinterpret_cast<ControlWindow*>(self)->OnOwnMessage(message, first, second);
  });
  return result;
}

LRESULT ControlWindow::OnOwnMessage(UINT message, WPARAM first, LPARAM second) {
  return DefSubclassProc(window_, message, first, second);
}

void ControlWindow::Refresh() {
  const bool visible = (GetWindowLongPtrW(window_, GWL_STYLE) & WS_VISIBLE) != 0;
  // The keyboard must not stay with a control that takes no more keys.
  if (GetFocus() == window_ && !(model_.Visible() && model_.Enabled()))
    SendMessageW(GetParent(window_), WM_NEXTDLGCTL, 0, FALSE);
  if (visible != model_.Visible()) ShowWindow(window_, model_.Visible() ? SW_SHOWNA : SW_HIDE);
  if ((IsWindowEnabled(window_) != FALSE) != model_.Enabled())
    EnableWindow(window_, model_.Enabled());
}

FormWindow::FormWindow(HINSTANCE module, const DialogKind& kind, Form& form)
    : Dialog(module, kind), form_(form) {
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
  for (const TemplateControl& each : templateControls()) {
    for (Control* model : form_.Controls()) {
      if (model->Name() != each.name || model->Index() != each.index) continue;
      auto& control = controls_[each.id] = WindowFor(*model, Window(each.id));
      byModel_[model] = control.get();
      changed_.insert(model);
    }
  }
}

std::unique_ptr<ControlWindow> FormWindow::WindowFor(Control& model, HWND window) {
  if (auto* button = dynamic_cast<CommandButton*>(&model))
    return std::make_unique<ButtonWindow>(*button, window);
  if (auto* search = dynamic_cast<SearchBox*>(&model))
    return std::make_unique<SearchWindow>(*this, *search, window);
  if (auto* box = dynamic_cast<TextBox*>(&model))
    return std::make_unique<TextBoxWindow>(*this, *box, window);
  if (auto* date = dynamic_cast<DateSpinner*>(&model))
    return std::make_unique<DateWindow>(*this, *date, window);
  if (auto* tree = dynamic_cast<TreeView*>(&model))
    return std::make_unique<TreeWindow>(*this, *tree, window);
  if (auto* grid = dynamic_cast<MSFlexGrid*>(&model))
    return std::make_unique<GridWindow>(*this, *grid, window);
  if (auto* list = dynamic_cast<ListBox*>(&model))
    return std::make_unique<ListBoxWindow>(*this, *list, window);
  if (auto* pick = dynamic_cast<PickCombo*>(&model))
    return std::make_unique<PickWindow>(*this, *pick, window);
  return std::make_unique<CaptionWindow>(model, window);
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
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
      for (const auto& [id, control] : controls_) {
        // The system tells the colours to windows of the top alone.
        if (message == WM_SYSCOLORCHANGE) SendMessageW(control->window(), message, first, second);
        control->OnColors();
      }
      return false;
    case kMoveFocus:
      if (const Control* wanted = form_.TakeFocusWish()) {
        if (const auto found = byModel_.find(wanted); found != byModel_.end()) {
          const HWND control = found->second->window();
          SendMessageW(window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
          // The dialog does that only for a box that had not the focus yet.
          if (dynamic_cast<const TextBox*>(wanted)) SendMessageW(control, EM_SETSEL, 0, -1);
        }
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
  Quietly([this] {
    for (const auto& [id, control] : controls_)
      control->OnLayout();
  });
}

// Models that a handler has changed are drawn once, however often they changed.
void FormWindow::OnHandled() {
  if (!refreshing_ && window()) RefreshChanged();
}

void FormWindow::RefreshChanged() {
  const Quiet quiet(refreshing_);
  while (!changed_.empty()) {
    const auto changed = std::exchange(changed_, {});
    for (const Control* model : changed)
      if (const auto found = byModel_.find(model); found != byModel_.end())
        Step(u"dialog", [&] { found->second->Refresh(); });
  }
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

}  // namespace fetchkit::ui
