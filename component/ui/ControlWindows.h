// The windows of the simple controls: captions, buttons, text boxes, dates.
#pragma once

#include "component/Windows.h"
#include "component/ui/FormWindow.h"
#include "component/ui/ToolTip.h"
#include "fetchkit/dialogs/ControlModels.h"

namespace fetchkit::ui {

// Frames and labels: a caption.
class CaptionWindow : public ControlWindow {
 public:
  using ControlWindow::ControlWindow;
  void Refresh() override;
};

// The caption stands in the dialog template, with its access key. Where it is but a sign, the
// model's tool tip says it in words.
class ButtonWindow : public ControlWindow {
 public:
  ButtonWindow(CommandButton& model, HWND window)
      : ControlWindow(model, window), button_(model), tip_(window) {}
  void Refresh() override;
  void OnCommand(int code) override;

 private:
  CommandButton& button_;
  ToolTip tip_;
};

class TextBoxWindow : public ControlWindow {
 public:
  TextBoxWindow(FormWindow& form, TextBox& model, HWND window);
  ~TextBoxWindow() override;
  void Refresh() override;
  void OnCommand(int code) override;

 private:
  static LRESULT CALLBACK Subclass(HWND window, UINT message, WPARAM first, LPARAM second,
                                   UINT_PTR id, DWORD_PTR self);
  void DrawMark();

  FormWindow& form_;
  TextBox& box_;
  ToolTip tip_;
  bool isMarked_ = false;
};

class DateWindow : public ControlWindow {
 public:
  DateWindow(FormWindow& form, DateSpinner& model, HWND window);
  ~DateWindow() override;
  void Refresh() override;
  bool OnNotify(const NMHDR& notice, LRESULT& result) override;

 private:
  static LRESULT CALLBACK Subclass(HWND window, UINT message, WPARAM first, LPARAM second,
                                   UINT_PTR id, DWORD_PTR self);
  FormWindow& form_;
  DateSpinner& date_;
};

}  // namespace fetchkit::ui
