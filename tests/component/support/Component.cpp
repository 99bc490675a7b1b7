#include "support/Component.h"

#include <algorithm>
#include <deque>
#include <fstream>

#include "component/com/Module.h"
#include "component/com/Variants.h"
#include "fetchkit/base/Utf8.h"
#include "session/SampleBooks.h"

namespace fetchkit::test {
namespace {

// What the columns hold that a statement beside those of the login reads: by the name of each.
Value WideCell(TextView column) {
  static const std::map<TextView, Value> kOthers = {
      {u"strStartDate", u"2004-03-01"}, {u"strEndDate", u"2004-03-31"},
      {u"strFieldType", u"STRING"},     {u"intYear", 2004},
      {u"Dtmdate1", NullValue()},       {u"Dtmdate2", NullValue()}};
  if (const auto other = kOthers.find(column); other != kOthers.end()) return other->second;
  if (column[0] == u's' || column[0] == u'S' || column[0] == u'a')
    return Text(u"值").append(column);
  if (EqualFolded(column.substr(0, 3), u"bln")) return std::int32_t{1};
  std::int32_t number = 0;
  for (const char16_t unit : column)
    number = (number * 3 + unit) % 97;
  return number;
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
                                       "text",    "array", "object",  "opaque"};
  std::string shown = kTypes[value.data().index()];
  try {
    shown += " " + ToUtf8(ToTextOrEmpty(value));
  } catch (const ConvertError&) {
    // Arrays and objects show their kind alone.
  }
  return shown;
}

Called Call(IDispatch* object, const std::string& member, WORD flags,
            const std::vector<Value>& passed, By by) {
  Called called;
  std::wstring wide(member.begin(), member.end());
  LPOLESTR name = wide.data();
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

std::string NameOf(ITypeInfo* info, MEMBERID member) {
  Bstr name;
  info->GetDocumentation(member, name.Out(), nullptr, nullptr, nullptr);
  return ToUtf8(name.view());
}

void ForEachType(const std::function<void(ITypeInfo*, const TYPEATTR&)>& visit) {
  const ComPtr<ITypeLib> library = TypeLibraryOfComponent();
  for (UINT type = 0; type < library->GetTypeInfoCount(); ++type) {
    ComPtr<ITypeInfo> info;
    TYPEATTR* attributes = nullptr;
    library->GetTypeInfo(type, info.Out());
    info->GetTypeAttr(&attributes);
    visit(info.get(), *attributes);
    info->ReleaseTypeAttr(attributes);
  }
}

void ForEachFunction(ITypeInfo* dispatch, const std::function<void(ITypeInfo*, FUNCDESC&)>& visit) {
  ComPtr<ITypeInfo> info;
  HREFTYPE reference = 0;
  ASSERT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
  ASSERT_EQ(dispatch->GetRefTypeInfo(reference, info.Out()), S_OK);
  FUNCDESC* function = nullptr;
  for (UINT index = 0; SUCCEEDED(info->GetFuncDesc(index, &function)); ++index) {
    visit(info.get(), *function);
    info->ReleaseFuncDesc(function);
  }
}

void ForEachMember(const std::function<void(const Member&)>& visit) {
  ForEachType([&](ITypeInfo* type, const TYPEATTR& attributes) {
    if (attributes.typekind != TKIND_DISPATCH) return;
    ForEachFunction(type, [&](ITypeInfo* info, FUNCDESC& function) {
      visit({NameOf(type), attributes.guid, NameOf(info, function.memid), function});
    });
  });
}

Objects ObjectsOf(const ComPtr<IInterface>& entry) {
  Objects found;
  std::vector<ComPtr<IDispatch>> all = {entry.As<IDispatch>(IID_IDispatch),
                                        CreateUtility().As<IDispatch>(IID_IDispatch),
                                        Create<IDispatch>(CLSID_Diagnostics, IID_IDispatch)};
  ForEachMember([&](const Member& member) {
    if (member.interfaceName == "IInterface" && member.function.invkind == INVOKE_PROPERTYGET) {
      const Called got = Call(entry.get(), member.name, DISPATCH_PROPERTYGET, {});
      if (got.result.Is<Value::Object>())
        all.push_back(ComPtr<IUnknown>(ObjectOf(got.result)).As<IDispatch>(IID_IDispatch));
    }
    for (const auto& object : all)
      if (!found.contains(member.interfaceName))
        if (auto asked = object.As<IDispatch>(member.id))
          found[member.interfaceName] = std::move(asked);
  });
  return found;
}

std::map<std::string, Value> PropertiesOf(const Objects& objects) {
  std::map<std::string, Value> read;
  ForEachMember([&](const Member& member) {
    if (member.function.invkind != INVOKE_PROPERTYGET || member.name == "List") return;
    const Called got =
        Call(objects.at(member.interfaceName).get(), member.name, DISPATCH_PROPERTYGET, {});
    if (!got.result.Is<Value::Object>()) read[member.FullName()] = got.result;
  });
  return read;
}

std::string Kept(const std::string& file) {
  const std::wstring name(file.begin(), file.end());
  const HRSRC found = FindResourceW(nullptr, name.c_str(), RT_RCDATA);
  EXPECT_TRUE(found) << file;
  return {static_cast<const char*>(LockResource(LoadResource(nullptr, found))),
          SizeofResource(nullptr, found)};
}

void ExpectKept(const std::string& file, const std::string& text) {
  const std::string kept = Kept(file);
  if (text == kept) return;
  std::ofstream(file, std::ios::binary) << text;
  const auto differs = static_cast<std::size_t>(
      std::mismatch(text.begin(), text.end(), kept.begin(), kept.end()).first - text.begin());
  const std::size_t start = differs ? text.rfind('\n', differs - 1) + 1 : 0;
  ADD_FAILURE() << "first difference:\n  kept: "
                << kept.substr(start, kept.find('\n', start) - start)
                << "\n  now:  " << text.substr(start, text.find('\n', start) - start)
                << "\nThe whole is in " << file
                << " beside this program; if that is what is wanted, "
                << "it is to be kept as tests/component/" << file;
}

void ComponentTest::TearDown() {
  EXPECT_EQ(CanUnload(), S_OK) << "something is still held";
  EXPECT_FALSE(Module::IsUsed()) << "references to the host's objects were not given back";
}

ComPtr<IInterface> ComponentTest::LogIn() {
  ComPtr<IInterface> entry = CreateInterface();
  EXPECT_EQ(Initialize(entry, host_), S_OK);
  return entry;
}

std::shared_ptr<FakeConnection> ComponentTest::MakeHost() {
  const auto host = GoodHost();
  Answer wide = Rows({}, {{}});
  wide.cell = WideCell;
  host->fallback = [wide](TextView) { return &wide; };
  return host;
}

HRESULT Initialize(const ComPtr<IInterface>& entry, IUnknown* connection) {
  ComPtr<IDispatch> object = ComPtr<IUnknown>(connection).As<IDispatch>(IID_IDispatch);
  const IDispatch* const before = object.get();
  const HRESULT result = entry->Initialize(object.InOut());
  EXPECT_EQ(object.get(), before) << "the argument came back changed";
  return result;
}

}  // namespace fetchkit::test
