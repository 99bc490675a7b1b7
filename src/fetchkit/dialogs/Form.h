// What all forms and controls share, and how a view stands to them.
//
// A form is a plain object made of control models that carry the names of its controls. User acts
// arrive as calls of the members named User... ; the form's handlers answer by changing models; the
// view that is attached repaints what changed. A change by program is never taken for a change by
// hand: the setters of a model call no handler. So every rule of a dialog is played on the models
// without a window, and a view stays a dumb rim. One thread only.
#pragma once

#include <cstdint>
#include <vector>

#include "fetchkit/base/Text.h"

namespace fetchkit {

class Control;
class Form;

// A view, as a form sees it. Called in the midst of the form's work: a view notes what is to be
// repainted or repaints it from the model; what its own windows report meanwhile must not come back
// as an act of the user (a selection by program, a box that loses the focus because it was hidden).
class FormObserver {
 public:
  virtual ~FormObserver() = default;

  // Anything that the model of the control says may be different now, Visible, Enabled, Caption and
  // ToolTipText included.
  virtual void Changed(Control& control) = 0;

  // The focus is to move to that control, see Form::TakeFocusWish.
  virtual void FocusWanted(Control& control) = 0;

  // The form has closed itself; ShowModal is to return.
  virtual void Closed(Form& form) = 0;
};

class Form {
 public:
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  const Text& Name() const { return name_; }
  const Text& Caption() const { return caption_; }  // no access keys: an "&" is shown

  // All controls in the order in which the Tab key walks them, frames and labels just in front of
  // what they name; control arrays by index.
  const std::vector<Control*>& Controls() const { return controls_; }

  // Not owned; null detaches. At most one.
  void Attach(FormObserver* observer) { observer_ = observer; }

  bool IsOpen() const { return open_; }

  // The control that is to get the focus, a text box with all of its text selected, or null; the
  // wish is forgotten by asking. A view that moves the focus later (it must, while a window is
  // losing it) asks then: the form takes a wish back when the user goes on elsewhere.
  Control* TakeFocusWish();

  // Acts of the user that concern the form as a whole.
  virtual void UserPressedEnter() = 0;   // the default button
  virtual void UserPressedEscape() = 0;  // the cancel button
  virtual void UserClosed() = 0;         // the close box; also what a view does whose owner is gone

 protected:
  Form(TextView name, TextView caption) : name_(name), caption_(caption) {}

  void SetCaption(Text caption) { caption_ = std::move(caption); }  // before it is shown
  void SetTabOrder(std::vector<Control*> controls) { controls_ = std::move(controls); }
  void Open() { open_ = true; }
  void Close();
  void DropFocusWish() { focusWish_ = nullptr; }

  // What the user asked for is not done, and no box says so: the users know the dialogs that way.
  // The diagnostics sink hears of it as a note named by the form and the warning, and WriteLog
  // finds it as the last error.
  void RefuseSilently(TextView warning) const;

 private:
  friend class Control;

  Text name_;
  Text caption_;
  std::vector<Control*> controls_;
  FormObserver* observer_ = nullptr;
  Control* focusWish_ = nullptr;
  bool open_ = false;
};

// Base of the control models.
class Control {
 public:
  // index: the place in a control array, -1 for a single control. form must outlive the control.
  Control(Form& form, TextView name, TextView caption = {}, int index = -1)
      : form_(form), name_(name), caption_(caption), index_(index) {}
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  const Text& Name() const { return name_; }
  int Index() const { return index_; }

  // With an access key behind "&" on frames, buttons and labels that have one; "&&" is one "&".
  const Text& Caption() const { return caption_; }
  void Caption(Text caption) { Set(caption_, std::move(caption)); }

  bool Visible() const { return visible_; }
  void Visible(bool visible) { Set(visible_, visible); }

  bool Enabled() const { return enabled_; }
  void Enabled(bool enabled) { Set(enabled_, enabled); }

  // Also the text alternative of a control that shows a picture.
  const Text& ToolTipText() const { return toolTip_; }
  void ToolTipText(Text text) { Set(toolTip_, std::move(text)); }

  void SetFocus();

  // Whether the Tab key stops here when it is visible and enabled.
  virtual bool TakesFocus() const { return true; }

 protected:
  void Changed();

  // The user goes on to the control behind this one, or back to the one in front of it. A wish that
  // stands already is where going on leads.
  void MoveFocusOn(bool back);
  void DropFocusWish() { form_.DropFocusWish(); }

  // Whether the user can act on it; acts on other controls, and on a form that has closed, are
  // ignored.
  bool TakesActs() const { return visible_ && enabled_ && form_.open_; }

  template <class T>
  void Set(T& member, T value) {
    if (member == value) return;
    member = std::move(value);
    Changed();
  }

 private:
  Form& form_;
  Text name_;
  Text caption_;
  Text toolTip_;
  int index_;
  bool visible_ = true;
  bool enabled_ = true;
};

}  // namespace fetchkit
