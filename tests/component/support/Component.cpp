#include "support/Component.h"

#include <deque>

#include "component/com/Variants.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/base/Utf8.h"
#include "session/SampleBooks.h"

namespace fetchkit::test {
namespace {

// Every column that a statement beside those of the login reads.
constexpr TextView kColumns =
    u"lngID,strOrganizationCode,blnIsDetail,strSetting,bytCurrencydec,blnFieldUse1,strTitle1,"
    u"strStartDate,strEndDate,intYear,bytPeriod,blnHaveRight,lngRightID,lngKeyID,blnUse,a1,b1,"
    u"lngViewFieldID,strViewFieldDesc,strFieldType,lngListFieldID,strBiaTableName,lngListFieldNO1,"
    u"lngViewFieldNO,bytHead,bytFieldSize,blnIsMust,blnIsPrep,strKeyField,bytPrepOrder,"
    u"strTableName,strFieldName,bytFieldDec,blnIsFilter,blnIsChoose,blnIsFixed,blnIsFind,"
    u"blnIsNotList,blnIsFilt,bytFormat,blnNotZero,blnIsChoosed1,lngdisplaywidth,bytSort1,Strpath,"
    u"Strstringop,Strstring1,Strstring2,Strdateop,Dtmdate1,Dtmdate2,Strdoubleop,Dbldouble1,"
    u"Dbldouble2,Blnismulicond,Blnboolean,Strcodeid,Strkeyname,lngListID,strViewName,strViewSQL,"
    u"strCurTable,strViewWhere,strGroup";

Answer WideRow() {
  Answer answer = Rows({}, {{}});
  std::int32_t number = 0;
  for (std::size_t at = 0; at < kColumns.size();) {
    const std::size_t end = std::min(kColumns.find(u',', at), kColumns.size());
    const Text name(kColumns.substr(at, end - at));
    at = end + 1;
    Value value = ++number;
    if (name == u"strStartDate")
      value = u"2004-03-01";
    else if (name == u"strEndDate")
      value = u"2004-03-31";
    else if (name == u"strFieldType")
      value = u"STRING";
    else if (name == u"intYear")
      value = std::int32_t{2004};
    else if (name.starts_with(u"bln") || name.starts_with(u"Bln"))
      value = std::int32_t{1};
    else if (name.starts_with(u"Dtm"))
      value = NullValue();
    else if (value.Is<std::int32_t>() && (name[0] == u's' || name[0] == u'S' || name[0] == u'a'))
      value = Text(u"值").append(name);
    answer.columns.push_back(name);
    answer.rows[0].push_back(std::move(value));
  }
  return answer;
}

}  // namespace

HRESULT CallEntryPoint(const char* name) {
  const HMODULE module = GetModuleHandleW(L"FetchKit.dll");
  if (!module) return S_OK;
  const auto ask = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
      reinterpret_cast<void*>(GetProcAddress(module, name)));
  return ask();
}

std::string Show(const Value& value) {
  static const char* const kTypes[] = {"empty",   "null",  "missing", "bool",   "byte",
                                       "integer", "long",  "single",  "double", "date",
                                       "text",    "array", "object"};
  std::string shown = kTypes[value.data().index()];
  try {
    shown += " " + ToUtf8(ToTextOrEmpty(value));
  } catch (const ConvertError&) {
    // Arrays and objects show their kind alone.
  }
  return shown;
}

Called Call(IDispatch* object, const wchar_t* member, WORD flags, const std::vector<Value>& passed,
            By by) {
  Called called;
  auto* name = const_cast<LPOLESTR>(member);
  DISPID id = 0;
  called.code = object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(called.code)) return called;
  std::deque<Variant> variables;
  for (const Value& value : passed)
    variables.emplace_back(value);
  std::vector<VARIANT> arguments(passed.size());
  for (std::size_t i = 0; i < passed.size(); ++i) {
    VARIANT& argument = arguments[passed.size() - 1 - i];
    VARIANT* variable = variables[i].InOut();
    argument = *variable;
    if (by == By::Value || passed[i].IsMissing()) continue;
    if (by == By::VariantReference || argument.vt <= VT_NULL) {
      argument.vt = VT_BYREF | VT_VARIANT;
      argument.pvarVal = variable;
    } else {
      argument.vt |= VT_BYREF;
      argument.byref = &variable->llVal;  // every type's data start there
    }
  }
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  if (flags & DISPATCH_PROPERTYPUT) {
    parameters.rgdispidNamedArgs = &put;
    parameters.cNamedArgs = 1;
  }
  Variant result;
  EXCEPINFO exception{};
  called.code =
      object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                     flags & DISPATCH_PROPERTYPUT ? nullptr : result.Out(), &exception, nullptr);
  if (called.code == DISP_E_EXCEPTION) called.code = exception.scode;
  called.description = ViewOf(exception.bstrDescription);
  called.source = ViewOf(exception.bstrSource);
  for (const BSTR text : {exception.bstrDescription, exception.bstrSource, exception.bstrHelpFile})
    SysFreeString(text);
  called.result = ValueOf(result.get());
  for (const Variant& variable : variables)
    called.arguments.push_back(ValueOf(variable.get()));
  return called;
}

ComPtr<ITypeLib> TypeLibraryOfComponent() {
  ComPtr<ITypeInfo> info;
  ComPtr<ITypeLib> library;
  UINT index = 0;
  EXPECT_EQ(CreateInterface()->GetTypeInfo(0, LOCALE_NEUTRAL, info.Out()), S_OK);
  EXPECT_EQ(info->GetContainingTypeLib(library.Out(), &index), S_OK);
  return library;
}

void ForEachMember(const std::function<void(const std::string&, const IID&, const std::string&,
                                            ITypeInfo*, FUNCDESC&)>& visit) {
  const ComPtr<ITypeLib> library = TypeLibraryOfComponent();
  for (UINT type = 0; type < library->GetTypeInfoCount(); ++type) {
    ComPtr<ITypeInfo> dispatch;
    ComPtr<ITypeInfo> info;
    HREFTYPE reference = 0;
    TYPEKIND kind = TKIND_MAX;
    library->GetTypeInfoType(type, &kind);
    if (kind != TKIND_DISPATCH) continue;
    library->GetTypeInfo(type, dispatch.Out());
    // The other half of a dual interface has the functions as they are called.
    ASSERT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    ASSERT_EQ(dispatch->GetRefTypeInfo(reference, info.Out()), S_OK);
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    Bstr interfaceName;
    info->GetDocumentation(MEMBERID_NIL, interfaceName.Out(), nullptr, nullptr, nullptr);
    for (UINT index = 0; index < attributes->cFuncs; ++index) {
      FUNCDESC* function = nullptr;
      Bstr name;
      info->GetFuncDesc(index, &function);
      info->GetDocumentation(function->memid, name.Out(), nullptr, nullptr, nullptr);
      visit(ToUtf8(interfaceName.view()), attributes->guid, ToUtf8(name.view()), info.get(),
            *function);
      info->ReleaseFuncDesc(function);
    }
    info->ReleaseTypeAttr(attributes);
  }
}

Objects ObjectsOf(const ComPtr<IInterface>& entry) {
  Objects found;
  std::vector<ComPtr<IDispatch>> all = {entry.As<IDispatch>(IID_IDispatch),
                                        CreateUtility().As<IDispatch>(IID_IDispatch)};
  ForEachMember([&](const std::string& interfaceName, const IID& id, const std::string& member,
                    ITypeInfo*, FUNCDESC& function) {
    if (interfaceName == "IInterface" && function.invkind == INVOKE_PROPERTYGET) {
      const Called got = Call(entry.get(), std::wstring(member.begin(), member.end()).c_str(),
                              DISPATCH_PROPERTYGET, {});
      if (got.result.Is<Value::Object>())
        all.push_back(ComPtr<IUnknown>(ObjectOf(got.result)).As<IDispatch>(IID_IDispatch));
    }
    for (const auto& object : all)
      if (!found.contains(interfaceName))
        if (auto asked = object.As<IDispatch>(id)) found[interfaceName] = std::move(asked);
  });
  return found;
}

std::map<std::string, Value> PropertiesOf(const Objects& objects) {
  std::map<std::string, Value> read;
  ForEachMember([&](const std::string& interfaceName, const IID&, const std::string& member,
                    ITypeInfo*, FUNCDESC& function) {
    if (function.invkind != INVOKE_PROPERTYGET || member == "List") return;
    const Called got =
        Call(objects.at(interfaceName).get(), std::wstring(member.begin(), member.end()).c_str(),
             DISPATCH_PROPERTYGET, {});
    if (!got.result.Is<Value::Object>()) read[interfaceName + "." + member] = got.result;
  });
  return read;
}

int PressesInDialogs::button_ = 0;

PressesInDialogs::PressesInDialogs(int button)
    : hook_(SetWindowsHookExW(WH_CBT, Press, nullptr, GetCurrentThreadId())) {
  button_ = button;
}

PressesInDialogs::~PressesInDialogs() {
  UnhookWindowsHookEx(hook_);
}

LRESULT CALLBACK PressesInDialogs::Press(int code, WPARAM window, LPARAM) {
  if (code == HCBT_ACTIVATE)
    PostMessageW(reinterpret_cast<HWND>(window), WM_COMMAND, static_cast<WPARAM>(button_), 0);
  return 0;
}

ComponentTest::ComponentTest() : host_(GoodHost()), wide_(WideRow()) {
  host_->fallback = [this](TextView) { return &wide_; };
}

void ComponentTest::TearDown() {
  EXPECT_EQ(CanUnload(), S_OK) << "something is still held";
  EXPECT_EQ(plan_->references, 0) << "references to the host's objects were not given back";
}

ComPtr<IInterface> ComponentTest::LogIn() {
  ComPtr<IInterface> entry = CreateInterface();
  EXPECT_EQ(Initialize(entry, ComHost().get()), S_OK);
  return entry;
}

HRESULT Initialize(const ComPtr<IInterface>& entry, IUnknown* connection) {
  ComPtr<IDispatch> object = ComPtr<IUnknown>(connection).As<IDispatch>(IID_IDispatch);
  const IDispatch* const before = object.get();
  const HRESULT result = entry->Initialize(object.InOut());
  EXPECT_EQ(object.get(), before) << "the argument came back changed";
  return result;
}

}  // namespace fetchkit::test
