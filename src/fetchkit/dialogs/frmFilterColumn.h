// The chooser: several items for one CODE or ENUM condition of the filter dialog.
#pragma once

#include "fetchkit/base/Text.h"
#include "fetchkit/dialogs/ControlModels.h"
#include "fetchkit/dialogs/Form.h"
#include "fetchkit/dialogs/FormView.h"
#include "fetchkit/dialogs/PickCombo.h"

namespace fetchkit {

// Two grids without a header: column 0 holds the item's id or value, column 1 its name, column 2
// what is shown. "All to the right" stops, silently, once more than 250 items are chosen.
//
// Acts that the controls take: msgAll, msgSelected row selected, double click; the buttons pressed;
// form Enter (OK), Escape and closed (Cancel).
class frmFilterColumn final : public Form {
 public:
  // The picker's own entries at both ends of its list, which are no items.
  static constexpr TextView kAllItems = u"所有";
  static constexpr TextView kChooseItems = u"选择项目";

  // The view must outlive the form; the owner is where the chooser is opened from.
  frmFilterColumn(FormView& view, const frmFilter& owner);

  // Lets the user choose among the picker's rows. strChoosed: comma-separated ids, quoted or not,
  // that begin on the right side; an id counts whole. True: OK; strNames and strIDs hold the chosen
  // items then (CODE: ids bare, names joined by blanks; ENUM: ids quoted, names joined by commas),
  // both empty for none, and also when the answer is False.
  bool ShowFiltration(TextView strType, const PickCombo& objPicker, TextView strChoosed,
                      Text& strNames, Text& strIDs);

  Label lblAll{*this, u"lblAll", u"可选栏目(&S)"};
  MSFlexGrid msgAll{*this, u"msgAll"};
  CommandButton cmdRightOne{*this, u"cmdRightOne", u">"};
  CommandButton cmdRightAll{*this, u"cmdRightAll", u">>"};
  CommandButton cmdLeftOne{*this, u"cmdLeftOne", u"<"};
  CommandButton cmdLeftAll{*this, u"cmdLeftAll", u"<<"};
  Label lblSelected{*this, u"lblSelected", u"已选栏目(&T)"};
  MSFlexGrid msgSelected{*this, u"msgSelected"};
  CommandButton cmdOK{*this, u"cmdOK", u"确定"};
  CommandButton cmdCancel{*this, u"cmdCancel", u"取消"};

  void UserPressedEnter() override { cmdOK.UserPressed(); }
  void UserPressedEscape() override { cmdCancel.UserPressed(); }
  void UserClosed() override { Close(); }

 private:
  void MoveRow(MSFlexGrid& from, MSFlexGrid& to);
  void MoveAllRight();
  void EnableButtons();
  void Ok();

  FormView& view_;
  const frmFilter& owner_;
  bool isCode_ = false;
  Text ids_;
  Text names_;
  bool confirmed_ = false;
};

}  // namespace fetchkit
