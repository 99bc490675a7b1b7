#include "component/ui/TreeWindow.h"

#include <algorithm>
#include <utility>

#include "component/ui/WindowTexts.h"

namespace fetchkit::ui {
namespace {

using Picture = TreeView::Picture;
constexpr int kPictures = static_cast<int>(Picture::YesNo) + 1;

// By kind, and behind them the inverted ones.
int ImageOf(const TreeView::Node& node) {
  return static_cast<int>(node.Shows) + (node.Bold ? kPictures : 0);
}

// A sheet with a sign on it, drawn in a square of sixteen units.
void DrawPicture(HDC device, int left, int size, Picture picture, bool inverted) {
  const int sign = inverted ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT;
  const auto part = [size](int sixteenths) { return size * sixteenths / 16; };
  const auto fill = [&](int x1, int y1, int x2, int y2, int color) {
    const RECT place{left + part(x1), part(y1), left + part(x2), part(y2)};
    FillRect(device, &place, GetSysColorBrush(color));
  };
  RECT whole{left, 0, left + size, size};
  FillRect(device, &whole, GetSysColorBrush(COLOR_WINDOW));
  RECT sheet{left + part(1), part(1), left + part(15), part(15)};
  FillRect(device, &sheet, GetSysColorBrush(inverted ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  FrameRect(device, &sheet, GetSysColorBrush(inverted ? COLOR_HIGHLIGHT : COLOR_GRAYTEXT));
  switch (picture) {
    case Picture::Words:
    case Picture::Number: {
      const HFONT font = CreateFontW(-part(10), 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE,
                                     DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                     DEFAULT_QUALITY, DEFAULT_PITCH, L"MS Shell Dlg");
      const HGDIOBJ before = SelectObject(device, font);
      SetBkMode(device, TRANSPARENT);
      SetTextColor(device, GetSysColor(sign));
      DrawTextW(device, picture == Picture::Words ? L"A" : L"#", 1, &sheet,
                DT_CENTER | DT_VCENTER | DT_SINGLELINE);
      SelectObject(device, before);
      DeleteObject(font);
      break;
    }
    case Picture::Date:
      fill(3, 4, 13, 6, sign);
      for (const int x : {4, 7, 10})
        fill(x, 9, x + 2, 11, sign);
      break;
    case Picture::List:
      for (const int y : {4, 7, 10}) {
        fill(4, y, 6, y + 2, sign);
        fill(7, y, 12, y + 2, sign);
      }
      break;
    case Picture::YesNo: {
      const HPEN pen = CreatePen(PS_SOLID, part(2), GetSysColor(sign));
      const HGDIOBJ before = SelectObject(device, pen);
      MoveToEx(device, left + part(4), part(8), nullptr);
      LineTo(device, left + part(7), part(11));
      LineTo(device, left + part(12), part(5));
      SelectObject(device, before);
      DeleteObject(pen);
      break;
    }
  }
}

HIMAGELIST DrawPictures(int size) {
  constexpr int kCount = 2 * kPictures;
  const HIMAGELIST images = ImageList_Create(size, size, ILC_COLOR24, kCount, 0);
  if (!images) return nullptr;
  const HDC screen = GetDC(nullptr);
  const HDC device = CreateCompatibleDC(screen);
  const HBITMAP strip = CreateCompatibleBitmap(screen, kCount * size, size);
  ReleaseDC(nullptr, screen);
  const HGDIOBJ before = SelectObject(device, strip);
  for (int image = 0; image < kCount; ++image)
    DrawPicture(device, image * size, size, static_cast<Picture>(image % kPictures),
                image >= kPictures);
  SelectObject(device, before);
  DeleteDC(device);
  ImageList_Add(images, strip, nullptr);
  DeleteObject(strip);
  return images;
}

}  // namespace

TreeWindow::TreeWindow(FormWindow& form, TreeView& model, HWND window)
    : ControlWindow(model, window), form_(form), tree_(model) {
  // Nodes change with each letter of a search.
  SendMessageW(window, TVM_SETEXTENDEDSTYLE, TVS_EX_DOUBLEBUFFER, TVS_EX_DOUBLEBUFFER);
  OnLayout();
  Listen();
}

TreeWindow::~TreeWindow() {
  TreeView_SetImageList(window(), nullptr, TVSIL_NORMAL);
}

void TreeWindow::OnLayout() {
  if (imageSize_ == form_.Pixels(16)) return;
  imageSize_ = form_.Pixels(16);
  DrawImages();
}

void TreeWindow::OnColors() {
  DrawImages();
  InvalidateRect(window(), nullptr, TRUE);
}

void TreeWindow::DrawImages() {
  Images images(DrawPictures(imageSize_));
  TreeView_SetImageList(window(), images.get(), TVSIL_NORMAL);
  images_ = std::move(images);
}

void TreeWindow::Refresh() {
  ControlWindow::Refresh();
  const auto& nodes = tree_.Nodes();
  if (loaded_ != tree_.NodesVersion()) {
    items_.reserve(nodes.size());
    bold_.reserve(nodes.size());
    SendMessageW(window(), WM_SETREDRAW, FALSE, 0);
    TreeView_DeleteAllItems(window());
    items_.clear();
    bold_.clear();
    for (const TreeView::Node& node : nodes) {
      TVINSERTSTRUCTW item{};
      item.hParent = TVI_ROOT;
      item.hInsertAfter = TVI_LAST;
      item.item.mask = TVIF_TEXT | TVIF_PARAM;
      item.item.pszText = Editable(node.Text);
      item.item.lParam = static_cast<LPARAM>(items_.size());
      items_.push_back(reinterpret_cast<HTREEITEM>(
          SendMessageW(window(), TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item))));
    }
    SendMessageW(window(), WM_SETREDRAW, TRUE, 0);
    loaded_ = tree_.NodesVersion();
  }
  for (std::size_t at = 0; at < items_.size(); ++at) {
    if (at < bold_.size() && bold_[at] == nodes[at].Bold) continue;
    TVITEMW item{};
    item.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_STATE;
    item.hItem = items_[at];
    item.iImage = item.iSelectedImage = ImageOf(nodes[at]);
    item.state = nodes[at].Bold ? TVIS_BOLD : 0;
    item.stateMask = TVIS_BOLD;
    SendMessageW(window(), TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    bold_.resize(std::max(bold_.size(), at + 1));
    bold_[at] = nodes[at].Bold;
  }
  const int selected = tree_.SelectedItem();
  const HTREEITEM wanted = selected < 0 ? nullptr : items_[static_cast<std::size_t>(selected)];
  if (TreeView_GetSelection(window()) != wanted) TreeView_SelectItem(window(), wanted);
}

LRESULT TreeWindow::OnOwnMessage(UINT message, WPARAM first, LPARAM second) {
  if (message != WM_SETFOCUS) return ControlWindow::OnOwnMessage(message, first, second);
  choosesItself_ = tree_.SelectedItem() < 0;
  const LRESULT result = ControlWindow::OnOwnMessage(message, first, second);
  choosesItself_ = false;
  return result;
}

bool TreeWindow::OnNotify(const NMHDR& notice, LRESULT& result) {
  if (form_.IsRefreshing()) return false;
  if (notice.code == TVN_SELCHANGINGW) {
    result = choosesItself_;
    return true;
  }
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
