// The window of a picker.
#pragma once

#include <vector>

#include "component/Windows.h"
#include "component/ui/FormWindow.h"
#include "fetchkit/dialogs/PickCombo.h"

namespace fetchkit::ui {

// The system's list knows how many rows there are; what stands in them is the model's.
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
  static LRESULT CALLBACK ListSubclass(HWND list, UINT message, WPARAM first, LPARAM second,
                                       UINT_PTR id, DWORD_PTR self);
  LRESULT OnOwnMessage(UINT message, WPARAM first, LPARAM second) override;
  bool Pressed(WPARAM key);
  void Typed(wchar_t letter);
  bool IsListShown() const;
  void ShowList(bool open);
  void LoadRows();
  void MeasureColumns();

  FormWindow& form_;
  PickCombo& pick_;
  HWND systemsList_;
  int loaded_ = -1;                // the version of the list whose number the system has
  int measured_ = -1;              // and that the columns are as wide as
  std::vector<int> columnWidths_;  // of the shown columns, in pixels
  int picked_ = -1;                // the row of a choice that has been posted
  Text typed_;
  DWORD typedAt_ = 0;
};

}  // namespace fetchkit::ui
