#include "component/ui/TreeWindow.h"

#include <utility>

#include "component/ui/WindowTexts.h"

namespace fetchkit::ui {
namespace {

// A closed folder, the one picture of the tree.
HIMAGELIST DrawClosedFolder(int size) {
  const HIMAGELIST images = ImageList_Create(size, size, ILC_COLOR24 | ILC_MASK, 1, 0);
  if (!images) return nullptr;
  constexpr COLORREF kBehind = RGB(255, 0, 255);
  const HDC screen = GetDC(nullptr);
  const HDC device = CreateCompatibleDC(screen);
  const HBITMAP picture = CreateCompatibleBitmap(screen, size, size);
  ReleaseDC(nullptr, screen);
  const HGDIOBJ bitmapBefore = SelectObject(device, picture);
  const RECT whole{0, 0, size, size};
  const HBRUSH behind = CreateSolidBrush(kBehind);
  FillRect(device, &whole, behind);
  DeleteObject(behind);
  const HBRUSH paper = CreateSolidBrush(RGB(255, 217, 102));
  const HPEN edge = CreatePen(PS_SOLID, 1, RGB(166, 124, 0));
  const HGDIOBJ brushBefore = SelectObject(device, paper);
  const HGDIOBJ penBefore = SelectObject(device, edge);
  const auto part = [size](int sixteenths) { return size * sixteenths / 16; };
  Rectangle(device, part(1), part(3), part(8), part(7));
  Rectangle(device, part(1), part(5), part(15), part(14));
  SelectObject(device, penBefore);
  SelectObject(device, brushBefore);
  SelectObject(device, bitmapBefore);
  DeleteObject(edge);
  DeleteObject(paper);
  DeleteDC(device);
  ImageList_AddMasked(images, picture, kBehind);
  DeleteObject(picture);
  return images;
}

}  // namespace

TreeWindow::TreeWindow(FormWindow& form, TreeView& model, HWND window)
    : ControlWindow(model, window), form_(form), tree_(model) {
  OnLayout();
}

TreeWindow::~TreeWindow() {
  TreeView_SetImageList(window(), nullptr, TVSIL_NORMAL);
}

void TreeWindow::OnLayout() {
  if (imageSize_ == form_.Pixels(16)) return;
  imageSize_ = form_.Pixels(16);
  Images images(DrawClosedFolder(imageSize_));
  TreeView_SetImageList(window(), images.get(), TVSIL_NORMAL);
  images_ = std::move(images);
}

void TreeWindow::Refresh() {
  ControlWindow::Refresh();
  const auto& nodes = tree_.Nodes();
  if (items_.size() != nodes.size()) {
    SendMessageW(window(), WM_SETREDRAW, FALSE, 0);
    TreeView_DeleteAllItems(window());
    items_.clear();
    for (const TreeView::Node& node : nodes) {
      TVINSERTSTRUCTW item{};
      item.hParent = TVI_ROOT;
      item.hInsertAfter = TVI_LAST;
      item.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM;
      item.item.pszText = Editable(node.Text);
      item.item.lParam = static_cast<LPARAM>(items_.size());
      items_.push_back(reinterpret_cast<HTREEITEM>(
          SendMessageW(window(), TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item))));
    }
    SendMessageW(window(), WM_SETREDRAW, TRUE, 0);
  }
  const int selected = tree_.SelectedItem();
  const HTREEITEM wanted = selected < 0 ? nullptr : items_[static_cast<std::size_t>(selected)];
  if (TreeView_GetSelection(window()) != wanted) TreeView_SelectItem(window(), wanted);
}

bool TreeWindow::OnNotify(const NMHDR& notice, LRESULT&) {
  if (form_.IsRefreshing()) return false;
  if (notice.code == TVN_SELCHANGEDW) {
    const auto& change = reinterpret_cast<const NMTREEVIEWW&>(notice);
    if (change.itemNew.hItem) tree_.UserClickedNode(static_cast<int>(change.itemNew.lParam));
    return true;
  }
  if (notice.code == NM_CLICK) {
    // The selected node again, of which the system tells no change.
    TVHITTESTINFO hit{};
    const DWORD at = GetMessagePos();
    hit.pt = {GET_X_LPARAM(at), GET_Y_LPARAM(at)};
    ScreenToClient(window(), &hit.pt);
    const HTREEITEM item = TreeView_HitTest(window(), &hit);
    if (item && (hit.flags & TVHT_ONITEM) != 0 && item == TreeView_GetSelection(window()))
      tree_.UserClickedNode(tree_.SelectedItem());
  }
  return false;
}

}  // namespace fetchkit::ui
