// The public class ListSet: an operator's saved list over a database view.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "fetchkit/base/Text.h"
#include "fetchkit/listset/model/FormHost.h"
#include "fetchkit/listset/model/TypeDef.h"

namespace fetchkit {

// Holds one list record. Works with the calling thread's session, whose connection it fetches at
// every call. No member throws; what fails leaves things as they were, and the diagnostics sink is
// told. One per thread from Interface.ListSet; hosts may create more.
class ListSet {
 public:
  const Text& AccountName() const { return accountName_; }
  void AccountName(Text strAccountName) { accountName_ = std::move(strAccountName); }

  // Opens the multi-choose dialog and returns the chosen condition text. strShowCond is written
  // only when the user confirmed; bOk always. Without a form host: empty text, bOk false.
  Text ShowMultiChoose(const RecordsetPtr& oCodeRs, TextView strCodeName, TextView strChoosedCond,
                       Text& strShowCond, bool IsEnum, const Value& arrEnum, bool& bOk,
                       std::int32_t hWndOwner);

  // Opens the filter dialog on the record. True: the user confirmed (or there was nothing to
  // filter); the record and its ListPureWhere hold the new conditions, which are saved at once.
  // False, the record as it was, otherwise and without a form host.
  bool ShowFilter(std::int32_t hWndOwner);

  // The id that was set last. Setting it loads the view and the operator's list for it.
  std::int32_t ViewId() const { return viewId_; }
  void ViewId(std::int32_t lngViewId);

  const Text& ListFrom() const { return list_.strListFrom; }
  const Text& ListWhere() const { return list_.strListWhere; }          // without the conditions
  const Text& ListPureWhere() const { return list_.strListPureWhere; }  // the conditions alone

  // " column As caption, column As caption" of the shown columns; empty when none is shown.
  Text GetListSelect() const;

  // A deep copy either way: neither side sees what the other changes later.
  ListType List() const { return list_; }
  void List(ListType record) { list_ = std::move(record); }

  // Loads the columns and conditions again; unsaved edits are gone.
  void RefreshListField();

  // The ids of all codes below the given ones (separated by blanks); see listset/ListQuery.h.
  Text FindAllKeyID(TextView strCodeTableName, TextView strMulCode) const;

  // Renames a table inside SQL text; see listset/ListQuery.h.
  Text ModifyTableName(TextView strSelected, TextView strString, TextView Replace) const;

  // Writes the record back; see listset/Saving.h.
  void SaveList();

  // The code that an operator or date word is stored as; empty for any other word.
  Text CondStrToNum(TextView strOperate) const;

 private:
  Text accountName_;
  std::int32_t viewId_ = 0;
  ListType list_;
};

// Installs who opens the dialogs on the calling thread (null: nobody) and returns who did before.
// Not owned; must outlive its installation.
FormHost* SetFormHost(FormHost* forms);

}  // namespace fetchkit
