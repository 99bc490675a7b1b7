// The window of a picker.
#pragma once

#include <vector>

#include "component/Windows.h"
#include "component/ui/FormWindow.h"
#include "fetchkit/dialogs/PickCombo.h"

namespace fetchkit::ui {

class PickWindow : public ControlWindow {
 public:
  PickWindow(FormWindow& form, PickCombo& model, HWND window);
  void Refresh() override;
  void OnCommand(int code) override;
  void OnDraw(const DRAWITEMSTRUCT& drawing) override;
  void OnLayout() override;
  void OnLater() override;

 private:
  LRESULT OnOwnMessage(UINT message, WPARAM first, LPARAM second) override;
  bool Pressed(WPARAM key);
  void Typed(wchar_t letter);
  bool IsListShown() const;
  void ShowList(bool open);
  void MeasureColumns();

  FormWindow& form_;
  PickCombo& pick_;
  int loaded_ = -1;                // the version of the list that the system has
  std::vector<int> columnWidths_;  // of the shown columns, in pixels
  int picked_ = -1;                // the row of a choice that has been posted
  Text typed_;
  DWORD typedAt_ = 0;
};

}  // namespace fetchkit::ui
