// What goes over the edge beside plain arguments: records, errors, numbers of any type, and callers
// and hosts who do it wrong.
#include <gtest/gtest.h>

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
