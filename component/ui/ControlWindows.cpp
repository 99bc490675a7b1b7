#include "component/ui/ControlWindows.h"

#include <algorithm>
#include <cwchar>
#include <utility>

#include "base/Text.h"

namespace fetchkit::ui {
namespace {

const wchar_t* Wide(const Text& text) {
  return reinterpret_cast<const wchar_t*>(text.c_str());
}

LPWSTR Editable(const Text& text) {
  return const_cast<LPWSTR>(Wide(text));
}

Text TextOf(HWND window) {
  const int length = GetWindowTextLengthW(window);
  Text text(static_cast<std::size_t>(length), u'\0');
  const int read = GetWindowTextW(window, reinterpret_cast<wchar_t*>(text.data()), length + 1);
  text.resize(static_cast<std::size_t>(read));
  return text;
}

// Only a text that differs: setting one moves the caret and flickers.
void SetTextOf(HWND window, const Text& text) {
  if (TextOf(window) != text) SetWindowTextW(window, Wide(text));
}

constexpr UINT_PTR kSubclass = 1;

HFONT FontOf(HWND window) {
  return reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
}

// A device context with the window's font in it.
class Measuring {
 public:
  explicit Measuring(HWND window)
      : window_(window), device_(GetDC(window)), before_(SelectObject(device_, FontOf(window))) {}
  ~Measuring() {
    SelectObject(device_, before_);
    ReleaseDC(window_, device_);
  }
  Measuring(const Measuring&) = delete;
  Measuring& operator=(const Measuring&) = delete;

  int Width(const Text& text) const {
    SIZE size{};
    GetTextExtentPoint32W(device_, Wide(text), static_cast<int>(text.size()), &size);
    return static_cast<int>(size.cx);
  }
  int Height() const {
    TEXTMETRICW metrics{};
    GetTextMetricsW(device_, &metrics);
    return static_cast<int>(metrics.tmHeight);
  }

 private:
  HWND window_;
  HDC device_;
  HGDIOBJ before_;
};

}  // namespace

void CaptionWindow::Refresh() {
  ControlWindow::Refresh();
  SetTextOf(window(), model().Caption());
}

void ToolTip::SetText(const Text& text) {
  if (text_ == text) return;
  text_ = text;
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = control_;
  tool.uId = reinterpret_cast<UINT_PTR>(control_);
  tool.lpszText = Editable(text_);
  if (window_) {
    SendMessageW(window_.get(), TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    return;
  }
  window_ = Counted<HWND, DestroyTip>(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                                      WS_POPUP | TTS_NOPREFIX, 0, 0, 0, 0, control_,
                                                      nullptr, nullptr, nullptr));
  SendMessageW(window_.get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void ButtonWindow::Refresh() {
  ControlWindow::Refresh();
  const Text& tip = button_.ToolTipText();
  // A caption in words says it already.
  tip_.SetText(TextOf(window()).find(tip) == Text::npos ? tip : Text());
}

void ButtonWindow::OnCommand(int code) {
  if (code == BN_CLICKED) button_.UserPressed();
}

TextBoxWindow::TextBoxWindow(FormWindow& form, TextBox& model, HWND window)
    : ControlWindow(model, window), form_(form), box_(model) {
  SetWindowSubclass(window, Subclass, kSubclass, reinterpret_cast<DWORD_PTR>(this));
}

TextBoxWindow::~TextBoxWindow() {
  RemoveWindowSubclass(window(), Subclass, kSubclass);
}

void TextBoxWindow::Refresh() {
  ControlWindow::Refresh();
  SetTextOf(window(), box_.Text());
}

void TextBoxWindow::OnCommand(int code) {
  if (code == EN_CHANGE) box_.UserTyped(TextOf(window()));
}

LRESULT CALLBACK TextBoxWindow::Subclass(HWND window, UINT message, WPARAM first, LPARAM second,
                                         UINT_PTR, DWORD_PTR selfPointer) {
  auto* self = reinterpret_cast<TextBoxWindow*>(selfPointer);
  const LRESULT result = DefSubclassProc(window, message, first, second);
  // The notice of the system does not tell where the focus goes. A box that is hidden loses it by
  // the program's doing.
  if (message == WM_KILLFOCUS && !self->form_.IsRefreshing() && IsWindowVisible(window)) {
    self->form_.Act(
        [&] { self->box_.UserLeft(self->form_.ModelOf(reinterpret_cast<HWND>(first))); });
  }
  return result;
}

DateWindow::DateWindow(FormWindow& form, DateSpinner& model, HWND window)
    : ControlWindow(model, window), form_(form), date_(model) {
  SendMessageW(window, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(L"yyyy-MM-dd"));
}

void DateWindow::Refresh() {
  ControlWindow::Refresh();
  SYSTEMTIME wanted{};
  if (!VariantTimeToSystemTime(date_.Value().serial, &wanted)) return;
  SYSTEMTIME shown{};
  DateTime_GetSystemtime(window(), &shown);
  if (shown.wYear == wanted.wYear && shown.wMonth == wanted.wMonth && shown.wDay == wanted.wDay)
    return;
  DateTime_SetSystemtime(window(), GDT_VALID, &wanted);
}

bool DateWindow::OnNotify(const NMHDR& notice, LRESULT&) {
  if (notice.code != DTN_DATETIMECHANGE || form_.IsRefreshing()) return false;
  const auto& change = reinterpret_cast<const NMDATETIMECHANGE&>(notice);
  if (change.dwFlags != GDT_VALID) return false;
  if (const auto date = DateFromYmd(change.st.wYear, change.st.wMonth, change.st.wDay))
    date_.UserChanged(*date);
  return true;
}

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

RowsWindow::RowsWindow(FormWindow& form, Control& model, HWND window)
    : ControlWindow(model, window), form_(form) {
  constexpr DWORD kStyles = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
  SendMessageW(window, LVM_SETEXTENDEDLISTVIEWSTYLE, kStyles, kStyles);
}

void RowsWindow::SetColumns(std::vector<int> widths, const std::vector<Text>& captions) {
  while (ListView_DeleteColumn(window(), 0)) {
  }
  for (std::size_t index = 0; index < widths.size(); ++index) {
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    column.fmt = LVCFMT_LEFT;
    column.pszText = Editable(captions[index]);
    column.cx = widths[index];
    SendMessageW(window(), LVM_INSERTCOLUMNW, index, reinterpret_cast<LPARAM>(&column));
  }
  widths_ = std::move(widths);
  RowsWindow::OnLayout();
}

void RowsWindow::OnLayout() {
  if (widths_.empty()) return;
  RECT client{};
  GetClientRect(window(), &client);
  clientWidth_ = client.right;
  int left = static_cast<int>(client.right);  // without the scroll bar
  const int last = static_cast<int>(widths_.size()) - 1;
  for (int index = 0; index < last; ++index) {
    ListView_SetColumnWidth(window(), index, widths_[static_cast<std::size_t>(index)]);
    left -= widths_[static_cast<std::size_t>(index)];
  }
  ListView_SetColumnWidth(window(), last, std::max(left, widths_.back() / 2));
}

void RowsWindow::RefreshRows(int selected) {
  const int count = RowCount();
  if (ListView_GetItemCount(window()) != count)
    SendMessageW(window(), LVM_SETITEMCOUNT, static_cast<WPARAM>(count), LVSICF_NOSCROLL);
  // The scroll bar may have come or gone.
  RECT client{};
  GetClientRect(window(), &client);
  if (client.right != clientWidth_) RowsWindow::OnLayout();
  const int shown = ListView_GetNextItem(window(), -1, LVNI_SELECTED);
  if (shown != selected) {
    ListView_SetItemState(window(), -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    if (selected >= 0) {
      ListView_SetItemState(window(), selected, LVIS_SELECTED | LVIS_FOCUSED,
                            LVIS_SELECTED | LVIS_FOCUSED);
      ListView_EnsureVisible(window(), selected, FALSE);
    }
  }
  InvalidateRect(window(), nullptr, TRUE);
}

int RowsWindow::Find(const NMLVFINDITEMW& wanted) const {
  if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0) return -1;
  const Text typed(reinterpret_cast<const char16_t*>(wanted.lvfi.psz));
  const int count = RowCount();
  for (int step = 0; step < count; ++step) {
    const int row = (std::max(wanted.iStart, 0) + step) % count;
    const TextView text = CellText(row, 0);
    if (text.size() >= typed.size() && EqualFolded(text.substr(0, typed.size()), typed)) return row;
  }
  return -1;
}

bool RowsWindow::OnNotify(const NMHDR& notice, LRESULT& result) {
  switch (notice.code) {
    case LVN_GETDISPINFOW: {
      // The structure is the system's to fill.
      auto& item = const_cast<NMLVDISPINFOW&>(reinterpret_cast<const NMLVDISPINFOW&>(notice)).item;
      if ((item.mask & LVIF_TEXT) != 0 && item.iItem >= 0 && item.iItem < RowCount()) {
        shown_ = CellText(item.iItem, item.iSubItem);
        item.pszText = Editable(shown_);
      }
      return true;
    }
    case LVN_ODFINDITEMW:
      result = Find(reinterpret_cast<const NMLVFINDITEMW&>(notice));
      return true;
    case LVN_ITEMCHANGED: {
      const auto& change = reinterpret_cast<const NMLISTVIEW&>(notice);
      const bool chosen = (change.uNewState & ~change.uOldState & LVIS_SELECTED) != 0;
      if (!form_.IsRefreshing() && chosen && change.iItem >= 0) Selected(change.iItem);
      return true;
    }
    case NM_DBLCLK: {
      const auto& click = reinterpret_cast<const NMITEMACTIVATE&>(notice);
      if (click.iItem >= 0) DoubleClicked(click.iItem);
      return true;
    }
    case LVN_KEYDOWN:
      if (reinterpret_cast<const NMLVKEYDOWN&>(notice).wVKey == VK_DELETE) PressedDelete();
      return true;
    default:
      return false;
  }
}

GridWindow::GridWindow(FormWindow& form, MSFlexGrid& model, HWND window)
    : RowsWindow(form, model, window), grid_(model) {}

void GridWindow::ReadColumns() {
  std::vector<int> twips;
  for (int col = 0; col < grid_.Cols(); ++col)
    twips.push_back(grid_.ColWidth(col));
  if (twips == twips_) return;
  twips_ = std::move(twips);
  visible_.clear();
  std::vector<int> widths;
  std::vector<Text> captions;
  for (int col = 0; col < grid_.Cols(); ++col) {
    if (grid_.ColWidth(col) == 0) continue;
    visible_.push_back(col);
    widths.push_back(form_.PixelsOfTwips(grid_.ColWidth(col)));
    captions.push_back(grid_.FixedRows() > 0 ? grid_.TextMatrix(0, col) : Text());
  }
  SetColumns(std::move(widths), captions);
}

void GridWindow::OnLayout() {
  twips_.clear();
  ReadColumns();
}

void GridWindow::Refresh() {
  ControlWindow::Refresh();
  ReadColumns();
  RefreshRows(grid_.Row() < grid_.FixedRows() ? -1 : grid_.Row() - grid_.FixedRows());
}

int GridWindow::RowCount() const {
  return grid_.Rows() - grid_.FixedRows();
}

const Text& GridWindow::CellText(int row, int column) const {
  return grid_.TextMatrix(row + grid_.FixedRows(), visible_.at(static_cast<std::size_t>(column)));
}

void GridWindow::Selected(int row) {
  grid_.UserSelectedRow(row + grid_.FixedRows());
}

void GridWindow::DoubleClicked(int row) {
  grid_.UserDoubleClickedRow(row + grid_.FixedRows());
}

void GridWindow::PressedDelete() {
  grid_.UserPressedDelete();
}

ListBoxWindow::ListBoxWindow(FormWindow& form, ListBox& model, HWND window)
    : RowsWindow(form, model, window), list_(model), tip_(window) {
  SetWindowSubclass(window, Subclass, kSubclass, reinterpret_cast<DWORD_PTR>(this));
  SetColumns({1}, {Text()});
}

ListBoxWindow::~ListBoxWindow() {
  RemoveWindowSubclass(window(), Subclass, kSubclass);
}

void ListBoxWindow::OnLayout() {
  RowsWindow::OnLayout();
  RECT item{0, 0, 0, form_.Pixels(16)};
  RECT client{};
  GetClientRect(window(), &client);
  if (RowCount() > 0) ListView_GetItemRect(window(), 0, &item, LVIR_BOUNDS);
  const Measuring measuring(window());
  list_.extent.width = static_cast<int>(client.right);
  list_.extent.itemHeight = static_cast<int>(item.bottom - item.top);
  list_.extent.letterWidth = measuring.Width(u"A");
}

void ListBoxWindow::Refresh() {
  ControlWindow::Refresh();
  RefreshRows(list_.ListIndex());
  OnLayout();
  tip_.SetText(list_.ToolTipText());
}

LRESULT CALLBACK ListBoxWindow::Subclass(HWND window, UINT message, WPARAM first, LPARAM second,
                                         UINT_PTR, DWORD_PTR selfPointer) {
  auto* self = reinterpret_cast<ListBoxWindow*>(selfPointer);
  if (message == WM_MOUSEMOVE) self->PointerMoved(GET_Y_LPARAM(second));
  return DefSubclassProc(window, message, first, second);
}

void ListBoxWindow::PointerMoved(int y) {
  list_.extent.topIndex = ListView_GetTopIndex(window());
  form_.Act([&] { list_.UserMovedPointer(y); });
}

int ListBoxWindow::RowCount() const {
  return list_.ListCount();
}

const Text& ListBoxWindow::CellText(int row, int) const {
  return list_.List(row);
}

void ListBoxWindow::Selected(int row) {
  list_.UserSelected(row);
}

void ListBoxWindow::DoubleClicked(int row) {
  list_.UserDoubleClicked(row);
}

PickWindow::PickWindow(FormWindow& form, PickCombo& model, HWND window)
    : ControlWindow(model, window), form_(form), pick_(model) {
  SetWindowSubclass(window, Subclass, kSubclass, reinterpret_cast<DWORD_PTR>(this));
  OnLayout();
}

PickWindow::~PickWindow() {
  RemoveWindowSubclass(window(), Subclass, kSubclass);
}

void PickWindow::OnLayout() {
  const int height = Measuring(window()).Height();
  SendMessageW(window(), CB_SETITEMHEIGHT, 0, height + form_.Pixels(2));
  SendMessageW(window(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height + form_.Pixels(3));
  MeasureColumns();
}

// The widths follow the first rows: enough to set the columns apart, whatever the list's length.
void PickWindow::MeasureColumns() {
  constexpr int kMeasured = 200;
  const Measuring measuring(window());
  const int gap = form_.Pixels(10);
  columnWidths_.assign(pick_.ShownColumns().size(), 0);
  int widest = 0;
  for (int row = 0; row < std::min(pick_.ListCount(), kMeasured); ++row) {
    int whole = 0;
    for (std::size_t index = 0; index < columnWidths_.size(); ++index) {
      const int width = measuring.Width(pick_.Cell(row, pick_.ShownColumns()[index])) + gap;
      whole += width;
      // A first column that stands alone in its row, as the list's own entries do, sets no width.
      const bool alone = index + 1 < columnWidths_.size() &&
                         pick_.Cell(row, pick_.ShownColumns()[index + 1]).empty();
      if (!alone) columnWidths_[index] = std::max(columnWidths_[index], width);
    }
    widest = std::max(widest, whole);
  }
  int columns = 0;
  for (const int width : columnWidths_)
    columns += width;
  const int bar = GetSystemMetrics(SM_CXVSCROLL) + form_.Pixels(8);
  SendMessageW(window(), CB_SETDROPPEDWIDTH, static_cast<WPARAM>(std::max(columns, widest) + bar),
               0);
}

void PickWindow::Refresh() {
  ControlWindow::Refresh();
  if (loaded_ != pick_.ListVersion()) {
    const int count = pick_.ListCount();
    SendMessageW(window(), WM_SETREDRAW, FALSE, 0);
    SendMessageW(window(), CB_RESETCONTENT, 0, 0);
    SendMessageW(window(), CB_INITSTORAGE, static_cast<WPARAM>(count), count * 32);
    // The texts are for screen readers: the rows are drawn from the model.
    for (int row = 0; row < count; ++row) {
      const Text text = pick_.RowText(row);
      SendMessageW(window(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(text)));
    }
    SendMessageW(window(), WM_SETREDRAW, TRUE, 0);
    loaded_ = pick_.ListVersion();
    MeasureColumns();
  }
  if (SendMessageW(window(), CB_GETCURSEL, 0, 0) != pick_.ListIndex())
    SendMessageW(window(), CB_SETCURSEL, static_cast<WPARAM>(pick_.ListIndex()), 0);
  InvalidateRect(window(), nullptr, TRUE);
}

void PickWindow::OnDraw(const DRAWITEMSTRUCT& drawing) {
  const bool selected = (drawing.itemState & ODS_SELECTED) != 0;
  const bool disabled = (drawing.itemState & ODS_DISABLED) != 0;
  const HDC device = drawing.hDC;
  FillRect(device, &drawing.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  SetBkMode(device, TRANSPARENT);
  SetTextColor(device, GetSysColor(disabled   ? COLOR_GRAYTEXT
                                   : selected ? COLOR_HIGHLIGHTTEXT
                                              : COLOR_WINDOWTEXT));
  constexpr UINT kHow = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
  RECT place = drawing.rcItem;
  place.left += form_.Pixels(3);
  const int row = static_cast<int>(drawing.itemID);
  if ((drawing.itemState & ODS_COMBOBOXEDIT) != 0 || row < 0) {
    DrawTextW(device, Wide(pick_.Text()), static_cast<int>(pick_.Text().size()), &place, kHow);
  } else if (row < pick_.ListCount()) {
    for (std::size_t index = 0; index < pick_.ShownColumns().size(); ++index) {
      const Text& cell = pick_.Cell(row, pick_.ShownColumns()[index]);
      DrawTextW(device, Wide(cell), static_cast<int>(cell.size()), &place, kHow);
      place.left += index < columnWidths_.size() ? columnWidths_[index] : 0;
    }
  }
  if ((drawing.itemState & ODS_FOCUS) != 0) DrawFocusRect(device, &drawing.rcItem);
}

void PickWindow::OnCommand(int code) {
  switch (code) {
    case CBN_DROPDOWN:
      isOpen_ = true;
      break;
    case CBN_CLOSEUP:
      isOpen_ = false;
      break;
    case CBN_SELENDOK:
      PickLater();
      break;
    case CBN_SELCHANGE:
      // In the open list only the highlight has moved.
      if (!isOpen_) PickLater();
      break;
    case CBN_SELENDCANCEL:
      SendMessageW(window(), CB_SETCURSEL, static_cast<WPARAM>(pick_.ListIndex()), 0);
      break;
    default:
      break;
  }
}

// The system tells of one choice in several ways, and in the midst of closing its list, which is no
// time to open another dialog.
void PickWindow::PickLater() {
  if (std::exchange(pickPosted_, true)) return;
  form_.PostLater(*this);
}

void PickWindow::OnLater() {
  pickPosted_ = false;
  const auto row = static_cast<int>(SendMessageW(window(), CB_GETCURSEL, 0, 0));
  if (row >= 0) pick_.UserPicked(row);
  // A choice that the form has not taken over leaves the list where the model is.
  SendMessageW(window(), CB_SETCURSEL, static_cast<WPARAM>(pick_.ListIndex()), 0);
  InvalidateRect(window(), nullptr, TRUE);
}

LRESULT CALLBACK PickWindow::Subclass(HWND window, UINT message, WPARAM first, LPARAM second,
                                      UINT_PTR, DWORD_PTR selfPointer) {
  if (message == WM_CHAR && first >= L' ') {
    reinterpret_cast<PickWindow*>(selfPointer)->Typed(static_cast<wchar_t>(first));
    return 0;
  }
  return DefSubclassProc(window, message, first, second);
}

// Letters that follow each other within a second look for one beginning; the list is opened to
// show where that leads.
void PickWindow::Typed(wchar_t letter) {
  constexpr DWORD kPause = 1000;  // milliseconds
  const DWORD now = GetTickCount();
  if (now - typedAt_ > kPause) typed_.clear();
  typedAt_ = now;
  typed_ += static_cast<char16_t>(letter);
  if (!isOpen_) SendMessageW(window(), CB_SHOWDROPDOWN, TRUE, 0);
  if (const int row = pick_.UserTyped(typed_); row >= 0)
    SendMessageW(window(), CB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

}  // namespace fetchkit::ui
