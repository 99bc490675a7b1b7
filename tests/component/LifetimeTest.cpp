// Who keeps whom alive: identity, references, apartments, unloading, growth.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <thread>

#include "fetchkit/session/Interface.h"
#include "support/Component.h"
#include "support/FaultyConnection.h"
#include "support/NamedHost.h"

namespace fetchkit::test {
namespace {

template <class I>
IUnknown* Identity(const ComPtr<I>& object) {
  return object.template As<IUnknown>(IID_IUnknown).get();
}

class Lifetime : public ComponentTest {};

// What a database may well have answered, and what a probe takes for its "no".
bool IsAnswer(Fault fault) {
  return fault == Fault::NoRows || fault == Fault::Null || fault == Fault::NotWritten;
}

void InAnotherApartment(const std::function<void()>& work) {
  std::thread([&] {
    ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    work();
    CoUninitialize();
  }).join();
}

TEST_F(Lifetime, AThreadsObjectsAreTheSameWhoeverAsks) {
  const auto entry = LogIn();
  const auto other = CreateInterface();
  const Objects held = ObjectsOf(entry);
  const Objects theirs = ObjectsOf(other);
  EXPECT_EQ(held.size(), 11U);
  for (const auto& [name, object] : held)
    EXPECT_EQ(Identity(object) == Identity(theirs.at(name)),
              name != "IInterface" && name != "IUtility" && name != "IDiagnostics")
        << name;
  const auto activity = Get(entry, &IInterface::get_Activity);
  EXPECT_EQ(Identity(activity), Identity(held.at("IActivity")));
  EXPECT_EQ(Identity(activity), Identity(activity.As<IDispatch>(IID_IDispatch)));
  // Those that a caller creates are his own.
  EXPECT_NE(Identity(Get(entry, &IInterface::get_ListSet)),
            Identity(Create<IListSet>(CLSID_ListSet, IID_IListSet)));
}

TEST_F(Lifetime, AnObjectOutlivesTheOneItCameFromAndKeepsTheLibrary) {
  auto organization = Get(LogIn(), &IInterface::get_LoginOrganization);
  EXPECT_EQ(CanUnload(), S_FALSE);
  EXPECT_EQ(GetText(organization, &IOrganization::get_OrganizationCode), u"01-02");
  EXPECT_GT(host_.use_count(), 1) << "the login lasts as long as any object";
  organization = nullptr;
  EXPECT_EQ(CanUnload(), S_OK);
  EXPECT_EQ(host_.use_count(), 1);

  // A lock alone keeps it too.
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(CoGetClassObject(CLSID_Activity, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                             reinterpret_cast<void**>(factory.Out())),
            S_OK);
  factory->LockServer(TRUE);
  ComPtr<IUnknown> aggregated;
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown,
                                    reinterpret_cast<void**>(aggregated.Out())),
            CLASS_E_NOAGGREGATION);
  factory->LockServer(FALSE);
}

TEST_F(Lifetime, AnotherConnectionReplacesTheFirst) {
  const auto entry = LogIn();
  const auto second = MakeHost();
  EXPECT_EQ(Initialize(entry, second), S_OK);
  EXPECT_EQ(host_.use_count(), 1);
  EXPECT_GT(second.use_count(), 1);
}

TEST_F(Lifetime, ApartmentsShareNothing) {
  auto mine = LogIn();
  auto activity = Get(mine, &IInterface::get_Activity);
  const auto otherHost = MakeHost();
  otherHost->login.operatorId = std::int32_t{77};
  InAnotherApartment([&] {
    {
      const auto theirs = CreateInterface();
      long id = -1;
      EXPECT_EQ(theirs->get_LoginOperatorId(&id), S_OK);
      EXPECT_EQ(id, 0) << "the other apartment's login shows through";
      EXPECT_EQ(Initialize(theirs, otherHost), S_OK);
      theirs->get_LoginOperatorId(&id);
      EXPECT_EQ(id, 77);
      EXPECT_NE(Identity(Get(theirs, &IInterface::get_Activity)), Identity(activity));
      mine = nullptr;
      activity = nullptr;
      EXPECT_EQ(CanUnload(), S_FALSE);
    }
    EXPECT_EQ(CanUnload(), S_OK);
    EXPECT_EQ(otherHost.use_count(), 1);
    EXPECT_GT(host_.use_count(), 1) << "another thread's host was touched";
  });

  // A thread that ends while the library is in use elsewhere gives its host up without a call.
  mine = CreateInterface();
  const auto left = hosts::ConnectionObjectOf(otherHost);
  InAnotherApartment([&] { EXPECT_EQ(Initialize(CreateInterface(), left.get()), S_OK); });
  ASSERT_EQ(left->AddRef(), 3U) << "ours, the forgotten one and this";
  left->Release();
  left->Release();
  long id = 0;
  EXPECT_EQ(mine->get_LoginOperatorId(&id), S_OK);
  EXPECT_EQ(id, 3);
}

// What the core tells as failures when the same is done without the component.
long NativeFailures(const SessionConnectionPtr& host) {
  const FreshThread fresh;
  const RecordingSink sink;
  Interface entry;
  entry.Initialize(host);
  const auto list = entry.ListSet();
  list->ViewId(5);
  list->SaveList();
  entry.LoginOperatorRight()->UserRight(u"1");
  return static_cast<long>(
      std::count_if(sink.failures.begin(), sink.failures.end(),
                    [](auto& told) { return told.severity == Severity::Failure; }));
}

// Whatever operation of a host's objects fails: no member does, everything is given back, and the
// diagnostics have heard what the core told. By name the host is asked what the core alone asks it.
TEST_F(Lifetime, FaultsOfTheHostEndAtTheMembers) {
  const auto host = std::make_shared<FaultyConnection>(host_);
  int tried = 0;
  int heard = 0;
  for (const bool byName : {false, true}) {
    for (const Fault fault : kFaults) {
      for (const bool forGood : {false, true}) {
        if (byName && forGood) break;
        for (int nth = 1;; ++nth, ++tried) {
          SCOPED_TRACE(testing::Message() << NameOf(fault) << (forGood ? ", from " : ", ") << nth
                                          << (byName ? ", by name" : ""));
          host->Fail(nth, fault, forGood);
          auto entry = CreateInterface();
          const auto connection =
              byName ? NamedConnectionOf(host, References::Variants)
                     : hosts::ConnectionObjectOf(host).As<IDispatch>(IID_IDispatch);
          EXPECT_EQ(Initialize(entry, connection.get()), S_OK);
          auto list = Get(entry, &IInterface::get_ListSet);
          EXPECT_EQ(list->put_ViewId(5), S_OK);
          EXPECT_EQ(list->SaveList(), S_OK);
          auto rights = Get(entry, &IInterface::get_LoginOperatorRight);
          Called asked = Call(rights.get(), "UserRight", {u"1"});
          EXPECT_EQ(asked.code, S_OK);
          const int failed = host->Heal();
          long count = 0;
          Create<IDiagnostics>(CLSID_Diagnostics, IID_IDiagnostics)->get_FailureCount(&count);
          // The component keeps the columns that it has looked up; these faults strike elsewhere.
          if (byName && fault != Fault::ColumnMissing) {
            host->Fail(nth, fault, forGood);
            EXPECT_EQ(count, NativeFailures(host));
            host->Heal();
          }
          if (failed == 0) {
            EXPECT_EQ(count, 0) << "a healthy host's";
          } else if (count > 0) {
            ++heard;
          } else {
            // Of these a host that failed for good would have been heard at the next operation.
            EXPECT_TRUE(!forGood || IsAnswer(fault));
          }
          rights = nullptr;
          list = nullptr;
          entry = nullptr;
          EXPECT_EQ(CanUnload(), S_OK);
          EXPECT_EQ(host->openRecordsets, 0);
          EXPECT_EQ(host->givenBackTwice, 0);
          if (failed == 0 || HasFailure()) break;
        }
      }
    }
  }
  std::printf("Through COM: %d faults tried, %d counted as failures\n", tried, heard);
}

// A registration that fails at the fourth of six classes: under a volatile key nothing lasting can
// be entered.
TEST_F(Lifetime, AHalfDoneRegistrationIsTakenBack) {
  const auto keep = CreateUtility();
  HKEY machine = nullptr;
  HKEY obstacle = nullptr;
  ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Registration test", 0, nullptr, 0,
                            KEY_ALL_ACCESS, nullptr, &machine, nullptr),
            ERROR_SUCCESS);
  ASSERT_EQ(
      RegCreateKeyExW(machine, L"Software\\Classes\\CLSID\\{9D812728-7360-47CA-B999-5B4D65F6138D}",
                      0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr, &obstacle, nullptr),
      ERROR_SUCCESS);
  RegCloseKey(obstacle);
  ASSERT_EQ(RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine), ERROR_SUCCESS);
  const HRESULT result = CallEntryPoint("DllRegisterServer");
  RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
  EXPECT_EQ(result, HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
  for (const auto& [each, expected] :
       {std::pair(L"Software\\Classes", 1u), std::pair(L"Software\\Classes\\CLSID", 0u)}) {
    HKEY key = nullptr;
    DWORD keys = 0;
    ASSERT_EQ(RegOpenKeyExW(machine, each, 0, KEY_READ, &key), ERROR_SUCCESS);
    RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, nullptr, nullptr,
                     nullptr, nullptr, nullptr);
    EXPECT_EQ(keys, expected) << "something but the key CLSID is left";
    RegCloseKey(key);
  }
  RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Registration test");
  RegCloseKey(machine);
}

// The names of the classes are entered once for both sizes.
TEST_F(Lifetime, TheOtherSizeKeepsItsNames) {
  if constexpr (sizeof(void*) == 4) GTEST_SKIP() << "a 32-bit system has one size alone";
  const auto keep = CreateUtility();
  constexpr REGSAM kOther = KEY_ALL_ACCESS | KEY_WOW64_32KEY;
  const wchar_t* const activity = L"{439B84CA-8F11-4B49-815F-33E6B2F4390E}";
  HKEY classes = nullptr;
  HKEY server = nullptr;
  ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\CLSID", 0, nullptr, 0, kOther,
                            nullptr, &classes, nullptr),
            ERROR_SUCCESS);
  ASSERT_EQ(RegCreateKeyExW(classes, (std::wstring(activity) + L"\\InprocServer32").c_str(), 0,
                            nullptr, 0, kOther, nullptr, &server, nullptr),
            ERROR_SUCCESS);
  RegCloseKey(server);
  for (const bool other : {true, false}) {
    EXPECT_EQ(CallEntryPoint("DllRegisterServer"), S_OK);
    EXPECT_EQ(CallEntryPoint("DllUnregisterServer"), S_OK);
    for (const auto& [name, stays] :
         {std::pair(L"Software\\Classes\\FetchKit.Activity\\CLSID", other),
          std::pair(L"Software\\Classes\\FetchKit.Utility\\CLSID", false)}) {
      HKEY key = nullptr;
      const bool isThere =
          RegOpenKeyExW(HKEY_LOCAL_MACHINE, name, 0, KEY_READ, &key) == ERROR_SUCCESS;
      EXPECT_EQ(isThere, stays);
      if (isThere) RegCloseKey(key);
    }
    if (other) RegDeleteTreeW(classes, activity);
  }
  RegCloseKey(classes);
}

// What the process holds: measured by walking its heaps, because not every system that runs this
// counts private bytes and handles. Without allocations of its own between two measurements.
struct Footprint {
  Footprint() {
    std::array<HANDLE, 64> heaps;
    const DWORD count = GetProcessHeaps(heaps.size(), heaps.data());
    for (DWORD i = 0; i < count && i < heaps.size(); ++i) {
      PROCESS_HEAP_ENTRY entry{};
      HeapLock(heaps[i]);
      while (HeapWalk(heaps[i], &entry))
        if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) {
          ++blocks;
          bytes += entry.cbData;
        }
      HeapUnlock(heaps[i]);
    }
    const HANDLE fresh = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    handle = HandleToLong(fresh);
    CloseHandle(fresh);
    std::array<DWORD, 1200> slots;
    while ((slots[freeSlots] = TlsAlloc()) != TLS_OUT_OF_INDEXES)
      ++freeSlots;
    for (std::size_t i = 0; i < freeSlots; ++i)
      TlsFree(slots[i]);
  }
  long long blocks = 0;  // on all heaps
  long long bytes = 0;
  long handle = 0;            // the number of a fresh one: they are given out from the lowest
  std::size_t freeSlots = 0;  // of thread-local storage
};

TEST_F(Lifetime, ActivationsLeaveNothing) {
  const CancelsDialogs cancels;
  const Bstr range(u"自定义:2004-02-01,2004-02-29");
  const auto listener = ScriptObject::Make({{"OnFailure", [](auto) { return Value(); }}});
  for (const bool unloads : {false, true}) {
    SCOPED_TRACE(unloads ? "the library goes with its last object and comes back" : "it stays");
    const auto activate = [&](int times) {
      for (int i = 0; i < times; ++i) {
        {
          const auto diagnostics = Create<IDiagnostics>(CLSID_Diagnostics, IID_IDiagnostics);
          diagnostics->put_Listener(listener.get());
          const auto entry = LogIn();
          short year = 0;
          Get(entry, &IInterface::get_LoginOrganization)->get_BeginYear(&year);  // raises
          Call(entry.get(), "LoginDate", DISPATCH_PROPERTYGET, {});
          DATE first = 0;
          DATE last = 0;
          VARIANT_BOOL answer = VARIANT_FALSE;
          EXPECT_EQ(Get(entry, &IInterface::get_Activity)
                        ->GetDateRange(range.get(), &first, &last, &answer),
                    S_OK);
          EXPECT_EQ(answer, VARIANT_TRUE);
          if (unloads) {
            const auto lists = Get(entry, &IInterface::get_ListSet);
            EXPECT_EQ(lists->put_ViewId(5), S_OK);
            EXPECT_EQ(lists->ShowFilter(0, &answer), S_OK);
            EXPECT_EQ(answer, VARIANT_FALSE);
          }
          host_->TakeSent();
        }
        if (unloads) CoFreeUnusedLibrariesEx(0, 0);
        ASSERT_EQ(GetModuleHandleW(L"FetchKit.dll") == nullptr, unloads);
        ASSERT_EQ(host_.use_count() == 1, unloads);
      }
    };
    activate(unloads ? 3 : 200);
    const Footprint before;
    activate(unloads ? 100 : 1000);
    const Footprint after;
    // Not ours: Wine's labels, of which the dialog has seven, never free their 24 bytes, nor does
    // the 32-bit run-time a lock of 20 that it makes at each load.
    const int foreign = unloads ? 700 + (sizeof(void*) == 4 ? 100 : 0) : 0;
    EXPECT_LT(after.blocks, before.blocks + foreign + 20);
    EXPECT_LT(after.bytes, before.bytes + foreign * 24 + 10000);
    EXPECT_LE(after.handle, before.handle);
    EXPECT_EQ(after.freeSlots, before.freeSlots);
    EXPECT_GT(after.blocks, 1000) << "the heaps were not walked";
    EXPECT_GE(CancelsDialogs::shown, unloads ? 100 : 0);
  }
}

}  // namespace
}  // namespace fetchkit::test
