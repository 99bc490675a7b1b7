#include "fetchkit/listset/ListSet.h"

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/base/ThreadState.h"
#include "fetchkit/dialogs/FilterSql.h"
#include "fetchkit/dialogs/frmFilter.h"
#include "fetchkit/dialogs/frmMultiChoose.h"
#include "fetchkit/listset/Conditions.h"
#include "fetchkit/listset/ListQuery.h"
#include "fetchkit/listset/Saving.h"
#include "fetchkit/listset/ViewLoading.h"
#include "fetchkit/listset/model/ConditionWords.h"
#include "fetchkit/session/model/Session.h"
#include "fetchkit/utility/WindowServices.h"

namespace fetchkit {
namespace {

// Takes the top-most state from an owner window while a dialog is open, so that the dialog is not
// hidden behind it. Handle 0 stands for the foreground window, which is then the one that gets its
// state back.
class OwnerBelowDialog {
 public:
  explicit OwnerBelowDialog(std::int32_t owner)
      : owner_(owner), topMost_(WindowServices::IsTopMostWindow(owner_)) {
    if (topMost_) Place(false);
  }
  ~OwnerBelowDialog() {
    if (topMost_) Step(u"ListSet: top-most owner", [&] { Place(true); });
  }
  OwnerBelowDialog(const OwnerBelowDialog&) = delete;
  OwnerBelowDialog& operator=(const OwnerBelowDialog&) = delete;

 private:
  void Place(bool onTop) {
    WindowServices::SetWindowTopPos(owner_, onTop, WindowPositionConstants::wpDefault, 0, 0, 0, 0);
  }

  std::int32_t owner_;
  bool topMost_;
};

}  // namespace

Text ListSet::ShowMultiChoose(const RecordsetPtr& oCodeRs, TextView strCodeName,
                              TextView strChoosedCond, Text& strShowCond, bool IsEnum,
                              const Value& arrEnum, bool& bOk, std::int32_t hWndOwner) {
  bOk = false;
  return Guarded(u"ListSet.ShowMultiChoose", Text(), [&]() -> Text {
    const HostCall call;
    FormView* view = MAction::CurrentSession().View;
    if (view == nullptr) return {};
    const OwnerBelowDialog owner(hWndOwner);
    MultiChooseResult result = frmMultiChoose(*view).ShowMultiChoose(
        {oCodeRs, Text(strCodeName), Text(strChoosedCond), IsEnum, arrEnum, hWndOwner});
    bOk = result.bOk;
    if (!bOk) return {};
    strShowCond = std::move(result.strShowCond);
    return std::move(result.condition);
  });
}

bool ListSet::ShowFilter(std::int32_t hWndOwner) {
  return Guarded(u"ListSet.ShowFilter", false, [&] {
    const HostCall call;  // an open dialog handles messages
    Session& session = MAction::SessionOfLogin();
    if (session.View == nullptr) return false;
    RequireWhole();
    ListType record = list_;
    Text where = record.strListPureWhere;
    {
      const OwnerBelowDialog owner(hWndOwner);
      if (!frmFilter(session, *session.View).ShowFilter(record, where, hWndOwner)) return false;
    }
    record.strListPureWhere = std::move(where);
    MListSet::SaveConditions(session, record);
    Keep(std::move(record));
    return true;
  });
}

void ListSet::ViewId(std::int32_t lngViewId) {
  // Whatever fails from here on: nothing that another view left can be saved as this one's.
  if (lngViewId != list_.lngViewID) {
    MListSet::DropFields(list_);
    list_.lngViewID = lngViewId;
    loaded_ = {false, false, false};
  }
  LoadedParts loaded{false, false, false};
  ListType record;
  const bool done = Step(u"ListSet.ViewId", [&] {
    record = list_;
    MListSet::LoadView(MAction::SessionOfLogin(), record, loaded);
  });
  if (done) list_ = std::move(record);
  loaded_ = loaded;
  viewId_ = lngViewId;
}

void ListSet::List(ListType record) {
  if (record.lngViewID != list_.lngViewID) loaded_ = {};
  list_ = std::move(record);
}

Text ListSet::GetListSelect() const {
  return MListSet::GetListSelect(list_);
}

ListType ListSet::List() const {
  return Guarded(
      u"ListSet.List", ListType(), [&] { return list_; }, LastError::Kept);
}

void ListSet::RefreshListField() {
  LoadedParts loaded{loaded_.view, false, false};
  ListType record;
  const std::int32_t view = list_.lngViewID;
  const bool done = Step(u"ListSet.RefreshListField", [&] {
    record = list_;
    MListSet::RefreshListField(MAction::SessionOfLogin(), record, loaded);
  });
  if (list_.lngViewID != view) return;
  if (done) list_ = std::move(record);
  loaded_ = loaded;
}

Text ListSet::FindAllKeyID(TextView strCodeTableName, TextView strMulCode) const {
  return Guarded(u"ListSet.FindAllKeyID", Text(), [&] {
    return MListSet::FindAllKeyID(MAction::SessionOfLogin(), strCodeTableName, strMulCode);
  });
}

Text ListSet::ModifyTableName(TextView strSelected, TextView strString, TextView Replace) const {
  return MListSet::ModifyTableName(strSelected, strString, Replace);
}

void ListSet::SaveList() {
  Step(u"ListSet.SaveList", [&] {
    RequireWhole();
    ListType record = list_;
    MListSet::SaveList(MAction::SessionOfLogin(), record);
    Keep(std::move(record));
  });
}

Text ListSet::CondStrToNum(TextView strOperate) const {
  return Guarded(u"ListSet.CondStrToNum", Text(),
                 [&] { return Text(fetchkit::CondStrToNum(strOperate)); });
}

bool ListSet::SetCondition(TextView strListFieldDesc, TextView strCondition, Text& strReason) {
  constexpr TextView kWhat = u"ListSet.SetCondition";
  const MemberScope scope;
  Text reason;
  const bool done = Guarded(kWhat, false, [&] {
    if (!IsWhole())
      reason = Join(u"列表没有完整读入，请重新",
                    loaded_.view ? u"调用 RefreshListField" : u"设置 ViewId");
    RequireWhole();
    ListType record = list_;
    reason =
        MListSet::SetCondition(MAction::SessionOfLogin(), record, strListFieldDesc, strCondition);
    if (reason.empty() && record.lngViewID != list_.lngViewID)
      reason = u"设条件时列表换成了另一个视图";
    if (!reason.empty()) {
      CurrentThread().lastError = reason;
      TellDiagnostics(kWhat, reason, {}, Severity::Note);
      return false;
    }
    Keep(std::move(record));
    return true;
  });
  if (!done && reason.empty()) Step(kWhat, [&] { reason = CurrentThread().lastError; });
  strReason = std::move(reason);
  return done;
}

void ListSet::ClearConditions() {
  Step(u"ListSet.ClearConditions", [&] {
    RequireWhole();
    list_.strListPureWhere = ConditionsToSql(std::vector<FilterRow>(), list_);
  });
}

std::vector<Text> ListSet::Conditions() const {
  return Guarded(
      u"ListSet.Conditions", std::vector<Text>(), [&] { return MListSet::ConditionsOf(list_); },
      LastError::Kept);
}

bool ListSet::IsWhole() const {
  return loaded_.view && loaded_.list && loaded_.fields;
}

void ListSet::RequireWhole() const {
  if (IsWhole()) return;
  throw Error(ErrorKind::InvalidCall,
              Join(u"The list did not come in whole, so it is neither filtered nor saved: ",
                   loaded_.view ? u"call RefreshListField again." : u"set ViewId again."));
}

// Takes over what a call has made of the record, unless another view was loaded meanwhile.
void ListSet::Keep(ListType record) noexcept {
  if (record.lngViewID == list_.lngViewID) list_ = std::move(record);
}

FormView* SetFormView(FormView* view) {
  return Guarded(
      u"SetFormView", static_cast<FormView*>(nullptr),
      [&] { return std::exchange(MAction::CurrentSession().View, view); }, LastError::Kept);
}

}  // namespace fetchkit
