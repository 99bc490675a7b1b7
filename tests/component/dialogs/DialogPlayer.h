// Plays a user in the component's modal dialogs, through real windows and messages.
#pragma once

#include <deque>
#include <functional>
#include <string>

#include "component/Windows.h"
#include "fetchkit/base/Text.h"

namespace fetchkit::test {

// An owner window. While a dialog that stands over it, or over another such dialog, is idle, the
// acts are played one after the other, each with the dialog that is active then. A dialog that is
// still there a minute after the last act fails the test and is closed.
class DialogPlayer {
 public:
  using Act = std::function<void(HWND dialog)>;

  DialogPlayer();
  ~DialogPlayer();
  DialogPlayer(const DialogPlayer&) = delete;
  DialogPlayer& operator=(const DialogPlayer&) = delete;

  HWND owner() const { return owner_; }
  long Handle() const { return HandleToLong(owner_); }

  // Plays act(dialog, arguments...), such as Then(Press, IDOK).
  template <class Played, class... Arguments>
  DialogPlayer& Then(Played act, Arguments... arguments) {
    acts_.emplace_back([=](HWND dialog) { act(dialog, arguments...); });
    return *this;
  }

  // Whether every act has been played.
  bool IsDone() const { return acts_.empty(); }

 private:
  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD now);

  HWND owner_;
  UINT_PTR timer_;
  DWORD played_ = GetTickCount();  // when the last act was
  std::deque<Act> acts_;
};

// What users do. ids are those of component/ui/Controls.h.
void ClickNode(HWND dialog, TextView text);
void Pick(HWND dialog, int row);  // in the picker: opens its list, walks to the row, Enter
void Type(HWND dialog, int id, TextView text);  // in place of what stands there
void Press(HWND dialog, int id);                // a button
void SelectRow(HWND dialog, int id, int row);   // in a list
void DoubleClickRow(HWND dialog, int id, int row);
void Key(HWND dialog, int key);  // to the control that has the focus
void Tab(HWND dialog);           // to the next control, as the dialog's own keyboard does
void Resize(HWND dialog, int wider, int taller);
void Close(HWND dialog);
int FocusId(HWND dialog);
Text TextIn(HWND dialog, int id);
Text ListCell(HWND dialog, int id, int row, int column);
int ListCount(HWND dialog, int id);

// Keeps a picture of the dialog as pictures/NAME.png, with the scaling behind the name where that
// is not 100 %; every caption on it must have room.
void KeepPicture(HWND dialog, const std::string& name);

}  // namespace fetchkit::test
