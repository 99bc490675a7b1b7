// Hosts that are called by name, wholly and in part.
#include <gtest/gtest.h>

#include "support/Component.h"
#include "support/NamedHost.h"

namespace fetchkit::test {
namespace {

class NamedHost : public ComponentTest {
 protected:
  // What a login, a list that is loaded and saved, and some services see and send.
  std::vector<std::string> Play(IUnknown* connection) {
    host_->TakeSent();
    auto entry = CreateInterface();
    EXPECT_EQ(Initialize(entry, connection), S_OK);
    std::vector<std::string> seen;
    Objects objects = ObjectsOf(entry);
    Call(objects.at("IListSet").get(), "ViewId", DISPATCH_PROPERTYPUT, {5});
    Call(objects.at("IListSet").get(), "SaveList", {});
    for (const auto& [name, value] : PropertiesOf(objects))
      seen.push_back(name + ": " + Show(value));
    for (const TextView right : {u"1", u"12,45"})
      seen.push_back(Show(Call(objects.at("IOperatorRight").get(), "UserRight", {right}).result));
    seen.push_back(Show(Call(objects.at("IActivity").get(), "GetPeriodCount", {2004}).result));
    for (const std::string& statement : host_->TakeSent())
      seen.push_back(statement);
    objects.clear();
    entry = nullptr;
    EXPECT_EQ(CanUnload(), S_OK);
    EXPECT_EQ(host_->openRecordsets, 0);
    return seen;
  }

  Text LastText() {
    return GetText(Create<IDiagnostics>(CLSID_Diagnostics, IID_IDiagnostics),
                   &IDiagnostics::get_LastText);
  }
};

// An early-bound connection that counts who calls it by name, and hands out what the test wants.
class CountingConnection : public hosts::ConnectionObject {
 public:
  using ConnectionObject::ConnectionObject;
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
    ++named;
    return DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP get_HostContext(IHostContext** result) noexcept override {
    if (!handsOutNamed) return ConnectionObject::get_HostContext(result);
    *result = static_cast<IHostContext*>(NamedContextOf(core().HostContext()).Detach());
    return S_OK;
  }
  STDMETHODIMP OpenRecordset(BSTR sql, IDispatch** recordset, long option1, long option2,
                             VARIANT_BOOL* result) noexcept override {
    if (!handsOutNamed)
      return ConnectionObject::OpenRecordset(sql, recordset, option1, option2, result);
    RecordsetPtr rows;
    return fetchkit::Answer(result, [&] {
      const bool opened = core().OpenRecordset(ViewOf(sql), rows, option1, option2);
      if (opened) *recordset = NamedRecordsetOf(rows).Detach();
      return opened;
    });
  }
  STDMETHODIMP CloseRecordset(IDispatch** recordset) noexcept override {
    RecordsetPtr rows = ScriptObject::RowsOf(*recordset);
    if (!rows) return ConnectionObject::CloseRecordset(recordset);
    return Run([&] {
      core().CloseRecordset(rows);
      std::exchange(*recordset, nullptr)->Release();
    });
  }
  STDMETHODIMP RecordsetIsEmpty(IDispatch** recordset, VARIANT_BOOL* isEmpty) noexcept override {
    RecordsetPtr rows = ScriptObject::RowsOf(*recordset);
    if (!rows) return ConnectionObject::RecordsetIsEmpty(recordset, isEmpty);
    return Run([&] {
      bool empty = *isEmpty != VARIANT_FALSE;
      core().RecordsetIsEmpty(rows, empty);
      Leave(empty, isEmpty);
    });
  }

  static inline int named = 0;
  static inline bool handsOutNamed = false;
};

ComPtr<ISessionConnection> CountingOf(SessionConnectionPtr host) {
  return ComPtr<ISessionConnection>::Attach(ShellOf<CountingConnection>(std::move(host)));
}

TEST_F(NamedHost, SeesAndIsAskedWhatAnEarlyBoundOneIs) {
  CountingConnection::named = 0;
  const auto expected = Play(CountingOf(host_).get());
  EXPECT_GT(expected.size(), 100U);
  EXPECT_EQ(CountingConnection::named, 0) << "an early-bound host was called by name";

  for (const References references : {References::Variants, References::Typed, References::None}) {
    SCOPED_TRACE(static_cast<int>(references));
    ScriptObject::mostAsked = 0;
    ScriptObject::calls = 0;
    EXPECT_EQ(Play(NamedConnectionOf(host_, references).get()), expected);
    EXPECT_EQ(ScriptObject::mostAsked, 1) << "how often an object was asked for a name";
    EXPECT_GT(ScriptObject::calls, 100);
  }
  CountingConnection::handsOutNamed = true;
  EXPECT_EQ(Play(CountingOf(host_).get()), expected) << "context and recordsets by name";
  CountingConnection::handsOutNamed = false;
  EXPECT_EQ(CountingConnection::named, 0);
}

// By name with what has interfaces inside.
TEST_F(NamedHost, MayHandOutWhatHasInterfaces) {
  const auto expected = Play(hosts::ConnectionObjectOf(host_).get());
  const auto early = hosts::ConnectionObjectOf(host_);
  const auto open = [&](std::span<VARIANT> arguments, bool isStatic) {
    VARIANT_BOOL opened = VARIANT_FALSE;
    IDispatch** const variable = &arguments[1].pvarVal->pdispVal;
    const BSTR sql = arguments[0].bstrVal;
    if (isStatic)
      early->OpenStaticRecordset(sql, variable, 3, 1, 1, 0, &opened);
    else
      early->OpenRecordset(sql, variable, 0, 0, &opened);
    return Value(opened != VARIANT_FALSE);
  };
  ScriptObject::Members members = {
      {"HostContext",
       [&](auto) {
         VARIANT context{};
         context.vt = VT_DISPATCH;
         const auto handedOut = Get(early, &ISessionConnection::get_HostContext);
         context.pdispVal = handedOut.get();
         return ValueOf(context);
       }},
      {"CloseRecordset",
       [&](std::span<VARIANT> arguments) {
         early->CloseRecordset(&arguments[0].pvarVal->pdispVal);
         return Value();
       }},
      {"RecordsetIsEmpty",
       [&](std::span<VARIANT> arguments) {
         early->RecordsetIsEmpty(&arguments[0].pvarVal->pdispVal, &arguments[1].pvarVal->boolVal);
         return Value();
       }},
      {"OpenStaticRecordset", [&](std::span<VARIANT> arguments) { return open(arguments, true); }},
      {"OpenRecordset", [&](std::span<VARIANT> arguments) { return open(arguments, false); }},
      {"ExecuteSql", [&](std::span<VARIANT> arguments) {
         VARIANT_BOOL done = VARIANT_FALSE;
         Variant out;
         early->ExecuteSql(arguments[0].bstrVal, arguments[1].lVal, out.InOut(), &done);
         return Value(done != VARIANT_FALSE);
       }}};
  EXPECT_EQ(Play(ScriptObject::Make(members).get()), expected);
}

// Its own words, where a script raises; what is missing, where nothing was asked.
TEST_F(NamedHost, IsHeardWhenItFails) {
  auto entry = CreateInterface();
  host_->login.spoilt = {"Item"};
  EXPECT_EQ(Initialize(entry, NamedConnectionOf(host_, References::Variants).get()), S_OK);
  EXPECT_EQ(LastText(), u"spoilt: Item");
  host_->login.spoilt = {};

  EXPECT_EQ(Initialize(entry, ScriptObject::Make({{"HostContext", [](auto) { return Value(); }},
                                                  {"ExecuteSql", [](auto) { return Value(); }}})
                                  .get()),
            S_OK);
  EXPECT_GT(host_.use_count(), 1) << "an object that is no connection took the place of one";
  ComPtr<IDiagnostics> diagnostics = Create<IDiagnostics>(CLSID_Diagnostics, IID_IDiagnostics);
  EXPECT_EQ(diagnostics->Clear(), S_OK);
  std::vector<Text> told;
  ComPtr<IDispatch> listener = ScriptObject::Make(
      {{"OnFailure", [&](std::span<VARIANT> texts) {
          told.push_back(Join(ToText(ValueOf(texts[0])), u": ", ToText(ValueOf(texts[1]))));
          return Value();
        }}});
  EXPECT_EQ(diagnostics->put_Listener(listener.get()), S_OK);
  EXPECT_EQ(
      Initialize(entry, ScriptObject::Make({{"ExecuteSql", [](auto) { return Value(); }}}).get()),
      S_OK);
  ASSERT_FALSE(told.empty());
  EXPECT_EQ(told[0],
            u"Interface.Initialize: SessionConnection: the object is no connection: it has neither "
            u"the interface of one nor, by name, HostContext, CloseRecordset, RecordsetIsEmpty, "
            u"OpenStaticRecordset, OpenRecordset");
}

}  // namespace
}  // namespace fetchkit::test
