// A form in a real window.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <span>
#include <utility>

#include "component/ui/Dialog.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/dialogs/Form.h"

namespace fetchkit::ui {

// One control's window. Notices that come while it is being brought up to date are the program's
// own doing and do not reach it.
class ControlWindow {
 public:
  ControlWindow(Control& model, HWND window) : model_(model), window_(window) {}
  virtual ~ControlWindow();
  ControlWindow(const ControlWindow&) = delete;
  ControlWindow& operator=(const ControlWindow&) = delete;

  Control& model() const { return model_; }
  HWND window() const { return window_; }

  // From the model to the window; the base does what all controls share.
  virtual void Refresh();
  virtual void OnCommand(int /*code*/) {}
  virtual bool OnNotify(const NMHDR& /*notice*/, LRESULT& /*result*/) { return false; }
  virtual void OnDraw(const DRAWITEMSTRUCT& /*drawing*/) {}
  // The size, the font or the resolution has changed.
  virtual void OnLayout() {}
  // The system's colours have changed.
  virtual void OnColors() {}
  // What PostLater has asked for.
  virtual void OnLater() {}

 protected:
  // From then on the window's own messages come to OnOwnMessage first, whose end is the system's
  // answer. An error in it is noted and answers with 0.
  void Listen();
  virtual LRESULT OnOwnMessage(UINT message, WPARAM first, LPARAM second);

 private:
  static LRESULT CALLBACK Subclass(HWND window, UINT message, WPARAM first, LPARAM second,
                                   UINT_PTR id, DWORD_PTR self);

  Control& model_;
  HWND window_;
};

// Shows a form in a dialog template, whose list of controls says which of them shows which of the
// form's, and passes on what the user does. What a handler changes in the models is drawn when the
// handler has ended.
class FormWindow : public Dialog, private FormObserver {
 public:
  FormWindow(HINSTANCE module, const DialogKind& kind, Form& form);
  ~FormWindow() override;

  // Shows the form until it is closed; a form whose owner goes, or that cannot be shown, counts as
  // closed by the user.
  void Run(HWND owner);

  // For the controls' windows.
  bool IsRefreshing() const { return refreshing_; }
  void PostLater(ControlWindow& control);
  // Runs an act that did not come as a message to the form's window.
  template <class Body>
  void Act(Body&& body) {
    Step(u"dialog", body);
    Step(u"dialog", [this] { OnHandled(); });
  }
  // What the windows tell meanwhile is the program's own doing.
  template <class Body>
  void Quietly(Body&& body) {
    const Quiet quiet(refreshing_);
    body();
  }
  Control* ModelOf(HWND window) const;
  using Dialog::Pixels;
  using Dialog::PixelsOfTwips;
  using Dialog::SetAlone;

 private:
  // For the length of a scope, however it is left.
  class Quiet {
   public:
    explicit Quiet(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~Quiet() { flag_ = before_; }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

   private:
    bool& flag_;
    bool before_;
  };

  void OnInit() final;
  void OnCommand(int id, int code) final;
  bool OnNotify(const NMHDR& notice, LRESULT& result) final;
  bool OnMessage(UINT message, WPARAM first, LPARAM second, LRESULT& result) final;
  void OnLayout() final;
  void OnCancel() final { form_.UserPressedEscape(); }
  void OnHandled() final;

  void Changed(Control& control) final { changed_.insert(&control); }
  void FocusWanted(Control& control) final;
  void Closed(Form& form) final;

  std::unique_ptr<ControlWindow> WindowFor(Control& model, HWND window);
  void RefreshChanged();

  Form& form_;
  std::map<int, std::unique_ptr<ControlWindow>> controls_;  // by number
  std::map<const Control*, ControlWindow*> byModel_;
  std::set<Control*> changed_;
  bool refreshing_ = false;
};

}  // namespace fetchkit::ui
