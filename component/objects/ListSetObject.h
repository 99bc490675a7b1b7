// FetchKit.ListSet.
//
// One line per member: arguments in, the core's member, the result out. The dialogs are shown in
// windows of this DLL.
#pragma once

#include "component/com/Members.h"
#include "component/host/HostRecordset.h"
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
  using ComObject::ComObject;

  FETCHKIT_PROPERTY(AccountName)
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
  FETCHKIT_PROPERTY(ViewId)
  FETCHKIT_GETTER(ListFrom)
  FETCHKIT_GETTER(ListWhere)
  FETCHKIT_GETTER(ListPureWhere)
  FETCHKIT_METHOD(GetListSelect, 1)
  STDMETHODIMP get_List(::ListType* result) noexcept override {
    return result ? Run([&] { *result = RecordOf(core().List()); }) : E_POINTER;
  }
  STDMETHODIMP put_List(::ListType* record) noexcept override {
    return record ? Run([&] { core().List(ListOf(*record)); }) : E_POINTER;
  }
  // The record in a variant: the system's own late-bound calls leave it to each system what they
  // make of one that holds an array.
  STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID language, WORD flags,
                      DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                      UINT* badArgument) noexcept override {
    constexpr DISPID kList = 9;
    const bool isRecord = member == kList && reserved == IID_NULL && parameters;
    if (isRecord && (flags & DISPATCH_PROPERTYGET) && parameters->cArgs == 0)
      return AsException(Run([&] {
                           if (result) LeaveRecord(core().List(), result);
                         }),
                         exception);
    if (isRecord && (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) &&
        parameters->cArgs == 1)
      return AsException(Run([&] { core().List(ListOf(parameters->rgvarg[0])); }), exception);
    return ComObject::Invoke(member, reserved, language, flags, parameters, result, exception,
                             badArgument);
  }
  FETCHKIT_METHOD(RefreshListField, 0)
  FETCHKIT_METHOD(FindAllKeyID, 3)
  FETCHKIT_METHOD(ModifyTableName, 4)
  FETCHKIT_METHOD(SaveList, 0)
  FETCHKIT_METHOD(CondStrToNum, 2)
  FETCHKIT_METHOD(SetCondition, 4)
  FETCHKIT_METHOD(ClearConditions, 0)
  STDMETHODIMP get_Conditions(VARIANT* result) noexcept override {
    return Answer(result, [&] {
      ValueArray conditions{true, 0, {}};
      for (Text& each : core().Conditions())
        conditions.items.emplace_back(std::move(each));
      return Value(std::move(conditions));
    });
  }
};

}  // namespace fetchkit
