// The window of a tree view.
#pragma once

#include <vector>

#include "component/Windows.h"
#include "component/ui/Counted.h"
#include "component/ui/FormWindow.h"
#include "fetchkit/dialogs/ControlModels.h"

namespace fetchkit::ui {

inline void DestroyImages(HIMAGELIST images) {
  ImageList_Destroy(images);
}
using Images = Counted<HIMAGELIST, DestroyImages>;

class TreeWindow : public ControlWindow {
 public:
  TreeWindow(FormWindow& form, TreeView& model, HWND window);
  ~TreeWindow() override;
  void Refresh() override;
  bool OnNotify(const NMHDR& notice, LRESULT& result) override;
  void OnLayout() override;
  void OnColors() override;

 private:
  LRESULT OnOwnMessage(UINT message, WPARAM first, LPARAM second) override;
  void DrawImages();

  FormWindow& form_;
  TreeView& tree_;
  int loaded_ = -1;  // the version of the nodes that the system has
  std::vector<HTREEITEM> items_;
  std::vector<bool> bold_;  // as the system shows them
  Images images_;
  int imageSize_ = 0;
  bool choosesItself_ = false;  // while it gets the focus without a current node
};

}  // namespace fetchkit::ui
