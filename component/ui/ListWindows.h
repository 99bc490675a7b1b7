// The windows of grids and list boxes.
#pragma once

#include <vector>

#include "component/Windows.h"
#include "component/ui/FormWindow.h"
#include "component/ui/ToolTip.h"
#include "fetchkit/dialogs/ControlModels.h"

namespace fetchkit::ui {

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
  virtual void Pressed(WORD /*key*/) {}

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
  void Pressed(WORD key) override;
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

}  // namespace fetchkit::ui
