// What goes over the edge: references, omitted arguments, records, errors, and callers who do it
// wrong.
#include <gmock/gmock.h>

#include <cstring>
#include <map>
#include <tuple>

#include "component/com/Variants.h"
#include "component/host/Ado.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/session/Interface.h"
#include "session/SampleBooks.h"
#include "support/Component.h"
#include "support/ListRecord.h"

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

void Replace(BSTR& text, TextView with) {
  SysFreeString(std::exchange(text, NewBstr(with)));
}

TEST_F(Arguments, RecordsAreCopiesAllTheWayDown) {
  const auto lists = Get(LogIn(), &IInterface::get_ListSet);
  EXPECT_EQ(lists->put_ViewId(5), S_OK);
  ListRecord first;
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

  // A record whose array was never dimensioned has no fields; a foreign array is refused and
  // changes nothing.
  ListRecord foreign;
  foreign.ListField = SafeArrayCreateVector(VT_I4, 0, 3);
  EXPECT_EQ(static_cast<unsigned>(lists->put_List(&foreign)), 0x800A0005u);
  EXPECT_EQ(GetText(lists, &IListSet::get_ListFrom), u"Voucher");
  ListRecord empty;
  EXPECT_EQ(lists->put_List(&empty), S_OK);
  ASSERT_EQ(lists->get_List(&empty), S_OK);
  ASSERT_TRUE(empty.ListField);
  LONG upper = 0;
  SafeArrayGetUBound(empty.ListField, 1, &upper);
  EXPECT_EQ(upper, -1);
}

// Each function through its slot with nothing but zeros and null pointers.
TEST_F(Arguments, NullPointersAreRefusedAndNothingElseHappens) {
  const Objects objects = ObjectsOf(LogIn());
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
    plan_->numbersAs = type;
    EXPECT_EQ(shown(), plain) << "numbers handed out as VARTYPE " << type;
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

TEST_F(Arguments, TheMultiChooseDialogWritesBack) {
  const auto lists = Get(LogIn(), &IInterface::get_ListSet);
  for (const auto& [button, shown, ok] :
       {std::tuple(IDCANCEL, "text before", "bool False"), {IDOK, "text ", "bool True"}}) {
    const PressesInDialogs press(button);
    const Called call = Call(
        lists.get(), L"ShowMultiChoose",
        {Value::Object(), u"部门", u"", u"before", false, Value(), button != IDOK, std::int32_t{0}},
        By::VariantReference);
    EXPECT_EQ(call.code, S_OK);
    EXPECT_EQ(Show(call.result), "text ");
    EXPECT_EQ(Show(call.arguments.at(3)), shown);
    EXPECT_EQ(Show(call.arguments.at(6)), ok);
  }
}

// The system's own recordset, with the one row and column that Wine's keeps.
TEST_F(Arguments, TheSystemsRecordsetIsRead) {
  const CLSID type = {0x00000535, 0, 0x10, {0x80, 0, 0, 0xAA, 0, 0x6D, 0x2E, 0xA4}};
  const auto recordset = Create<ado::Recordset>(type, ado::Recordset::kId);
  ComPtr<ado::Fields> fields;
  ASSERT_EQ(recordset->get_Fields(fields.Out()), S_OK);
  // The members that fill it, by their slots.
  const auto slot = [](IUnknown* object, int number) {
    return (*reinterpret_cast<void***>(object))[number];
  };
  VARIANT none;
  VariantInit(&none);
  none.vt = VT_ERROR;
  none.scode = DISP_E_PARAMNOTFOUND;
  using Append = HRESULT(STDMETHODCALLTYPE*)(void*, BSTR, int, LONG_PTR, int, VARIANT);
  using Open = HRESULT(STDMETHODCALLTYPE*)(void*, VARIANT, VARIANT, int, int, long);
  using AddNew = HRESULT(STDMETHODCALLTYPE*)(void*, VARIANT, VARIANT);
  const Bstr name(u"strOrganizationCode");
  VARIANT value;
  value.vt = VT_BSTR;
  const Bstr code(u"01-𠮷");
  value.bstrVal = code.get();
  VARIANT key;
  key.vt = VT_BSTR;
  key.bstrVal = name.get();
  ComPtr<ado::Field> field;
  ASSERT_EQ(reinterpret_cast<Append>(slot(fields.get(), 13))(fields.get(), name.get(), 202, 20,
                                                             0x60, none),
            S_OK);
  ASSERT_EQ(
      reinterpret_cast<Open>(slot(recordset.get(), 40))(recordset.get(), none, none, -1, -1, -1),
      S_OK);
  ASSERT_EQ(reinterpret_cast<AddNew>(slot(recordset.get(), 30))(recordset.get(), none, none), S_OK);
  ASSERT_EQ(fields->get_Item(key, field.Out()), S_OK);
  ASSERT_EQ(field->put_Value(value), S_OK);

  const auto activity = Get(LogIn(), &IInterface::get_Activity);
  plan_->recordset = recordset.As<IDispatch>(IID_IDispatch);
  Bstr answer;
  EXPECT_EQ(activity->GetOrganizationCode(20, answer.Out()), S_OK);
  EXPECT_EQ(answer.view(), u"01-𠮷");
}

// The log component of a host's environment, found by its class.
class Log : public IHostLog, public IClassFactory {
 public:
  STDMETHODIMP QueryInterface(REFIID asked, void** object) override {
    *object = nullptr;
    if (asked == IID_IHostLog || asked == IID_IDispatch) *object = static_cast<IHostLog*>(this);
    if (asked == IID_IClassFactory || asked == IID_IUnknown)
      *object = static_cast<IClassFactory*>(this);
    if (*object) AddRef();
    return *object ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP CreateInstance(IUnknown*, REFIID id, void** object) override {
    return QueryInterface(id, object);
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }
  STDMETHODIMP WriteLog(BSTR message, BSTR strA, BSTR strB, long lngC,
                        VARIANT_BOOL* result) override {
    written = Join(ViewOf(message), u"|", ViewOf(strA), u"|", ViewOf(strB), u"|", lngC);
    *result = VARIANT_TRUE;
    return S_OK;
  }

  ULONG references = 0;
  Text written;
};

TEST_F(Arguments, TheLogComponentIsFoundByItsClass) {
  const CLSID type = {0x78A8C12C, 0xB07A, 0x443A, {0x8C, 0xB5, 0xBC, 0x9F, 0x6A, 0x8F, 0x36, 0x5D}};
  Log log;
  DWORD cookie = 0;
  ASSERT_EQ(CoRegisterClassObject(type, static_cast<IClassFactory*>(&log), CLSCTX_INPROC_SERVER,
                                  REGCLS_MULTIPLEUSE, &cookie),
            S_OK);
  {
    const auto utility = CreateUtility();
    VARIANT_BOOL written = VARIANT_FALSE;
    EXPECT_EQ(utility->WriteLog(Bstr(u"甲").get(), Bstr(u"乙").get(), 7, &written), S_OK);
    EXPECT_EQ(written, VARIANT_TRUE);
    EXPECT_EQ(ToUtf8(log.written), "无|甲|乙|7");
  }
  EXPECT_EQ(CanUnload(), S_OK);
  CoRevokeClassObject(cookie);
  EXPECT_EQ(log.references, 0u);
}

}  // namespace
}  // namespace fetchkit::test
