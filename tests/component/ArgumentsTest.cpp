// What goes over the edge: references, omitted arguments, records, errors, and callers who do it
// wrong.
#include <gmock/gmock.h>

#include <cstring>
#include <map>

#include "base/Utf8.h"
#include "component/com/Variants.h"
#include "session/Interface.h"
#include "session/SampleBooks.h"
#include "support/Component.h"

namespace fetchkit::test {
namespace {

class Arguments : public ComponentTest {};

// Row 12, column 28 of "AB12", into variables of every kind that callers have.
TEST_F(Arguments, AReferenceIsWrittenBackInTheTypeThatTheCallerHas) {
  const auto utility = CreateUtility();
  struct {
    const char* name;
    Value variable;
    By by;
    const char* row;
  } rows[] = {
      {"a script's variable without a value", Value(), By::VariantReference, "long 12"},
      {"a script's number of another type", std::int16_t{7}, By::VariantReference, "long 12"},
      {"a script's text that is a number", u"7", By::VariantReference, "long 12"},
      {"a Long", std::int32_t{7}, By::TypedReference, "long 12"},
      {"an Integer", std::int16_t{7}, By::TypedReference, "integer 12"},
      {"a Double", 7.0, By::TypedReference, "double 12"},
      {"a text", u"7", By::TypedReference, "text 12"},
      {"an expression", std::int32_t{7}, By::Value, "long 7"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Called call =
        Call(utility.get(), L"CellNameToRowCol", {u"AB12", row.variable, row.variable}, row.by);
    EXPECT_EQ(call.code, S_OK);
    EXPECT_EQ(Show(call.result), "bool True");
    EXPECT_EQ(Show(call.arguments.at(1)), row.row);
    EXPECT_EQ(Show(call.arguments.at(0)), "text AB12") << "not a reference to the member";
  }
  // The old text of an [in, out] text is replaced and freed, a date comes as a date.
  Bstr message(u"旧");
  VARIANT_BOOL valid = VARIANT_TRUE;
  EXPECT_EQ(utility->CellIsValid(Bstr(u"A1,B2").get(), message.InOut(), &valid), S_OK);
  EXPECT_EQ(valid, VARIANT_FALSE);
  EXPECT_EQ(message.view(), u"不允许多单元格！");
  const auto entry = LogIn();
  const auto activity = Get(entry, &IInterface::get_Activity);
  const Value zero = Date{0};
  const Called range = Call(activity.get(), L"GetBeginAndEndDate",
                            {u"本月", zero, Value(), Value(), false}, By::VariantReference);
  EXPECT_EQ(Show(range.result), "bool True");
  EXPECT_EQ(Show(range.arguments.at(2)), "date 2004-03-01");
  EXPECT_EQ(Show(range.arguments.at(3)), "date 2004-03-31");
}

TEST_F(Arguments, OmittedOnesAreMissingAndTextsKeepTheirLength) {
  const auto entry = LogIn();
  const auto activity = Get(entry, &IInterface::get_Activity);
  host_->TakeSent();
  Call(activity.get(), L"GetSysSetting", {u"k"});
  Call(activity.get(), L"GetSysSetting", {u"k", MissingValue(), MissingValue(), std::int32_t{4}});
  EXPECT_THAT(host_->TakeSent(),
              testing::ElementsAre(
                  "static: SELECT * FROM Setting WHERE strKey='k' AND lngOrganizationID=20",
                  "static: SELECT * FROM Setting WHERE strKey='k' AND lngModuleID=4 AND "
                  "lngOrganizationID=20"));
  // A null text is the empty one; no text may come back null.
  Bstr result;
  EXPECT_EQ(CreateUtility()->GetFileName(nullptr, result.Out()), S_OK);
  EXPECT_NE(result.get(), nullptr);
  EXPECT_EQ(result.view(), u"");
}

TEST_F(Arguments, WhatRaisesGivesItsNumberWithDescriptionAndSource) {
  const auto entry = LogIn();
  const auto organization = Get(entry, &IInterface::get_LoginOrganization);
  const auto activity = Get(entry, &IInterface::get_Activity);
  const auto utility = CreateUtility();
  const auto lists = Get(entry, &IInterface::get_ListSet);
  const Text long24(24, u'x');
  struct {
    const char* name;
    IDispatch* object;
    const wchar_t* member;
    WORD flags;
    std::vector<Value> arguments;
    unsigned code;
    bool described;  // the component's own errors are, the system's need not be
  } rows[] = {
      {"type mismatch in a getter",
       organization.get(),
       L"BeginYear",
       DISPATCH_PROPERTYGET,
       {},
       0x800A000D,
       true},
      {"a text too long to be scrambled",
       utility.get(),
       L"Security",
       DISPATCH_METHOD,
       {long24},
       0x800A0005,
       true},
      {"a number too large for an Integer",
       utility.get(),
       L"CellColToString",
       DISPATCH_METHOD,
       {std::int32_t{70000}},
       0x8002000A,
       false},
      {"a number too large for a byte reference",
       activity.get(),
       L"GetYearOfDate",
       DISPATCH_METHOD,
       {Date{1}, Date{1}, Date{1}, std::int32_t{70000}},
       0x8002000A,
       false},
      {"a text where a number is needed",
       utility.get(),
       L"StrLeft",
       DISPATCH_METHOD,
       {u"a", u"b"},
       0x80020005,
       false},
      {"too few arguments", utility.get(), L"StrLeft", DISPATCH_METHOD, {u"a"}, 0x8002000E, false},
      {"too many arguments",
       utility.get(),
       L"StrLen",
       DISPATCH_METHOD,
       {u"a", u"b"},
       0x8002000E,
       false},
      {"a property that is read-only",
       entry.get(),
       L"LoginDate",
       DISPATCH_PROPERTYPUT,
       {u"x"},
       0x80020003,
       false},
      {"a member that is none", entry.get(), L"Logout", DISPATCH_METHOD, {}, 0x80020006, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const Called call = Call(row.object, row.member, row.flags, row.arguments);
    EXPECT_EQ(static_cast<unsigned>(call.code), row.code);
    if (!row.described) continue;
    EXPECT_NE(ToUtf8(call.description), "");
    EXPECT_EQ(call.source, u"FetchKit");
  }
  // Early-bound, the same stands in the thread's error object.
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
            Call(organization.get(), L"BeginYear", DISPATCH_PROPERTYGET, {}).description);
  EXPECT_EQ(source.view(), u"FetchKit");
}

// The list record early-bound; frees what it got.
struct Record : ::ListType {
  Record() : ::ListType{} {}
  ~Record() {
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
  Record first;
  ASSERT_EQ(lists->get_List(&first), S_OK);
  ASSERT_TRUE(first.ListField);
  EXPECT_EQ(SafeArrayGetElemsize(first.ListField), sizeof(::ListFieldType));
  EXPECT_EQ(first.lngViewID, 5);
  EXPECT_EQ(ViewOf(first.strViewName), u"值strViewName");
  EXPECT_EQ(ViewOf(first.Field(0).strFieldType), u"STRING");
  EXPECT_EQ(first.Field(0).blnIsMust, VARIANT_TRUE);
  const Text caption(ViewOf(first.Field(0).strListFieldDesc));

  Replace(first.Field(0).strListFieldDesc, Text(u"改\0了", 3));
  Replace(first.strListFrom, u"Voucher");
  first.intFixedCols = 9;
  Record untouched;
  ASSERT_EQ(lists->get_List(&untouched), S_OK);
  EXPECT_EQ(ViewOf(untouched.Field(0).strListFieldDesc), caption) << "the caller edits ours";

  ASSERT_EQ(lists->put_List(&first), S_OK);
  Replace(first.Field(0).strListFieldDesc, u"later");
  Record second;
  ASSERT_EQ(lists->get_List(&second), S_OK);
  EXPECT_EQ(ViewOf(second.Field(0).strListFieldDesc), TextView(u"改\0了", 3));
  EXPECT_EQ(second.intFixedCols, 9);
  EXPECT_EQ(GetText(lists, &IListSet::get_ListFrom), u"Voucher");

  // A record whose array was never dimensioned has no fields; a foreign array is refused and
  // changes nothing.
  Record foreign;
  foreign.ListField = SafeArrayCreateVector(VT_I4, 0, 3);
  EXPECT_EQ(static_cast<unsigned>(lists->put_List(&foreign)), 0x800A0005u);
  EXPECT_EQ(GetText(lists, &IListSet::get_ListFrom), u"Voucher");
  Record empty;
  EXPECT_EQ(lists->put_List(&empty), S_OK);
  ASSERT_EQ(lists->get_List(&empty), S_OK);
  ASSERT_TRUE(empty.ListField);
  LONG upper = 0;
  SafeArrayGetUBound(empty.ListField, 1, &upper);
  EXPECT_EQ(upper, -1);
}

// Each function through its slot with nothing but zeros and null pointers.
TEST_F(Arguments, NullPointersAreRefusedAndNothingElseHappens) {
  const auto entry = LogIn();
  const std::map<std::string, ComPtr<IUnknown>> objects = {
      {"IInterface", entry.As<IUnknown>(IID_IInterface)},
      {"IUtility", CreateUtility().As<IUnknown>(IID_IUtility)},
      {"IActivity", Get(entry, &IInterface::get_Activity).As<IUnknown>(IID_IActivity)},
      {"IListSet", Get(entry, &IInterface::get_ListSet).As<IUnknown>(IID_IListSet)},
      {"IBusiness", Get(entry, &IInterface::get_Business).As<IUnknown>(IID_IBusiness)},
      {"IOrganization",
       Get(entry, &IInterface::get_LoginOrganization).As<IUnknown>(IID_IOrganization)},
      {"IOperator", Get(entry, &IInterface::get_LoginOperator).As<IUnknown>(IID_IOperator)},
      {"ICustomerSs", Get(entry, &IInterface::get_CustomerSs).As<IUnknown>(IID_ICustomerSs)},
      {"IOperatorRight",
       Get(entry, &IInterface::get_LoginOperatorRight).As<IUnknown>(IID_IOperatorRight)},
      {"IOrganizationRight",
       Get(entry, &IInterface::get_LoginOrganizationRight).As<IUnknown>(IID_IOrganizationRight)}};
  int called = 0;
  ForEachMember([&](const std::string& interfaceName, const IID&, const std::string& member,
                    ITypeInfo*, FUNCDESC& function) {
    SCOPED_TRACE(interfaceName + "." + member);
    const auto count = static_cast<UINT>(function.cParams);
    std::vector<VARTYPE> types(count);
    std::vector<VARIANT> values(count);
    std::vector<VARIANT*> pointers(count);
    bool hasPointer = false;
    char place[32] = {};
    // The second time there is a place for the result and none for the references; not where a
    // person would have to answer, or the result is a record.
    const bool tryResult = member != "MessageBox" && member != "List";
    for (const bool withResult : {false, true}) {
      if (withResult && !(tryResult && hasPointer)) continue;
      bool expected = false;
      for (UINT i = 0; i < count; ++i) {
        const ELEMDESC& parameter = function.lprgelemdescParam[i];
        types[i] = parameter.tdesc.vt;
        if (types[i] == VT_USERDEFINED) types[i] = VT_I4;
        values[i] = {};
        pointers[i] = &values[i];
        if (types[i] != VT_PTR) continue;
        types[i] = VT_I8;
        // An object by value is described as a pointer too.
        const bool isReference = (parameter.paramdesc.wParamFlags & PARAMFLAG_FOUT) != 0;
        hasPointer = hasPointer || isReference;
        const bool isResult = (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
        if (withResult && isResult)
          values[i].llVal = reinterpret_cast<LONGLONG>(place);
        else
          expected = expected || isReference;
      }
      Variant returned;
      ASSERT_EQ(
          DispCallFunc(objects.at(interfaceName).get(), static_cast<ULONG_PTR>(function.oVft),
                       CC_STDCALL, VT_ERROR, count, types.data(), pointers.data(), returned.Out()),
          S_OK);
      if (expected) {
        EXPECT_EQ(returned.get().scode, E_POINTER);
      }
      if (withResult && !expected) {
        // A result that is owned is freed again.
        const VARTYPE type = function.lprgelemdescParam[count - 1].tdesc.lptdesc->vt;
        void* owned = nullptr;
        std::memcpy(&owned, place, sizeof owned);
        if (type == VT_BSTR) SysFreeString(static_cast<BSTR>(owned));
        if (type == VT_PTR && owned) static_cast<IUnknown*>(owned)->Release();
      }
      ++called;
    }
  });
  EXPECT_GT(called, 250);
}

// What a login shows afterwards, early enough for every object.
std::vector<std::string> LoginShown(const ComPtr<IInterface>& entry) {
  std::vector<std::string> shown;
  const auto business = Get(entry, &IInterface::get_Business);
  const auto organization = Get(entry, &IInterface::get_LoginOrganization);
  const auto person = Get(entry, &IInterface::get_LoginOperator);
  const auto customer = Get(entry, &IInterface::get_CustomerSs);
  for (IDispatch* object :
       {static_cast<IDispatch*>(business.get()), static_cast<IDispatch*>(organization.get()),
        static_cast<IDispatch*>(person.get()), static_cast<IDispatch*>(customer.get())})
    for (const wchar_t* member : {L"CurrencyID", L"NaturalCurDec", L"StartDate", L"ThisYear",
                                  L"ThisPeriod", L"Level", L"IsDetail", L"NextLevelOrganizationId",
                                  L"UseStcPwd", L"OperatorName", L"CustomerID", L"IsInActive"})
      shown.push_back(Show(Call(object, member, DISPATCH_PROPERTYGET, {}).result));
  return shown;
}

TEST_F(Arguments, NumbersOfAHostMayHaveAnyType) {
  auto entry = LogIn();
  const auto plain = LoginShown(entry);
  EXPECT_THAT(plain, testing::Contains("text 李会计"));
  EXPECT_THAT(plain, testing::Contains("integer 2004"));
  for (const VARTYPE type : {VT_I2, VT_R8, VT_CY, VT_DECIMAL, VT_BSTR, VT_BOOL, VT_I8, VT_UI4}) {
    entry = nullptr;
    ASSERT_EQ(CanUnload(), S_OK);
    plan_->numbersAs = type;
    entry = LogIn();
    EXPECT_EQ(LoginShown(entry), plain) << "numbers handed out as VARTYPE " << type;
  }
}

TEST_F(Arguments, ObjectsThatAreNoHostFailQuietly) {
  const auto entry = CreateInterface();
  EXPECT_EQ(entry->Initialize(nullptr), E_POINTER);
  EXPECT_EQ(Initialize(entry, nullptr), S_OK);
  EXPECT_EQ(Initialize(entry, CreateUtility().get()), S_OK);
  EXPECT_EQ(GetText(entry, &IInterface::get_LoginDate), u"");
  // Late-bound, Null and a text are no objects; Nothing is one.
  for (const auto& [argument, code] :
       std::map<std::string, std::pair<Value, unsigned>>{{"Null", {NullValue(), 0x80020005}},
                                                         {"a text", {u"x", 0x80020005}},
                                                         {"Nothing", {Value::Object(), 0}}})
    for (const By by : {By::Value, By::VariantReference})
      EXPECT_EQ(static_cast<unsigned>(Call(entry.get(), L"Initialize", {code.first}, by).code),
                code.second)
          << argument << ", way " << static_cast<int>(by);

  for (const char* member :
       {"HostContext", "AccountTypeInfo", "AccountLogin", "LoginContext", "Fields", "Field"}) {
    plan_->nullObjects = {member};
    EXPECT_EQ(Initialize(CreateInterface(), ComHost().get()), S_OK) << member;
  }
  plan_->nullObjects.clear();
  plan_->otherRecordsets = true;
  EXPECT_EQ(Initialize(CreateInterface(), ComHost().get()), S_OK);
}

// A host that fails at its first, second, ... call, in two ways.
TEST_F(Arguments, AHostMayFailAtEveryCall) {
  for (const HRESULT failure : {E_FAIL, RPC_E_DISCONNECTED}) {
    for (plan_->failAt = 1;; ++plan_->failAt) {
      SCOPED_TRACE(testing::Message() << "call " << plan_->failAt);
      plan_->failure = failure;
      plan_->calls = 0;
      {
        const auto entry = CreateInterface();
        ASSERT_EQ(Initialize(entry, ComHost().get()), S_OK);
        ASSERT_EQ(Get(entry, &IInterface::get_ListSet)->put_ViewId(5), S_OK);
        long id = -1;
        ASSERT_EQ(Get(entry, &IInterface::get_Activity)->GetNewID(Bstr(u"Voucher").get(), &id),
                  S_OK);
      }
      ASSERT_EQ(CanUnload(), S_OK);
      ASSERT_EQ(plan_->references, 0);
      ASSERT_EQ(host_->openRecordsets, 0);
      if (plan_->calls < plan_->failAt) break;
    }
    EXPECT_GT(plan_->failAt, 100) << "the host was hardly called";
    host_->TakeSent();
  }
}

// An object with named members for ObjectInNodes and ObjectInCollection: Item raises for a key that
// it lacks.
TEST_F(Arguments, CollectionsAreAskedByNameForTheirKeys) {
  const auto utility = CreateUtility();
  CLSID id;
  ComPtr<IDispatch> dictionary;
  ASSERT_EQ(CLSIDFromProgID(L"Scripting.Dictionary", &id), S_OK);
  ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                             reinterpret_cast<void**>(dictionary.Out())),
            S_OK);
  Call(dictionary.get(), L"Add", {u"键", std::int32_t{1}});
  for (const auto member : {&IUtility::ObjectInCollection, &IUtility::ObjectInNodes}) {
    VARIANT_BOOL has = VARIANT_FALSE;
    EXPECT_EQ((utility.get()->*member)(dictionary.get(), Bstr(u"键").get(), &has), S_OK);
    EXPECT_EQ(has, VARIANT_TRUE);
    EXPECT_EQ((utility.get()->*member)(dictionary.get(), Bstr(u"无").get(), &has), S_OK);
    EXPECT_EQ(has, VARIANT_FALSE);
    has = VARIANT_TRUE;
    EXPECT_EQ((utility.get()->*member)(nullptr, Bstr(u"键").get(), &has), S_OK);
    EXPECT_EQ(has, VARIANT_FALSE);
  }
  EXPECT_EQ(Show(Call(dictionary.get(), L"Count", DISPATCH_PROPERTYGET, {}).result), "long 1")
      << "asking added a key";
}

TEST_F(Arguments, WithoutDialogsNothingIsChosen) {
  const auto lists = Get(LogIn(), &IInterface::get_ListSet);
  const Called call =
      Call(lists.get(), L"ShowMultiChoose",
           {Value::Object(), u"部门", u"", u"before", false, Value(), true, std::int32_t{0}},
           By::VariantReference);
  EXPECT_EQ(call.code, S_OK);
  EXPECT_EQ(Show(call.result), "text ");
  EXPECT_EQ(Show(call.arguments.at(3)), "text before");
  EXPECT_EQ(Show(call.arguments.at(6)), "bool False");
}

}  // namespace
}  // namespace fetchkit::test
