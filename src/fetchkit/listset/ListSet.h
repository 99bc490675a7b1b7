// The public class ListSet: an operator's saved list over a database view.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/host/Recordset.h"
#include "fetchkit/listset/LoadedParts.h"
#include "fetchkit/listset/model/TypeDef.h"

namespace fetchkit {

class FormView;

// Holds one list record. Works with the calling thread's session, whose connection it fetches at
// every call. No member throws; what fails leaves things as they were, and the diagnostics sink is
// told. One per thread from Interface.ListSet; hosts may create more.
//
// Whether the view, the list and its columns came in whole is remembered. When a refused statement
// or an error cut one of them short, ShowFilter, SaveList and the members that set conditions do
// nothing but tell the diagnostics until it has been loaded again: they would replace what is
// stored by the part that was read. A list that was never loaded is whole, and so is a view or a
// list without a row.
//
// The host may call back while a member waits for it. Each call works on a record of its own and
// puts it into the object when it ends; a call other than ViewId leaves an object alone that has
// gone to another view meanwhile.
class ListSet {
 public:
  // The host's own note; nothing here reads it.
  const Text& AccountName() const { return accountName_; }
  void AccountName(Text strAccountName) { accountName_ = std::move(strAccountName); }

  // Opens the multi-choose dialog and returns the chosen condition text, "(name='item' 或 ...)".
  // oCodeRs: the codes, read from the current row on and not closed; with IsEnum arrEnum instead,
  // an array of texts whose index 0 is skipped. strChoosedCond: the condition so far. strShowCond
  // is written, with the items for display, only when the user confirmed; bOk always. Empty and bOk
  // false when he did not, on failure, and without a view. hWndOwner: 0 for the foreground window.
  Text ShowMultiChoose(const RecordsetPtr& oCodeRs, TextView strCodeName, TextView strChoosedCond,
                       Text& strShowCond, bool IsEnum, const Value& arrEnum, bool& bOk,
                       std::int32_t hWndOwner);

  // Opens the filter dialog on the record. True: the user confirmed (or there was nothing to
  // filter); the record and its ListPureWhere hold the new conditions, which are saved at once.
  // Those of a list that was never saved (lngListID 0) go to id 0, where no loading finds them:
  // call SaveList first. False, the record as it was, otherwise, without a view to show it and for
  // a list that did not come in whole.
  bool ShowFilter(std::int32_t hWndOwner);

  // The id that was set last. Setting it loads the view and the operator's list for it; what a
  // failing step would have set stays as it was, but nothing stays of another view's columns,
  // conditions and list id. An id without a view loads no columns.
  std::int32_t ViewId() const { return viewId_; }
  void ViewId(std::int32_t lngViewId);

  const Text& ListFrom() const { return list_.strListFrom; }
  const Text& ListWhere() const { return list_.strListWhere; }          // without the conditions
  const Text& ListPureWhere() const { return list_.strListPureWhere; }  // the conditions alone

  // " column As caption, column As caption" of the shown columns; empty when none is shown and on
  // failure.
  Text GetListSelect() const;

  // A deep copy either way: neither side sees what the other changes later. Without memory for the
  // copy an empty record, which the diagnostics sink is told of. A record of the same lngViewID is
  // as whole as the one that it replaces, another one is whole.
  ListType List() const;
  void List(ListType record);

  // Loads the columns and conditions again; unsaved edits are gone. When they cannot be read to
  // their end, the record keeps its own.
  void RefreshListField();

  // The ids, comma-separated, of all codes below the given ones, which blanks separate, in the code
  // table of that keyword; see listset/ListQuery.h. Empty for none and on failure.
  Text FindAllKeyID(TextView strCodeTableName, TextView strMulCode) const;

  // strSelected with a table renamed, without regard to letter case; both names come with one
  // separator behind them, see listset/ListQuery.h.
  Text ModifyTableName(TextView strSelected, TextView strString, TextView Replace) const;

  // Writes the record back for the login operator and organization, its fields and conditions
  // included; after a first save it holds the new ids. See listset/Saving.h for what stands after a
  // failure. Nothing is sent for a list that did not come in whole.
  void SaveList();

  // The code that an operator or date word is stored as; empty for any other word.
  Text CondStrToNum(TextView strOperate) const;

  // Sets a column's condition as the filter dialog would, by the same words and checks: "大于 100",
  // "介于 1,5", "本月", codes; "任意" and "所有" take it away. See listset/Conditions.h for what is
  // taken. True: the record and its ListPureWhere hold it; SaveList saves it. False, and the record
  // as it was: it was refused, the list did not come in whole, or the host has gone to another view
  // meanwhile. strReason then says why, for a user to read; empty with True, and for want of
  // memory. The diagnostics sink hears of a refusal as a note.
  bool SetCondition(TextView strListFieldDesc, TextView strCondition, Text& strReason);

  // Takes all conditions away, as the dialog's button and its OK would; SaveList saves that. Does
  // nothing but tell the diagnostics for a list that did not come in whole.
  void ClearConditions();

  // The conditions that are set, in the order of the columns, each "caption", a tab and what
  // SetCondition takes for it. Empty on failure.
  std::vector<Text> Conditions() const;

 private:
  bool IsWhole() const;
  void RequireWhole() const;
  void Keep(ListType record) noexcept;

  Text accountName_;
  std::int32_t viewId_ = 0;
  ListType list_;
  LoadedParts loaded_;  // not in the record, which is public
};

// Installs who draws the dialogs of the calling thread (null: nobody, and there are no dialogs) and
// returns who did before. Not owned; must outlive its installation. Without memory for a thread's
// first call nobody is installed.
FormView* SetFormView(FormView* view);

}  // namespace fetchkit
