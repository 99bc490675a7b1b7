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
  void Refresh() override;
  void OnCommand(int code) override;

 protected:
  LRESULT OnOwnMessage(UINT message, WPARAM first, LPARAM second) override;

  FormWindow& form_;

 private:
  void DrawMark();

  TextBox& box_;
  ToolTip tip_;
  bool isMarked_ = false;
};

// The keys of a search go to the box before the dialog has them.
class SearchWindow : public TextBoxWindow {
 public:
  SearchWindow(FormWindow& form, SearchBox& model, HWND window)
      : TextBoxWindow(form, model, window), search_(model) {}

 private:
  LRESULT OnOwnMessage(UINT message, WPARAM first, LPARAM second) override;

  SearchBox& search_;
};

class DateWindow : public ControlWindow {
 public:
  DateWindow(FormWindow& form, DateSpinner& model, HWND window);
  void Refresh() override;
  bool OnNotify(const NMHDR& notice, LRESULT& result) override;

 private:
  LRESULT OnOwnMessage(UINT message, WPARAM first, LPARAM second) override;

  FormWindow& form_;
  DateSpinner& date_;
};

}  // namespace fetchkit::ui
