// What the two dialogs with a list on either side share.
#pragma once

#include "fetchkit/base/Guard.h"
#include "fetchkit/dialogs/ControlModels.h"
#include "fetchkit/dialogs/Form.h"

namespace fetchkit {

// Items stand on the left side or, chosen, on the right; four buttons move the current one or all
// of them over, and are enabled while there is something to move. The lists themselves, OK and
// Cancel are the form's own.
class TwoListForm : public Form {
 public:
  Label lblAll{*this, u"lblAll", u"可选栏目(&S)"};
  CommandButton cmdRightOne{*this, u"cmdRightOne", u">"};
  CommandButton cmdRightAll{*this, u"cmdRightAll", u">>"};
  CommandButton cmdLeftOne{*this, u"cmdLeftOne", u"<"};
  CommandButton cmdLeftAll{*this, u"cmdLeftAll", u"<<"};
  Label lblSelected{*this, u"lblSelected", u"已选栏目(&T)"};

  void UserClosed() override { Close(); }

 protected:
  TwoListForm(TextView name, TextView caption) : Form(name, caption) {
    cmdRightOne.ToolTipText(u"选择");
    cmdRightAll.ToolTipText(u"全部选择");
    cmdLeftOne.ToolTipText(u"移除");
    cmdLeftAll.ToolTipText(u"全部移除");
  }

  // A handler whose errors end the act alone.
  template <class Handler>
  auto Act(Handler handler) {
    return [this, handler](auto... arguments) { Step(Name(), [&] { handler(arguments...); }); };
  }

  // Lets two of the buttons, and a double click in either list, move the current item: what calls
  // move(from, to).
  template <class List, class Move>
  void WireMoves(List& all, List& selected, Move move) {
    cmdRightOne.OnClick = all.OnDoubleClick = Act([&all, &selected, move] { move(all, selected); });
    cmdLeftOne.OnClick = selected.OnDoubleClick =
        Act([&all, &selected, move] { move(selected, all); });
  }

  // Current item, -1 for none, and number of items of the left and of the right list.
  void EnableMoves(int current, int count, int currentSelected, int countSelected) {
    cmdRightOne.Enabled(current >= 0);
    cmdRightAll.Enabled(count > 0);
    cmdLeftOne.Enabled(currentSelected >= 0);
    cmdLeftAll.Enabled(countSelected > 0);
  }
};

}  // namespace fetchkit
