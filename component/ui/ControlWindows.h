// The windows of the controls, one class per kind of model.
#pragma once

#include "component/Windows.h"

#include <vector>

#include "component/ui/Counted.h"
#include "component/ui/FormWindow.h"

namespace fetchkit::ui {

inline void DestroyImages(HIMAGELIST images) {
  ImageList_Destroy(images);
}
using Images = Counted<HIMAGELIST, DestroyImages>;

inline void DestroyTip(HWND tip) {
  DestroyWindow(tip);
}

// The small window that explains a control while the pointer rests on it. There is none while the
// text is empty.
class ToolTip {
 public:
  explicit ToolTip(HWND control) : control_(control) {}
  void SetText(const Text& text);

 private:
  HWND control_;
  Counted<HWND, DestroyTip> window_;
  Text text_;
};

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
  FormWindow& form_;
  TextBox& box_;
};

class DateWindow : public ControlWindow {
 public:
  DateWindow(FormWindow& form, DateSpinner& model, HWND window);
  void Refresh() override;
  bool OnNotify(const NMHDR& notice, LRESULT& result) override;

 private:
  FormWindow& form_;
  DateSpinner& date_;
};

class TreeWindow : public ControlWindow {
 public:
  TreeWindow(FormWindow& form, TreeView& model, HWND window);
  ~TreeWindow() override;
  void Refresh() override;
  bool OnNotify(const NMHDR& notice, LRESULT& result) override;
  void OnLayout() override;

 private:
  FormWindow& form_;
  TreeView& tree_;
  std::vector<HTREEITEM> items_;
  Images images_;
  int imageSize_ = 0;
};

// A list whose rows are drawn from the model when they come into sight, so that their number does
// not matter.
class RowsWindow : public ControlWindow {
 public:
  RowsWindow(FormWindow& form, Control& model, HWND window);
  bool OnNotify(const NMHDR& notice, LRESULT& result) override;
  void OnLayout() override;

 protected:
  virtual int RowCount() const = 0;
  virtual const Text& CellText(int row, int column) const = 0;
  virtual void Selected(int row) = 0;
  virtual void DoubleClicked(int row) = 0;
  virtual void PressedDelete() {}

  // Number, selection and texts of the rows.
  void RefreshRows(int selected);
  // The last column takes what the others leave.
  void SetColumns(std::vector<int> widths, const std::vector<Text>& captions);

  FormWindow& form_;

 private:
  int Find(const NMLVFINDITEMW& wanted) const;

  std::vector<int> widths_;
  LONG clientWidth_ = 0;  // that the columns were laid out for
  Text shown_;            // holds a text while the system copies it
};

class GridWindow : public RowsWindow {
 public:
  GridWindow(FormWindow& form, MSFlexGrid& model, HWND window) noexcept(false);
  void Refresh() override;
  void OnLayout() override;

 private:
  int RowCount() const override;
  const Text& CellText(int row, int column) const override;
  void Selected(int row) override;
  void DoubleClicked(int row) override;
  void PressedDelete() override;
  void ReadColumns();

  MSFlexGrid& grid_;
  std::vector<int> visible_;  // the grid's columns that have a width
  std::vector<int> twips_;
};

class ListBoxWindow : public RowsWindow {
 public:
  ListBoxWindow(FormWindow& form, ListBox& model, HWND window);
  ~ListBoxWindow() override;
  void Refresh() override;
  void OnLayout() override;

 private:
  static LRESULT CALLBACK Subclass(HWND window, UINT message, WPARAM first, LPARAM second,
                                   UINT_PTR id, DWORD_PTR self);
  int RowCount() const override;
  const Text& CellText(int row, int column) const override;
  void Selected(int row) override;
  void DoubleClicked(int row) override;
  void PointerMoved(int y);

  ListBox& list_;
  ToolTip tip_;
};

class PickWindow : public ControlWindow {
 public:
  PickWindow(FormWindow& form, PickCombo& model, HWND window);
  ~PickWindow() override;
  void Refresh() override;
  void OnCommand(int code) override;
  void OnDraw(const DRAWITEMSTRUCT& drawing) override;
  void OnLayout() override;
  void OnLater() override;

 private:
  static LRESULT CALLBACK Subclass(HWND window, UINT message, WPARAM first, LPARAM second,
                                   UINT_PTR id, DWORD_PTR self);
  void Typed(wchar_t letter);
  void MeasureColumns();
  void PickLater();

  FormWindow& form_;
  PickCombo& pick_;
  int loaded_ = -1;                // the version of the list that the system has
  std::vector<int> columnWidths_;  // of the shown columns, in pixels
  bool isOpen_ = false;
  bool pickPosted_ = false;
  Text typed_;
  DWORD typedAt_ = 0;
};

}  // namespace fetchkit::ui
