// The dialog that picks several codes or enumeration values of one kind.
#pragma once

#include <array>
#include <cstdint>

#include "fetchkit/base/Text.h"
#include "fetchkit/dialogs/ControlModels.h"
#include "fetchkit/dialogs/Form.h"
#include "fetchkit/dialogs/FormView.h"
#include "fetchkit/host/Recordset.h"
#include "fetchkit/listset/model/FormHost.h"

namespace fetchkit {

// Acts that the controls take: lstAll, lstSelected item selected, double click; lstAll pointer
// moved; the buttons pressed (cmdSerial 0 moves the current chosen item up, 1 down); form Enter
// (OK), Escape and closed (Cancel).
class frmMultiChoose final : public Form {
 public:
  // The view must outlive the form.
  explicit frmMultiChoose(FormView& view);

  // Items come from request.arrEnum from index 1 on, or from the rows of request.oCodeRs (the
  // columns "strCode" and "strName", in their order). A row whose text occurs in
  // request.strChoosedCond begins on the chosen side. What was read before an error is offered.
  MultiChooseResult ShowMultiChoose(const MultiChooseRequest& request);

  Label lblAll{*this, u"lblAll", u"可选栏目(&S)"};
  ListBox lstAll{*this, u"lstAll"};
  CommandButton cmdRightOne{*this, u"cmdRightOne", u">"};
  CommandButton cmdRightAll{*this, u"cmdRightAll", u">>"};
  CommandButton cmdLeftOne{*this, u"cmdLeftOne", u"<"};
  CommandButton cmdLeftAll{*this, u"cmdLeftAll", u"<<"};
  Label lblSelected{*this, u"lblSelected", u"已选栏目(&T)"};
  ListBox lstSelected{*this, u"lstSelected"};
  std::array<CommandButton, 2> cmdSerial{CommandButton{*this, u"cmdSerial", u"↑", 0},
                                         CommandButton{*this, u"cmdSerial", u"↓", 1}};
  CommandButton cmdOk{*this, u"cmdOk", u"确定"};
  CommandButton cmdCancel{*this, u"cmdCancel", u"取消"};

  void UserPressedEnter() override { cmdOk.UserPressed(); }
  void UserPressedEscape() override { cmdCancel.UserPressed(); }
  void UserClosed() override { Close(); }

 private:
  void LoadEnum(const Value& arrEnum);
  void LoadRows(Recordset& rows, TextView choosed);
  void MoveItem(ListBox& from, ListBox& to);
  void Exchange(int step);
  void PointAt(int item);
  void RefreshButtons();
  void Ok();

  FormView& view_;
  Text codeName_;
  Text condition_;
  Text show_;
  bool confirmed_ = false;
};

}  // namespace fetchkit
