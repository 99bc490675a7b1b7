// FetchKit.ListSet.
//
// One line per member: arguments in, the core's member, the result out. The dialogs are shown in
// windows of this DLL.
#pragma once

#include "component/com/ComObject.h"
#include "component/host/AdoRecordset.h"
#include "component/objects/ListRecord.h"
#include "component/ui/Win32FormView.h"
#include "fetchkit/listset/ListSet.h"
#include "idl/FetchKit.h"

namespace fetchkit {

// Shows the calling thread's dialogs in windows while it lives.
class DialogsInWindows {
 public:
  DialogsInWindows() : before_(SetFormView(&view_)) {}
  ~DialogsInWindows() { SetFormView(before_); }
  DialogsInWindows(const DialogsInWindows&) = delete;
  DialogsInWindows& operator=(const DialogsInWindows&) = delete;

 private:
  ui::Win32FormView view_{Module::Handle()};
  FormView* before_;
};

class ListSetObject : public ComObject<IListSet, IID_IListSet, fetchkit::ListSet> {
 public:
  using Dual = IListSet;
  using ComObject::ComObject;

  STDMETHODIMP get_AccountName(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().AccountName(); });
  }
  STDMETHODIMP put_AccountName(BSTR value) noexcept override {
    return Run([&] { core().AccountName(Text(ViewOf(value))); });
  }
  // bOk is written whatever happens, strShowCond when the user confirmed.
  STDMETHODIMP ShowMultiChoose(IDispatch* oCodeRs, BSTR strCodeName, BSTR strChoosedCond,
                               BSTR* strShowCond, VARIANT_BOOL IsEnum, VARIANT arrEnum,
                               VARIANT_BOOL* bOk, long hWndOwner, BSTR* result) noexcept override {
    return Answer(result, [&] {
      const DialogsInWindows windows;
      return core().ShowMultiChoose(RowsOf(oCodeRs), ViewOf(strCodeName), ViewOf(strChoosedCond),
                                    InOutText(strShowCond), IsEnum != VARIANT_FALSE,
                                    ValueOf(arrEnum), InOutBoolean(bOk), hWndOwner);
    });
  }
  STDMETHODIMP ShowFilter(long hWndOwner, VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] {
      const DialogsInWindows windows;
      return core().ShowFilter(hWndOwner);
    });
  }
  STDMETHODIMP get_ViewId(long* result) noexcept override {
    return Answer(result, [&] { return core().ViewId(); });
  }
  STDMETHODIMP put_ViewId(long value) noexcept override {
    return Run([&] { core().ViewId(value); });
  }
  STDMETHODIMP get_ListFrom(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().ListFrom(); });
  }
  STDMETHODIMP get_ListWhere(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().ListWhere(); });
  }
  STDMETHODIMP get_ListPureWhere(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().ListPureWhere(); });
  }
  STDMETHODIMP GetListSelect(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().GetListSelect(); });
  }
  STDMETHODIMP get_List(::ListType* result) noexcept override {
    return result ? Run([&] { *result = RecordOf(core().List()); }) : E_POINTER;
  }
  STDMETHODIMP put_List(::ListType* record) noexcept override {
    return record ? Run([&] { core().List(ListOf(*record)); }) : E_POINTER;
  }
  STDMETHODIMP RefreshListField() noexcept override {
    return Run([&] { core().RefreshListField(); });
  }
  STDMETHODIMP FindAllKeyID(BSTR strCodeTableName, BSTR strMulCode,
                            BSTR* result) noexcept override {
    return Answer(
        result, [&] { return core().FindAllKeyID(ViewOf(strCodeTableName), ViewOf(strMulCode)); });
  }
  STDMETHODIMP ModifyTableName(BSTR strSelected, BSTR strString, BSTR Replace,
                               BSTR* result) noexcept override {
    return Answer(result, [&] {
      return core().ModifyTableName(ViewOf(strSelected), ViewOf(strString), ViewOf(Replace));
    });
  }
  STDMETHODIMP SaveList() noexcept override {
    return Run([&] { core().SaveList(); });
  }
  STDMETHODIMP CondStrToNum(BSTR strOperate, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().CondStrToNum(ViewOf(strOperate)); });
  }
};

}  // namespace fetchkit
