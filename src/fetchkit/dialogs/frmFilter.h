// The dialog in which the user sets conditions on the columns of a list.
#pragma once

#include <array>
#include <cstdint>

#include "fetchkit/base/Date.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/dialogs/CodeLists.h"
#include "fetchkit/dialogs/ControlModels.h"
#include "fetchkit/dialogs/FilterRows.h"
#include "fetchkit/dialogs/FilterTree.h"
#include "fetchkit/dialogs/Form.h"
#include "fetchkit/dialogs/FormView.h"
#include "fetchkit/dialogs/PickCombo.h"
#include "fetchkit/dialogs/ValueCheck.h"
#include "fetchkit/listset/model/FieldType.h"
#include "fetchkit/listset/model/TypeDef.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit {

// One node per filterable column, one grid row per condition, and editors for one column: tree,
// grid and editors follow each other. With all the conditions that there may be the tree opens no
// editor and only marks its column's row; the grid opens it. Columns with a condition are bold. A
// word that needs no value takes effect when it is picked, a value when its box is left or Enter is
// pressed, a date when it is changed or ticked by hand; "任意" and "所有" take the condition away,
// as Delete on the grid's row and a box that the user empties do. A value that is refused stays in
// its box, which is marked, until another column opens; the grid stays as it was, and no message
// appears. The user may go anywhere; only OK stays open over it and wants the focus back in the
// box. A word that needs a value sends the focus to its box, "自定义" to the first date. Errors in
// a handler end the failing step alone; the diagnostics sink hears of them.
//
// A search shows the columns that it finds in the tree; what is open stays open, and the tree's
// current node is so again once it is shown. Enter in the search box opens the first column that
// begins with what was typed, else the first that is found, empties the box and goes to the value;
// with all the conditions that there may be to that of the column's row, else to the tree. Down
// goes to the tree, and where its current node is hidden does what a click on the node would that
// Enter would open.
//
// Acts that the controls take: txtSearch typed, keys; tvwFilter node clicked; msgFilter row
// selected, double click, F2, Delete; lxtOther picked, keys, letters typed; txtFrom, txtTo typed,
// left, Enter; datFrom, datTo, datDate changed; datDate ticked; cmdChoose and cmdOk pressed; form
// Enter (OK), Escape and closed (Cancel).
class frmFilter final : public Form {
 public:
  // Both must outlive the form.
  frmFilter(Session& session, FormView& view);

  // Opens the dialog on a copy of list. True: OK, or there is nothing to filter. Only OK writes to
  // list (the conditions of its fields) and where (the condition text). An OK whose conditions
  // cannot be written back leaves the dialog open.
  bool ShowFilter(ListType& list, Text& where, std::int32_t hWndOwner);

  // Fills tree and grid from the record and opens the first node's editor. False when no column is
  // filterable: then there is nothing to show, and the form counts as confirmed.
  bool Init();

  // Whether the text is a number, in the sense of the text helpers, that a database can hold: at
  // most 1E125, whatever its sign.
  static bool IsNum(TextView text) { return IsDatabaseNumber(text); }

  // In the order of the Tab key, which walks Clear in front of OK and Cancel.
  Label lblSearch{*this, u"lblSearch", u"查找(&F)"};
  SearchBox txtSearch{*this, u"txtSearch"};
  Frame Frame3{*this, u"Frame3", u"可选项目(&M)"};  // around the search, too
  TreeView tvwFilter{*this, u"tvwFilter"};
  Frame Frame1{*this, u"Frame1", u"条件设置"};
  Label lblTitle{*this, u"lblTitle"};  // shows an "&" as it is
  Label lblOther{*this, u"lblOther"};  // of lxtOther, or datDate
  PickCombo lxtOther{*this, u"lxtOther"};
  DateSpinner datDate{*this, u"datDate"};
  CommandButton cmdChoose{*this, u"cmdChoose", u"选择项目(&S)..."};  // of CODE and ENUM columns
  Label lblValue{*this, u"lblValue", u"值(&V)"};                     // of a txtFrom that is alone
  Label lblFrom{*this, u"lblFrom", u"从"};
  TextBox txtFrom{*this, u"txtFrom"};
  DateSpinner datFrom{*this, u"datFrom"};
  Label lblTo{*this, u"lblTo", u"到"};
  TextBox txtTo{*this, u"txtTo"};
  DateSpinner datTo{*this, u"datTo"};
  Frame Frame2{*this, u"Frame2", u"已选条件(&H)"};
  MSFlexGrid msgFilter{*this, u"msgFilter"};
  Label lblCount{*this, u"lblCount"};  // how many conditions there are, or that no column is found
  // OK, Cancel, Clear.
  std::array<CommandButton, 3> cmdOk{CommandButton{*this, u"cmdOk", u"确定", 0},
                                     CommandButton{*this, u"cmdOk", u"取消", 1},
                                     CommandButton{*this, u"cmdOk", u"清除", 2}};

  void UserPressedEnter() override { cmdOk[0].UserPressed(); }
  void UserPressedEscape() override { cmdOk[1].UserPressed(); }
  void UserClosed() override;

 private:
  enum class Commit { Nothing, Written, Refused };

  void SearchColumns();
  void OpenFound();
  void GoToTree();
  void OpenColumn(int field);
  void OpenRow();
  void OpenEditor(int field);
  void CloseEditor();
  void EnterEditor();
  bool FocusEditor();
  void LoadList(const ListFieldType& field);
  void ShowCondition();
  void ArrangeEditors();
  void EmptyEditors();

  // What the open editor edits; all false while none is open.
  bool Edits(FieldType::Editor editor) const;
  bool EditsValue() const;
  bool EditsChoice() const;

  void Picked(int row);
  void ChooseItems();
  void BoxLeft(const Control* next);
  bool IsRefused();
  void DeleteRow();
  void Ok();
  void Cancel();
  void Clear();

  Commit CommitValue();
  void Unmark();
  void CommitPeriod(const Text& word);
  void ShowRows();
  void ShowCount();
  void WriteRow(const Text& text, const Text& value);
  void RemoveRow();

  Session& session_;
  FormView& view_;
  ListType list_;
  FilterRows rows_{msgFilter};
  FilterTree tree_{list_, rows_, txtSearch, tvwFilter};
  CodeListCache lists_;
  Text result_;
  bool confirmed_ = false;
  bool busy_ = false;
  int field_ = -1;                   // being edited; -1 while no editor is open
  const FieldType* type_ = nullptr;  // of that field; not null while an editor is open
  Text word_;                        // the operator or keyword in force, as picked
  bool pending_ = false;             // a typed value or a picked operator is not in the grid yet
  bool typed_ = false;               // the user has typed since the boxes were filled or emptied
};

}  // namespace fetchkit
