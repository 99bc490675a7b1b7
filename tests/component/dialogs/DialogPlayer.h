// Plays a user in the component's modal dialogs: real windows, a real mouse, real keys.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "component/Windows.h"
#include "fetchkit/base/Text.h"

namespace fetchkit::test {

// An owner window. While a dialog that stands over it, or over another such dialog, is idle, the
// acts are played one after the other, each with the dialog that is active then, and when all that
// the one before has set off is done. A dialog that is still there a minute after the last act
// fails the test and is closed.
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

  // From within an act: plays a step behind it, in front of the acts to come.
  void Soon(Act step) { soon_.push_back(std::move(step)); }

  // Whether every act has been played.
  bool IsDone() const { return acts_.empty(); }

 private:
  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD now);

  HWND owner_;
  UINT_PTR timer_;
  DWORD played_ = GetTickCount();  // when the last act was
  std::deque<Act> acts_;
  std::vector<Act> soon_;
};

// What users do. ids are those of component/ui/Controls.h. Input goes through the system's queues,
// step by step behind the act.
void Click(HWND dialog, int id);  // into the middle of a control
void ClickTick(HWND dialog, int id);
void ClickNode(HWND dialog, TextView text);
void ClickRow(HWND dialog, int id, int row);
void DoubleClickRow(HWND dialog, int id, int row);
void ClickCloseButton(HWND dialog);
void TurnWheel(HWND dialog, int id);  // down, over a control
// Letters, and signs of keys: ⏎ ⇥ ⎋ ⌦ ⌫ ↑ ↓ ← → ⇱ (Home) ⇲ (End) ⇞ ⇟ (pages) ␣ ② (F2), with
// ⎇ (Alt), ⇧ or ⌃ (Ctrl) in front of one; letters behind those are capitals.
void Keys(HWND dialog, TextView keys);
void Pick(HWND dialog, int row);                // in the picker, by its keys
void Type(HWND dialog, int id, TextView text);  // in place of what stands there

// What programs do.
void Focus(HWND dialog, int id);
void Resize(HWND dialog, int wider, int taller);
void Close(HWND dialog);

int FocusId(HWND dialog);  // of the control, also when a part of it has the focus
Text TextIn(HWND dialog, int id);
Text ListCell(HWND dialog, int id, int row, int column);
int ListCount(HWND dialog, int id);

// Keeps a picture of the dialog as pictures/NAME.png, with the scaling behind the name where that
// is not 100 %; every control on it must be whole, with room for its caption.
void KeepPicture(HWND dialog, const std::string& name);

}  // namespace fetchkit::test
