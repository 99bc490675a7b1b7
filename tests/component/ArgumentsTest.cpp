// What goes over the edge beside plain arguments: records, errors, numbers of any type, and callers
// and hosts who do it wrong.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <utility>

#include "component/com/ClassFactory.h"
#include "component/com/Variants.h"
#include "component/host/Ado.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/session/Interface.h"
#include "session/SampleBooks.h"
#include "support/Component.h"

namespace fetchkit::test {
namespace {

class Arguments : public ComponentTest {};

// A whole number as a host may hand it out; anything else as it is.
Value As(VARTYPE type, const Value& value) {
  if (!value.Is<std::int32_t>()) return value;
  Variant number(value);
  EXPECT_EQ(VariantChangeType(number.InOut(), number.InOut(), 0, type), S_OK);
  return ValueOf(number.get());
}

// Early-bound callers find it in the thread's error object.
TEST_F(Arguments, WhatRaisesIsDescribed) {
  const auto organization = Get(LogIn(), &IInterface::get_LoginOrganization);
  short year = 0;
  ComPtr<IErrorInfo> info;
  Bstr description;
  Bstr source;
  EXPECT_EQ(organization.As<ISupportErrorInfo>(IID_ISupportErrorInfo)
                ->InterfaceSupportsErrorInfo(IID_IOrganization),
            S_OK);
  EXPECT_EQ(static_cast<unsigned>(organization->get_BeginYear(&year)), 0x800A000Du);
  ASSERT_EQ(GetErrorInfo(0, info.Out()), S_OK);
  info->GetDescription(description.Out());
  info->GetSource(source.Out());
  EXPECT_EQ(description.view(),
            Call(organization.get(), "BeginYear", DISPATCH_PROPERTYGET, {}).description);
  EXPECT_EQ(source.view(), u"FetchKit");
}

// A list record that the component has handed out, as an early-bound caller keeps it.
struct ListRecord : ::ListType {
  ListRecord() : ::ListType{} {}
  ListRecord(const ListRecord&) = delete;
  ListRecord& operator=(const ListRecord&) = delete;
  ~ListRecord() {
    for (const BSTR text : {strViewName, strListName, strListFrom, strListWhere, strListPureWhere,
                            strCurTable, strPrimaryKey})
      SysFreeString(text);
    if (ListField) SafeArrayDestroy(ListField);
  }
  ::ListFieldType& Field(long index) const {
    void* field = nullptr;
    EXPECT_EQ(SafeArrayPtrOfIndex(ListField, &index, &field), S_OK);
    return *static_cast<::ListFieldType*>(field);
  }
};

void Replace(BSTR& text, TextView with) {
  SysFreeString(std::exchange(text, NewBstr(with)));
}

TEST_F(Arguments, RecordsAreCopiesAllTheWayDown) {
  const auto lists = Get(LogIn(), &IInterface::get_ListSet);
  EXPECT_EQ(lists->put_ViewId(5), S_OK);
  ListRecord first;
  ASSERT_EQ(lists->get_List(&first), S_OK);
  EXPECT_EQ(first.lngViewID, 5);
  EXPECT_EQ(ViewOf(first.strViewName), u"值strViewName");
  EXPECT_EQ(ViewOf(first.Field(0).strFieldType), u"STRING");
  EXPECT_EQ(first.Field(0).blnIsMust, VARIANT_TRUE);
  const Text caption(ViewOf(first.Field(0).strListFieldDesc));

  Replace(first.Field(0).strListFieldDesc, Text(u"改\0了", 3));
  Replace(first.strListFrom, u"Voucher");
  first.intFixedCols = 9;
  ListRecord untouched;
  ASSERT_EQ(lists->get_List(&untouched), S_OK);
  EXPECT_EQ(ViewOf(untouched.Field(0).strListFieldDesc), caption) << "the caller edits ours";

  ASSERT_EQ(lists->put_List(&first), S_OK);
  Replace(first.Field(0).strListFieldDesc, u"later");
  ListRecord second;
  ASSERT_EQ(lists->get_List(&second), S_OK);
  EXPECT_EQ(ViewOf(second.Field(0).strListFieldDesc), TextView(u"改\0了", 3));
  EXPECT_EQ(second.intFixedCols, 9);
  EXPECT_EQ(GetText(lists, &IListSet::get_ListFrom), u"Voucher");

  // A foreign array is refused and changes nothing; one that was never dimensioned has no fields.
  ListRecord foreign;
  foreign.ListField = SafeArrayCreateVector(VT_I4, 0, 3);
  EXPECT_EQ(static_cast<unsigned>(lists->put_List(&foreign)), 0x800A0005u);
  EXPECT_EQ(GetText(lists, &IListSet::get_ListFrom), u"Voucher");
  ListRecord empty;
  EXPECT_EQ(lists->put_List(&empty), S_OK);
  ASSERT_EQ(lists->get_List(&empty), S_OK);
  ASSERT_TRUE(empty.ListField);
  EXPECT_EQ(empty.ListField->rgsabound[0].cElements, 0U);
}

TEST_F(Arguments, ConditionsAreAnArrayOfTexts) {
  const auto lists = Get(LogIn(), &IInterface::get_ListSet);
  const auto conditions = [&] {
    std::vector<Text> texts;
    const Value array = Call(lists.get(), "Conditions", DISPATCH_PROPERTYGET, {}).result;
    const auto& held = std::get<Value::Array>(array.data());
    EXPECT_EQ(held->lowerBound, 0);
    for (const Value& item : held->items)
      texts.push_back(std::get<Text>(item.data()));
    return texts;
  };
  EXPECT_EQ(lists->put_ViewId(5), S_OK);
  EXPECT_EQ(conditions(), std::vector<Text>());
  Call(lists.get(), "SetCondition", DISPATCH_METHOD, {u"值strViewFieldDesc", u"等于 x", u""});
  EXPECT_EQ(conditions(), std::vector<Text>{u"值strViewFieldDesc\t等于 x"});
}

// Each function through its slot with zeros and null pointers. Where there are references there is
// a place for the result, so that it is theirs that are refused.
TEST_F(Arguments, NullPointersAreRefusedAndNothingElseHappens) {
  const Objects objects = ObjectsOf(LogIn());
  int refused = 0;
  VARIANT place;  // of any result that owns nothing when it is refused
  ForEachMember([&](const Member& member) {
    SCOPED_TRACE(member.FullName());
    const auto count = static_cast<UINT>(member.function.cParams);
    std::vector<VARTYPE> types(count);
    std::vector<VARIANT> values(count);
    std::vector<VARIANT*> pointers(count);
    int references = 0;
    for (UINT i = 0; i < count; ++i) {
      const ELEMDESC& parameter = member.function.lprgelemdescParam[i];
      types[i] = parameter.tdesc.vt == VT_USERDEFINED ? VARTYPE{VT_I4} : parameter.tdesc.vt;
      if (types[i] == VT_PTR) types[i] = sizeof(void*) == 8 ? VT_I8 : VT_I4;
      values[i] = {};
      pointers[i] = &values[i];
      // An object by value is described as a pointer too.
      const auto flags = parameter.paramdesc.wParamFlags;
      if ((flags & PARAMFLAG_FRETVAL) && references > 0)
        values[i].llVal = reinterpret_cast<LONGLONG>(&place);
      if (flags & PARAMFLAG_FOUT) ++references;
    }
    Variant returned;
    ASSERT_EQ(DispCallFunc(objects.at(member.interfaceName).get(),
                           static_cast<ULONG_PTR>(member.function.oVft), CC_STDCALL, VT_ERROR,
                           count, types.data(), pointers.data(), returned.Out()),
              S_OK);
    if (references == 0) return;
    EXPECT_EQ(returned.get().scode, E_POINTER);
    ++refused;
  });
  EXPECT_GT(refused, 150);
  // A null text is no such pointer but the empty text; no text comes back null.
  Bstr result;
  EXPECT_EQ(CreateUtility()->GetFileName(nullptr, result.Out()), S_OK);
  EXPECT_NE(result.get(), nullptr);
  EXPECT_EQ(result.view(), u"");
}

// What a cell, a range of cells or a script's variable may be, beside what the library has types
// for.
struct Odd {
  const char* name;
  std::function<void(VARIANT&)> make;
  bool isArray = false;
  double number = 0;
  VARTYPE comesBack = VT_EMPTY;  // of NotNull; VT_EMPTY: unchanged
};

void MakeArray(VARIANT& variant, VARTYPE items, std::vector<ULONG> sizes) {
  std::vector<SAFEARRAYBOUND> bounds;
  for (const ULONG size : sizes)
    bounds.push_back({size, 1});
  variant.vt = static_cast<VARTYPE>(VT_ARRAY | items);
  variant.parray = SafeArrayCreate(items, static_cast<UINT>(bounds.size()), bounds.data());
  ASSERT_TRUE(variant.parray);
}

void Change(VARIANT& variant, TextView text, VARTYPE type) {
  Variant from{Value(text)};
  EXPECT_EQ(
      VariantChangeTypeEx(&variant, from.InOut(), MAKELCID(LANG_ENGLISH, SORT_DEFAULT), 0, type),
      S_OK);
}

const Odd kOdd[] = {
    {"an error cell",
     [](VARIANT& variant) {
       variant.vt = VT_ERROR;
       variant.scode = static_cast<SCODE>(0x800A07FA);
     }},
    {"a range of cells",
     [](VARIANT& variant) {
       MakeArray(variant, VT_VARIANT, {2, 3});
       const Variant cell{Value(u"格")};
       LONG at[] = {2, 3};
       SafeArrayPutElement(variant.parray, at, const_cast<VARIANT*>(&cell.get()));
     },
     true},
    {"numbers in three dimensions",
     [](VARIANT& to) {
       MakeArray(to, VT_I4, {2, 2, 2});
     },
     true},
    {"bytes",
     [](VARIANT& variant) {
       MakeArray(variant, VT_UI1, {3});
       LONG at = 2;
       BYTE byte = 0xD6;
       SafeArrayPutElement(variant.parray, &at, &byte);
     },
     true},
    {"texts", [](VARIANT& to) { MakeArray(to, VT_BSTR, {2}); }, true},
    {"an error among values",
     [](VARIANT& variant) {
       MakeArray(variant, VT_VARIANT, {2});
       VARIANT error{};
       error.vt = VT_ERROR;
       error.scode = static_cast<SCODE>(0x800A07D0);
       LONG at = 1;
       SafeArrayPutElement(variant.parray, &at, &error);
     },
     true},
    {"a decimal", [](VARIANT& to) { Change(to, u"1234.5", VT_DECIMAL); }, false, 1234.5, VT_R8},
    {"a currency", [](VARIANT& to) { Change(to, u"-0.25", VT_CY); }, false, -0.25, VT_R8},
    {"an integer of 64 bits", [](VARIANT& to) { Change(to, u"5000000000", VT_I8); }, false, 5e9,
     VT_R8},
    {"without a sign", [](VARIANT& to) { Change(to, u"5000000000", VT_UI8); }, false, 5e9, VT_R8},
    {"a reference to nothing", [](VARIANT& to) { to.vt = VT_BYREF | VT_VARIANT; }},
    {"a reference to no number", [](VARIANT& to) { to.vt = VT_BYREF | VT_DECIMAL; }},
    {"a type that nobody knows", [](VARIANT& to) { to.vt = VT_FILETIME; }},
};

// Content by content, as far as an array shows it.
void ExpectUnchanged(const VARIANT& now, const VARIANT& before) {
  ASSERT_EQ(now.vt, before.vt);
  if (now.vt == VT_ERROR) {
    EXPECT_EQ(now.scode, before.scode);
  }
  if ((now.vt & VT_ARRAY) == 0) return;
  ASSERT_EQ(SafeArrayGetDim(now.parray), SafeArrayGetDim(before.parray));
  for (UINT i = 0; i < SafeArrayGetDim(now.parray); ++i) {
    EXPECT_EQ(now.parray->rgsabound[i].cElements, before.parray->rgsabound[i].cElements);
    EXPECT_EQ(now.parray->rgsabound[i].lLbound, 1);
  }
  const auto* bytes = static_cast<const BYTE*>(now.parray->pvData);
  if (now.vt == (VT_ARRAY | VT_UI1)) {
    EXPECT_EQ(bytes[1], 0xD6);
  }
  const auto* cells = static_cast<const VARIANT*>(now.parray->pvData);
  const auto* cellsBefore = static_cast<const VARIANT*>(before.parray->pvData);
  if (now.vt != (VT_ARRAY | VT_VARIANT)) return;
  for (ULONG cell = 0; cell < now.parray->rgsabound[0].cElements; ++cell)
    EXPECT_EQ(cells[cell].vt, cellsBefore[cell].vt);
}

TEST_F(Arguments, NoValueMakesAMemberRaise) {
  const CancelsDialogs cancels;
  const Objects objects = ObjectsOf(LogIn());
  const auto utility = CreateUtility();
  for (const Odd& odd : kOdd) {
    SCOPED_TRACE(odd.name);
    Variant value;
    odd.make(*value.InOut());
    VARIANT_BOOL answer = VARIANT_FALSE;
    EXPECT_EQ(utility->ArrayIsEmpty(value.get(), &answer), S_OK);
    EXPECT_EQ(answer != VARIANT_FALSE, !odd.isArray);
    EXPECT_EQ(utility->DateIsValid(value.get(), &answer), S_OK);
    EXPECT_EQ(answer, VARIANT_FALSE);
    double number = -1;
    EXPECT_EQ(utility->C2Dbl(value.get(), &number), S_OK);
    EXPECT_EQ(number, odd.number);
    Variant back;
    EXPECT_EQ(utility->NotNull(value.get(), Variant(Value(u"none")).get(), back.Out()), S_OK);
    if (odd.comesBack == VT_R8) {
      EXPECT_EQ(back.get().vt, VT_R8);
      EXPECT_EQ(back.get().dblVal, odd.number);
    } else if (odd.isArray || value.get().vt == VT_ERROR) {
      ExpectUnchanged(back.get(), value.get());
    }

    // Every member that takes any-values, in the place of each at once. References to nothing, and
    // what the system does not copy, do not come through its late-bound calls.
    if ((value.get().vt & VT_BYREF) != 0 || value.get().vt == VT_FILETIME) continue;
    int called = 0;
    ForEachMember([&](const Member& member) {
      const auto count = static_cast<UINT>(member.function.cParams);
      std::vector<VARIANT> arguments;
      bool takesAny = false;
      VARIANT variable;
      VariantInit(&variable);
      VariantCopy(&variable, const_cast<VARIANT*>(&value.get()));
      for (UINT i = count; i-- > 0;) {
        const ELEMDESC& parameter = member.function.lprgelemdescParam[i];
        if (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) continue;
        VARIANT argument{};
        VARTYPE type = parameter.tdesc.vt;
        if (type == VT_PTR) type = parameter.tdesc.lptdesc->vt;
        if (type == VT_VARIANT) {
          takesAny = true;
          argument = value.get();
          if (parameter.tdesc.vt == VT_PTR) {
            argument.vt = VT_BYREF | VT_VARIANT;
            argument.pvarVal = &variable;
          }
        } else {
          argument.vt = type == VT_USERDEFINED ? VARTYPE{VT_I4}
                        : type == VT_PTR       ? VARTYPE{VT_DISPATCH}
                                               : type;
        }
        arguments.push_back(argument);
      }
      if (!takesAny) return;
      ++called;
      DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
      Variant result;
      EXPECT_EQ(objects.at(member.interfaceName)
                    ->Invoke(member.function.memid, IID_NULL, 0, DISPATCH_METHOD, &parameters,
                             result.Out(), nullptr, nullptr),
                S_OK)
          << member.FullName();
      VariantClear(&variable);
    });
    EXPECT_GE(called, 11);
  }
}

// As VBA and PowerShell write them, in any order; the variables are written back.
TEST_F(Arguments, MayBeNamed) {
  const auto activity = Get(LogIn(), &IInterface::get_Activity);
  wchar_t names[][16] = {L"GetDateRange", L"dteBegin", L"dteEnd", L"strDate"};
  LPOLESTR list[] = {names[0], names[1], names[2], names[3]};
  DISPID ids[4] = {};
  ASSERT_EQ(activity->GetIDsOfNames(IID_NULL, list, 4, 0, ids), S_OK);
  for (const UINT named : {3U, 2U}) {
    SCOPED_TRACE(named);
    Variant begin{Value(u"2000-01-01")};
    Variant end;
    const Variant range{Value(u"自定义:2004-02-01,2004-02-29")};
    VARIANT arguments[3] = {};
    arguments[0].vt = arguments[1].vt = VT_BYREF | VT_VARIANT;
    arguments[0].pvarVal = begin.InOut();
    arguments[1].pvarVal = end.InOut();
    arguments[2] = range.get();  // in front of the others where it is not named
    DISPPARAMS parameters{arguments, ids + 1, 3, named};
    Variant result;
    EXPECT_EQ(activity->Invoke(ids[0], IID_NULL, 0, DISPATCH_METHOD, &parameters, result.Out(),
                               nullptr, nullptr),
              S_OK);
    EXPECT_EQ(Show(ValueOf(result.get())), "bool True");
    EXPECT_EQ(Show(ValueOf(begin.get())), "date 2004-02-01");
    EXPECT_EQ(Show(ValueOf(end.get())), "date 2004-02-29");
  }
  DISPPARAMS none{};
  EXPECT_EQ(activity->GetIDsOfNames(IID_IUnknown, list, 1, 0, ids), DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(
      activity->Invoke(4, IID_IDispatch, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
      DISP_E_UNKNOWNINTERFACE);
}

// The name that scripts show.
// As a typed caller hands over its variables, and a script those that hold references themselves.
TEST_F(Arguments, AReferenceIsWrittenInItsOwnType) {
  const auto activity = Get(LogIn(), &IInterface::get_Activity);
  for (const bool nested : {false, true}) {
    SCOPED_TRACE(nested);
    DATE begin = 38051;  // 2004-03-05
    BSTR end = SysAllocString(L"2004-03-20");
    VARIANT dates[4] = {};
    dates[0].vt = VT_BYREF | VT_DATE;
    dates[0].pdate = &begin;
    dates[1].vt = VT_BYREF | VT_BSTR;
    dates[1].pbstrVal = &end;
    for (int i = 0; i < 2; ++i) {
      dates[2 + i].vt = VT_BYREF | VT_VARIANT;
      dates[2 + i].pvarVal = &dates[i];
    }
    short year = 0;
    EXPECT_EQ(activity->GetEndDate(&dates[nested ? 2 : 0], &dates[nested ? 3 : 1], &year), S_OK);
    EXPECT_EQ(dates[0].vt, VT_BYREF | VT_DATE);
    EXPECT_EQ(begin, 38047) << "2004-03-01";
    EXPECT_EQ(std::wstring(end), L"2004-03-04");
    SysFreeString(end);
  }
  // The caller's array is its own.
  SAFEARRAY* bytes = SafeArrayCreateVector(VT_UI1, 0, 4);
  VARIANT arguments[2] = {};
  arguments[0].vt = arguments[1].vt = VT_BYREF | VT_ARRAY | VT_UI1;
  SAFEARRAY* const kept = bytes;
  arguments[0].pparray = arguments[1].pparray = &bytes;
  DISPPARAMS parameters{arguments, nullptr, 2, 0};
  activity->Invoke(13, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
  EXPECT_EQ(bytes, kept);
  SafeArrayDestroy(bytes);
}

TEST_F(Arguments, ObjectsSayOfWhichClassTheyAre) {
  for (const auto& [name, object] : ObjectsOf(LogIn())) {
    ComPtr<ITypeInfo> type;
    const auto described = object.As<IProvideClassInfo>(IID_IProvideClassInfo);
    ASSERT_TRUE(described) << name;
    ASSERT_EQ(described->GetClassInfo(type.Out()), S_OK) << name;
    EXPECT_EQ("I" + NameOf(type.get()), name);
  }
}

// By hand where this system's own functions do not copy and clear such records.
TEST_F(Arguments, RecordsTravelInVariants) {
  const auto lists = Get(LogIn(), &IInterface::get_ListSet);
  EXPECT_EQ(lists->put_ViewId(5), S_OK);
  DISPID list = 0;
  wchar_t name[] = L"List";
  LPOLESTR names[] = {name};
  ASSERT_EQ(lists->GetIDsOfNames(IID_NULL, names, 1, 0, &list), S_OK);
  DISPPARAMS none{};
  VARIANT held{};
  ASSERT_EQ(lists->Invoke(list, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &held, nullptr, nullptr),
            S_OK);
  ASSERT_EQ(held.vt, VT_RECORD);
  auto& record = *static_cast<::ListType*>(held.pvRecord);
  EXPECT_EQ(ViewOf(record.strViewName), u"值strViewName");
  ULONG size = 0;
  EXPECT_EQ(held.pRecInfo->GetSize(&size), S_OK);
  EXPECT_EQ(size, sizeof record);

  Replace(record.strListFrom, u"Voucher");
  DISPID put = DISPID_PROPERTYPUT;
  VARIANT variable{};
  variable.vt = VT_BYREF | VT_VARIANT;
  variable.pvarVal = &held;
  DISPPARAMS one{&variable, &put, 1, 1};
  const auto set = [&](EXCEPINFO* exception) {
    return lists->Invoke(list, IID_NULL, 0, DISPATCH_PROPERTYPUT, &one, nullptr, exception,
                         nullptr);
  };
  EXPECT_EQ(set(nullptr), S_OK);
  EXPECT_EQ(GetText(lists, &IListSet::get_ListFrom), u"Voucher");

  SafeArrayDestroy(std::exchange(record.ListField, SafeArrayCreateVector(VT_I4, 0, 3)));
  EXCEPINFO exception{};
  EXPECT_EQ(set(&exception), DISP_E_EXCEPTION);
  EXPECT_EQ(static_cast<unsigned>(exception.scode), 0x800A0005u);
  EXPECT_EQ(ViewOf(exception.bstrDescription), u"ListField must be an array of ListFieldType");
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  variable = Variant(Value(5)).get();
  EXPECT_EQ(set(nullptr), DISP_E_TYPEMISMATCH);
  {
    ListRecord freed;
    static_cast<::ListType&>(freed) = std::exchange(record, {});
  }
  held.pRecInfo->RecordDestroy(held.pvRecord);
  held.pRecInfo->Release();
}

TEST_F(Arguments, NumbersOfAHostMayHaveAnyType) {
  const auto shown = [this] {
    std::map<std::string, std::string> all;
    for (const auto& [name, value] : PropertiesOf(ObjectsOf(LogIn())))
      all[name] = Show(value);
    EXPECT_EQ(CanUnload(), S_OK);
    return all;
  };
  const auto plain = shown();
  EXPECT_EQ(plain.at("IOrganization.ThisYear"), "integer 2004");
  for (const VARTYPE type : {VT_I2, VT_R8, VT_CY, VT_DECIMAL, VT_BSTR, VT_BOOL, VT_I8, VT_UI4}) {
    for (int statement = 0; statement < kStatementCount; ++statement) {
      Answer answer = FirstLogin()[static_cast<std::size_t>(statement)].second;
      for (std::size_t column = 0; column < answer.columns.size(); ++column)
        for (auto& row : answer.rows)
          if (type != VT_BOOL || answer.columns[column].starts_with(u"bln"))
            row[column] = As(type, row[column]);
      host_->On(FirstLogin()[static_cast<std::size_t>(statement)].first, answer);
    }
    EXPECT_EQ(shown(), plain) << "numbers handed out as VARTYPE " << type;
  }
}

// A host whose connection hands out one recordset at every opening.
class OneRecordsetHost : public hosts::ConnectionObject {
 public:
  OneRecordsetHost(SessionConnectionPtr login, ComPtr<IDispatch> rows)
      : ConnectionObject(std::move(login)), rows_(std::move(rows)) {}

  STDMETHODIMP OpenStaticRecordset(BSTR, IDispatch** recordset, long, long, long, long,
                                   VARIANT_BOOL* result) noexcept override {
    *recordset = ComPtr<IDispatch>(rows_).Detach();
    *result = VARIANT_TRUE;
    return S_OK;
  }
  STDMETHODIMP OpenRecordset(BSTR, IDispatch** recordset, long, long,
                             VARIANT_BOOL* result) noexcept override {
    return OpenStaticRecordset(nullptr, recordset, 0, 0, 0, 0, result);
  }
  STDMETHODIMP CloseRecordset(IDispatch** recordset) noexcept override {
    std::exchange(*recordset, nullptr)->Release();
    return S_OK;
  }
  STDMETHODIMP RecordsetIsEmpty(IDispatch**, VARIANT_BOOL* isEmpty) noexcept override {
    *isEmpty = VARIANT_FALSE;
    return S_OK;
  }

 private:
  ComPtr<IDispatch> rows_;
};

// Fields and recordsets that answer well and hand out nothing.
struct NoField : hosts::FieldsObject {
  using FieldsObject::FieldsObject;
  STDMETHODIMP get_Item(VARIANT, ado::Field**) noexcept override { return S_OK; }
};
struct NoFields : hosts::RecordsetObject {
  using RecordsetObject::RecordsetObject;
  STDMETHODIMP get_Fields(ado::Fields**) noexcept override { return S_OK; }
};
struct FieldsWithoutField : NoFields {
  using NoFields::NoFields;
  STDMETHODIMP get_Fields(ado::Fields** fields) noexcept override {
    *fields = ComPtr<ado::Fields>(new NoField(std::make_shared<hosts::FieldsOfRows>())).Detach();
    return S_OK;
  }
};

// What a service reads out of the one recordset.
Text CodeIn(const ComPtr<IDispatch>& recordset, const SessionConnectionPtr& login) {
  const auto entry = CreateInterface();
  const ComPtr<ISessionConnection> host(new OneRecordsetHost(login, recordset));
  EXPECT_EQ(Initialize(entry, host.get()), S_OK);
  Bstr code;
  EXPECT_EQ(Get(entry, &IInterface::get_Activity)->GetOrganizationCode(20, code.Out()), S_OK);
  return Text(code.view());
}

TEST_F(Arguments, ObjectsThatAreNoHostFailQuietly) {
  const auto entry = CreateInterface();
  EXPECT_EQ(entry->Initialize(nullptr), E_POINTER);
  EXPECT_EQ(Initialize(entry, static_cast<IUnknown*>(nullptr)), S_OK);
  EXPECT_EQ(Initialize(entry, CreateUtility().get()), S_OK);
  EXPECT_EQ(GetText(entry, &IInterface::get_LoginDate), u"");
  RecordsetPtr rows;
  ASSERT_TRUE(host_->OpenRecordset(u"", rows, 0, 0));
  EXPECT_EQ(CodeIn(CreateUtility().As<IDispatch>(IID_IDispatch), host_), u"");
  EXPECT_EQ(CodeIn(ComPtr<IDispatch>(new NoFields(rows)), host_), u"");
  EXPECT_EQ(CodeIn(ComPtr<IDispatch>(new FieldsWithoutField(rows)), host_), u"");
  host_->CloseRecordset(rows);
}

// A member that the library does not use, by its slot.
template <class... Arguments>
HRESULT CallSlot(IUnknown* object, int slot, Arguments... arguments) {
  using Member = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, Arguments...);
  return reinterpret_cast<Member>((*reinterpret_cast<void***>(object))[slot])(object, arguments...);
}

// The system's own recordset, with the one row and column that Wine's keeps.
TEST_F(Arguments, TheSystemsRecordsetIsRead) {
  const CLSID type = {0x00000535, 0, 0x10, {0x80, 0, 0, 0xAA, 0, 0x6D, 0x2E, 0xA4}};
  const auto recordset = Create<ado::Recordset>(type, ado::Recordset::kId);
  ComPtr<ado::Fields> fields;
  ASSERT_EQ(recordset->get_Fields(fields.Out()), S_OK);
  const Variant none{MissingValue()};
  const Variant name(u"strOrganizationCode");
  const Variant code(u"01-𠮷");
  const VARIANT& omitted = none.get();
  ComPtr<ado::Field> field;
  EXPECT_EQ(CallSlot(fields.get(), 13, name.get().bstrVal, 202, LONG_PTR{20}, 0x60, omitted), S_OK)
      << "Append";
  EXPECT_EQ(CallSlot(recordset.get(), 40, omitted, omitted, -1, -1, -1L), S_OK) << "Open";
  EXPECT_EQ(CallSlot(recordset.get(), 30, omitted, omitted), S_OK) << "AddNew";
  ASSERT_EQ(fields->get_Item(name.get(), field.Out()), S_OK);
  EXPECT_EQ(CallSlot(field.get(), 14, code.get()), S_OK) << "put_Value";

  EXPECT_EQ(CodeIn(recordset.As<IDispatch>(IID_IDispatch), host_), u"01-𠮷");
}

// The log component of a host's environment, found by its class.
const auto kWritten = std::make_shared<Text>();

class Log : public ComObject<IHostLog, IID_IHostLog, Text> {
 public:
  using ComObject::ComObject;
  STDMETHODIMP WriteLog(BSTR message, BSTR strA, BSTR strB, long lngC,
                        VARIANT_BOOL* result) noexcept override {
    core() = Join(ViewOf(message), u"|", ViewOf(strA), u"|", ViewOf(strB), u"|", lngC);
    *result = VARIANT_TRUE;
    return S_OK;
  }
};

TEST_F(Arguments, TheLogComponentIsFoundByItsClass) {
  const CLSID type = {0x78A8C12C, 0xB07A, 0x443A, {0x8C, 0xB5, 0xBC, 0x9F, 0x6A, 0x8F, 0x36, 0x5D}};
  const CreatableClass classes[] = {
      {&type, L"", L"", []() -> IUnknown* { return ShellOf<Log>(kWritten); }}};
  ComPtr<IUnknown> factory;
  DWORD cookie = 0;
  ASSERT_EQ(GetClassObject(classes, type, IID_IUnknown, reinterpret_cast<void**>(factory.Out())),
            S_OK);
  ASSERT_EQ(
      CoRegisterClassObject(type, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie),
      S_OK);
  VARIANT_BOOL written = VARIANT_FALSE;
  EXPECT_EQ(CreateUtility()->WriteLog(Bstr(u"甲").get(), Bstr(u"乙").get(), 7, &written), S_OK);
  EXPECT_EQ(written, VARIANT_TRUE);
  EXPECT_EQ(ToUtf8(*kWritten), "无|甲|乙|7");
  EXPECT_EQ(CanUnload(), S_OK);
  CoRevokeClassObject(cookie);
}

}  // namespace
}  // namespace fetchkit::test
