// A user without a window: plays acts, written as text, on the control models.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "fetchkit/dialogs/FormView.h"
#include "fetchkit/dialogs/frmFilter.h"
#include "fetchkit/dialogs/frmFilterColumn.h"
#include "fetchkit/dialogs/frmMultiChoose.h"
#include "support/Lines.h"

namespace fetchkit::test {

// Acts stand between ";": "node CAPTION", "pick TEXT", "from TEXT" and "to TEXT" (typed), "leave
// from|to|from to to|to to from", "enter from|to", "date from|to|one yyyy-MM-dd", "delete CAPTION",
// "clear", "ok", "cancel", "close". A form that is still open at the end is
// left open; a dialog's caller must take that for Cancel.
void Play(frmFilter& form, std::string_view acts);

// "right TEXT", "left TEXT" (double click on the row with that text), "all right", "all left",
// "ok", "cancel", "close".
void Play(frmFilterColumn& form, std::string_view acts);

// The same, and "up TEXT", "down TEXT".
void Play(frmMultiChoose& form, std::string_view acts);

class Player : public FormView {
 public:
  void ShowModal(frmFilter& form, std::int32_t hWndOwner) override;
  void ShowModal(frmFilterColumn& form, const frmFilter& owner) override;
  void ShowModal(frmMultiChoose& form, std::int32_t hWndOwner) override;

  std::string filter, chooser, multi;               // acts
  std::function<void(frmFilter&)> onFilter;         // after the acts; the form may be closed
  std::function<void(frmFilterColumn&)> onChooser;  // before the acts
  std::function<void(frmMultiChoose&)> onMulti;     // before the acts
  int shown = 0;                                    // forms of all kinds
  std::int32_t owner = -1;                          // the window that the last one was given
};

// The rows of a grid: "cell|cell|..." per row, headers left out, by the named columns.
std::vector<std::string> RowsOf(const MSFlexGrid& grid, std::initializer_list<int> columns);

// The names of the editors that the user sees, in Tab order.
std::string EditorsOf(const frmFilter& form);

}  // namespace fetchkit::test
