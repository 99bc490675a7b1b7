// Failures that no member raises: counted, told, written down.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <thread>

#include "component/com/Module.h"
#include "fetchkit/base/Utf8.h"
#include "support/Component.h"
#include "support/NamedHost.h"

namespace fetchkit::test {
namespace {

class Diagnostics : public ComponentTest {
 protected:
  void TearDown() override {
    diagnostics_ = nullptr;
    ComponentTest::TearDown();
  }
  static ComPtr<IDiagnostics> New() {
    return Create<IDiagnostics>(CLSID_Diagnostics, IID_IDiagnostics);
  }
  long Count() const {
    long count = -1;
    EXPECT_EQ(diagnostics_->get_FailureCount(&count), S_OK);
    return count;
  }
  LoginStateConstants LoginState() const {
    LoginStateConstants state = lsNone;
    EXPECT_EQ(diagnostics_->get_LoginState(&state), S_OK);
    return state;
  }
  std::string Last() const {
    std::string all;
    for (const auto member :
         {&IDiagnostics::get_LastMember, &IDiagnostics::get_LastText,
          &IDiagnostics::get_LastStatement, &IDiagnostics::get_LastDatabaseText})
      all += ToUtf8(GetText(diagnostics_, member)) + "|";
    return all;
  }
  // A statement that is refused.
  void Fail(const ComPtr<IInterface>& entry) const {
    host_->On(u"Select strOrganizationCode From Organization Where lngOrganizationID=77",
              Refused());
    const auto activity = Get(entry, &IInterface::get_Activity);
    EXPECT_EQ(Call(activity.get(), "GetOrganizationCode", {77}).code, S_OK);
  }

  ComPtr<IDiagnostics> diagnostics_;
};

constexpr const char* kRefused =
    "Activity.GetOrganizationCode|The database refused the statement.|Select strOrganizationCode "
    "From "
    "Organization Where lngOrganizationID=77|the table is locked|";

TEST_F(Diagnostics, CountWhatHappenedBeforeAnybodyAsked) {
  auto entry = CreateInterface();
  EXPECT_EQ(Initialize(entry, NamedConnectionOf(host_, References::Variants).get()), S_OK);
  diagnostics_ = New();
  EXPECT_EQ(Count(), 0) << "a healthy login: " << Last();
  EXPECT_EQ(LoginState(), lsWhole);
  EXPECT_EQ(GetText(diagnostics_, &IDiagnostics::get_LoginReasons), u"");
  EXPECT_EQ(GetText(diagnostics_, &IDiagnostics::get_LastFailure), u"");
  diagnostics_ = nullptr;
  Fail(entry);
  diagnostics_ = New();
  EXPECT_EQ(Count(), 1);
  EXPECT_EQ(Last(), kRefused);
  EXPECT_EQ(GetText(diagnostics_, &IDiagnostics::get_LastFailure),
            u"Activity.GetOrganizationCode: The database refused the statement.\r\nthe table is "
            u"locked\r\nSelect "
            u"strOrganizationCode From Organization Where lngOrganizationID=77");
  std::thread([&] {
    ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    long count = -1;
    New()->get_FailureCount(&count);
    EXPECT_EQ(count, 0) << "another thread's";
    CoUninitialize();
  }).join();
  EXPECT_EQ(diagnostics_->Clear(), S_OK);
  EXPECT_EQ(Count(), 0);
  EXPECT_EQ(Last(), "||||");

  host_->login.spoilt = {"Password"};
  EXPECT_EQ(Initialize(entry, host_), S_OK);
  EXPECT_EQ(LoginState(), lsPartial);
  EXPECT_EQ(GetText(diagnostics_, &IDiagnostics::get_LoginReasons),
            u"Initialize: LoginOperatorPwd");
}

TEST_F(Diagnostics, TellAListenerForAsLongAsTheyLive) {
  diagnostics_ = New();
  auto entry = LogIn();
  std::vector<std::string> told;
  const auto listens = ScriptObject::Make({{"OnFailure", [&](std::span<VARIANT> texts) {
                                              std::string all;
                                              for (const VARIANT& text : texts)
                                                all += ToUtf8(ToText(ValueOf(text))) + "|";
                                              told.push_back(all);
                                              Fail(entry);  // counted, not told
                                              EXPECT_EQ(CanUnload(), S_FALSE);
                                              throw std::runtime_error("the listener's own");
                                              return Value();
                                            }}});
  for (const auto put : {&IDiagnostics::put_Listener, &IDiagnostics::putref_Listener}) {
    told.clear();
    EXPECT_EQ((diagnostics_.get()->*put)(listens.get()), S_OK);
    EXPECT_EQ(Get(diagnostics_, &IDiagnostics::get_Listener).get(), listens.get());
    Fail(entry);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].starts_with(
        "Activity.GetOrganizationCode|The database refused the statement.|Select str"))
        << told[0];
  }
  EXPECT_EQ(Count(), 4) << "each one told caused another";
  told.clear();
  // Each of several has its own; none is told once it is taken away or its object has gone.
  auto another = New();
  EXPECT_EQ(another->put_Listener(listens.get()), S_OK);
  Fail(entry);
  EXPECT_EQ(told.size(), 2U);
  another = nullptr;
  EXPECT_EQ(diagnostics_->put_Listener(nullptr), S_OK);
  Fail(entry);
  EXPECT_EQ(told.size(), 2U);
  EXPECT_EQ(listens->AddRef(), 2U) << "somebody still holds it";
  listens->Release();
  const auto deaf = ScriptObject::Make({});
  EXPECT_EQ(diagnostics_->put_Listener(deaf.get()), static_cast<HRESULT>(0x800A000D));

  // One that is forgotten keeps nobody: its object's end is its own.
  EXPECT_EQ(diagnostics_->put_Listener(listens.get()), S_OK);
  diagnostics_ = nullptr;
  EXPECT_EQ(listens->AddRef(), 2U);
  listens->Release();
}

std::string Read(const char* file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

TEST_F(Diagnostics, WriteALogWithoutSecrets) {
  for (const char* old : {"failures.log", "failures.log.old"})
    std::remove(old);
  diagnostics_ = New();
  auto entry = LogIn();
  EXPECT_EQ(diagnostics_->put_LogFile(Bstr(u"no such folder\\failures.log").get()),
            static_cast<HRESULT>(0x800A0005));
  EXPECT_EQ(GetText(diagnostics_, &IDiagnostics::get_LogFile), u"");

  HKEY key = nullptr;
  ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\FetchKit", 0, nullptr, 0,
                            KEY_ALL_ACCESS | KEY_WOW64_64KEY, nullptr, &key, nullptr),
            ERROR_SUCCESS);
  RegSetValueExW(key, L"LogFile", 0, REG_SZ, reinterpret_cast<const BYTE*>(L"failures.log"), 26);
  EXPECT_EQ(GetText(diagnostics_, &IDiagnostics::get_LogFile), u"failures.log");
  Fail(entry);
  RegDeleteValueW(key, L"LogFile");
  RegCloseKey(key);
  RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\FetchKit");
  Fail(entry);
  EXPECT_EQ(diagnostics_->put_LogFile(Bstr(u"failures.log").get()), S_OK);
  static const std::pair<const char*, const char*> kWords[] = {
      {"cannot open Driver={X};Server=db;Pwd=topsecret;", "cannot open ***"},
      {"two\nlines, password : topsecret", "two lines, ***"},
      {"at odbc://sa:topsecret@db now", "at odbc***"},
      {"with userPassword=topsecret", "with user***"},
      {"{\"password\": \"topsecret\"}", "{\"***"},
      {"登录失败，密码：topsecret", "登录失败，***"},
      {"the forwarder of 连接 = none", "the forwarder of 连接 = none"}};
  for (const auto& [words, written] : kWords)
    EXPECT_EQ(Initialize(entry, ScriptObject::Make({{"HostContext",
                                                     [&](auto) -> Value {
                                                       throw Error(ErrorKind::Host,
                                                                   FromUtf8(words));
                                                     }},
                                                    {"CloseRecordset", nullptr},
                                                    {"RecordsetIsEmpty", nullptr},
                                                    {"OpenStaticRecordset", nullptr},
                                                    {"OpenRecordset", nullptr},
                                                    {"ExecuteSql", nullptr}})
                                    .get()),
              S_OK);
  const std::string log = Read("failures.log");
  EXPECT_EQ(log.find("topsecret"), std::string::npos) << log;
  for (const auto& [words, written] : kWords)
    EXPECT_NE(log.find(std::string("\t") + written + "\t"), std::string::npos) << words;
  const std::string first = log.substr(0, log.find("\r\n"));
  EXPECT_EQ(first.substr(0, 2), "20") << "a line begins with its time";
  EXPECT_NE(first.find(
                std::to_string(GetCurrentProcessId()) + ":" + std::to_string(GetCurrentThreadId()) +
                "\tActivity.GetOrganizationCode\tThe database refused the statement.\tSelect str"),
            std::string::npos)
      << first;
  EXPECT_EQ(std::count(log.begin(), log.begin() + static_cast<long>(log.find("***")), '\n'), 1)
      << "written without a file:\n"
      << log;

  // A full file is set aside.
  { std::ofstream("failures.log", std::ios::app) << std::string(10 << 20, '.'); }
  Fail(entry);
  EXPECT_GT(Read("failures.log.old").size(), 10u << 20);
  EXPECT_LT(Read("failures.log").size(), 1000U);
}

}  // namespace
}  // namespace fetchkit::test
