// The chooser: several items for one CODE or ENUM condition of the filter dialog.
#pragma once

#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/dialogs/FormView.h"
#include "fetchkit/dialogs/PickCombo.h"
#include "fetchkit/dialogs/TwoListForm.h"

namespace fetchkit {

// Two grids without a header: column 0 holds the item's id or value, column 1 its name, column 2
// what is shown. Several to the right stop, silently, once more than 250 items are chosen.
//
// Acts that the controls take: txtSearch typed, keys; msgAll, msgSelected rows selected, double
// click, keys; the buttons pressed; form Enter (OK), Escape and closed (Cancel).
class frmFilterColumn final : public TwoListForm {
 public:
  // The picker's own entries at both ends of its list, which are no items.
  static constexpr TextView kAllItems = u"所有";
  static constexpr TextView kChooseItems = u"选择项目";

  // What is said of too many.
  static constexpr TextView kManyWarning = u"已选条件项目个数已经很多,不能再增加了!";

  // The view must outlive the form; the owner is where the chooser is opened from.
  frmFilterColumn(FormView& view, const frmFilter& owner);

  // Lets the user choose among the picker's rows. strChoosed: comma-separated ids, quoted or not,
  // that begin on the right side; an id counts whole. True: OK; strNames and strIDs hold the chosen
  // items then (CODE: ids bare, names joined by blanks; ENUM: ids quoted, names joined by commas),
  // both empty for none, and also when the answer is False.
  bool ShowFiltration(TextView strType, const PickCombo& objPicker, TextView strChoosed,
                      Text& strNames, Text& strIDs);

  MSFlexGrid msgAll{*this, u"msgAll"};
  MSFlexGrid msgSelected{*this, u"msgSelected"};
  CommandButton cmdOK{*this, u"cmdOK", u"确定"};
  CommandButton cmdCancel{*this, u"cmdCancel", u"取消"};

  void UserPressedEnter() override { cmdOK.UserPressed(); }
  void UserPressedEscape() override { cmdCancel.UserPressed(); }

 private:
  void Move(MSFlexGrid& from, MSFlexGrid& to, std::vector<int> rows);
  void Refresh();
  void Ok();

  FormView& view_;
  const frmFilter& owner_;
  bool isCode_ = false;
  Text ids_;
  Text names_;
  bool confirmed_ = false;
};

}  // namespace fetchkit
