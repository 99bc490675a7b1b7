// The dialog that picks several codes or enumeration values of one kind.
#pragma once

#include <array>
#include <cstdint>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/dialogs/FormView.h"
#include "fetchkit/dialogs/TwoListForm.h"
#include "fetchkit/host/Recordset.h"

namespace fetchkit {

// What the dialog is opened with.
struct MultiChooseRequest {
  RecordsetPtr oCodeRs;  // the codes, read from the current row on; not closed; null with IsEnum
  Text strCodeName;      // the kind of item
  Text strChoosedCond;   // the condition text so far
  bool IsEnum = false;
  Value arrEnum;  // enumeration texts, index 0 unused
  std::int32_t hWndOwner = 0;
};

struct MultiChooseResult {
  bool bOk = false;
  Text condition;    // empty unless bOk
  Text strShowCond;  // the items for display; empty unless bOk
};

// Acts that the controls take: txtSearch typed, keys; lstAll, lstSelected items selected, double
// click, keys; lstAll pointer moved; the buttons pressed (cmdSerial 0 moves the current chosen item
// up, 1 down); form Enter (OK), Escape and closed (Cancel).
class frmMultiChoose final : public TwoListForm {
 public:
  // The view must outlive the form.
  explicit frmMultiChoose(FormView& view);

  // Items come from request.arrEnum from index 1 on, or from the rows of request.oCodeRs (the
  // columns "strCode" and "strName", in their order). A row whose text occurs in
  // request.strChoosedCond begins on the chosen side. What was read before an error is offered.
  MultiChooseResult ShowMultiChoose(const MultiChooseRequest& request);

  ListBox lstAll{*this, u"lstAll"};
  ListBox lstSelected{*this, u"lstSelected"};
  std::array<CommandButton, 2> cmdSerial{CommandButton{*this, u"cmdSerial", u"↑", 0},
                                         CommandButton{*this, u"cmdSerial", u"↓", 1}};
  CommandButton cmdOk{*this, u"cmdOk", u"确定"};
  CommandButton cmdCancel{*this, u"cmdCancel", u"取消"};

  void UserPressedEnter() override { cmdOk.UserPressed(); }
  void UserPressedEscape() override { cmdCancel.UserPressed(); }

 private:
  void LoadEnum(const Value& arrEnum);
  void LoadRows(Recordset& rows, TextView choosed);
  void Exchange(int step);
  void PointAt(int item);
  void Refresh();
  void Ok();

  FormView& view_;
  Text codeName_;
  Text condition_;
  Text show_;
  bool confirmed_ = false;
};

}  // namespace fetchkit
