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
  RowsWindow(FormWindow& form, RowControl& model, HWND window);
  bool OnNotify(const NMHDR& notice, LRESULT& result) override;
  void OnLayout() override;
  void OnColors() override;
  void OnLater() override;

 protected:
  virtual const Text& CellText(int row, int column) const = 0;
  // Of the model's rows, those that are headers.
  virtual int Headers() const { return 0; }
  virtual void PointerMoved(int /*y*/) {}

  // Number, selection and texts of the rows.
  void RefreshRows();
  // The last column takes what the others leave.
  void SetColumns(std::vector<int> widths, const std::vector<Text>& captions);

  FormWindow& form_;

 private:
  LRESULT OnOwnMessage(UINT message, WPARAM first, LPARAM second) override;
  int Find(const NMLVFINDITEMW& wanted) const;
  bool Pressed(WPARAM key);
  std::vector<int> ShownSelection() const;
  bool IsShown(const std::vector<int>& selection) const;

  RowControl& rows_;
  bool selectionPosted_ = false;
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
  const Text& CellText(int row, int column) const override;
  int Headers() const override { return grid_.FixedRows(); }
  void ReadColumns();

  MSFlexGrid& grid_;
  std::vector<int> visible_;  // the grid's columns that have a width
  std::vector<int> twips_;
};

class ListBoxWindow : public RowsWindow {
 public:
  ListBoxWindow(FormWindow& form, ListBox& model, HWND window);
  void Refresh() override;
  void OnLayout() override;

 private:
  const Text& CellText(int row, int column) const override;
  void PointerMoved(int y) override;

  ListBox& list_;
  ToolTip tip_;
};

}  // namespace fetchkit::ui
