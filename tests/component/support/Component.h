// The component as its callers see it: activation, late-bound calls, and a host to log in to.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "component/Windows.h"
#include "component/com/Bstr.h"
#include "component/com/ComPtr.h"
#include "fetchkit/base/Value.h"
#include "hosts/windows/ConnectionObject.h"
#include "idl/FetchKit.h"
#include "support/FakeConnection.h"

namespace fetchkit::test {

template <class I>
ComPtr<I> Create(const CLSID& type, const IID& id) {
  void* object = nullptr;
  EXPECT_EQ(CoCreateInstance(type, nullptr, CLSCTX_INPROC_SERVER, id, &object), S_OK);
  return ComPtr<I>::Attach(static_cast<I*>(object));
}
inline ComPtr<IInterface> CreateInterface() {
  return Create<IInterface>(CLSID_Interface, IID_IInterface);
}
inline ComPtr<IUtility> CreateUtility() {
  return Create<IUtility>(CLSID_Utility, IID_IUtility);
}

// What the loaded DLL answers; S_OK when it is not loaded.
HRESULT CallEntryPoint(const char* name);
inline HRESULT CanUnload() {
  return CallEntryPoint("DllCanUnloadNow");
}

// What a member that answers with an object answers with; fails the test when it does not.
template <class Object, class Result>
ComPtr<Result> Get(const ComPtr<Object>& object,
                   HRESULT (STDMETHODCALLTYPE Object::*member)(Result**)) {
  ComPtr<Result> result;
  EXPECT_EQ((object.get()->*member)(result.Out()), S_OK);
  EXPECT_TRUE(result);
  return result;
}
template <class Object>
Text GetText(const ComPtr<Object>& object, HRESULT (STDMETHODCALLTYPE Object::*member)(BSTR*)) {
  Bstr result;
  EXPECT_EQ((object.get()->*member)(result.Out()), S_OK);
  return Text(result.view());
}

// How arguments are passed to Invoke: as they are, as references to them, or as references to
// variants that hold them, which is what scripts do with variables.
enum class By { Value, TypedReference, VariantReference };

struct Called {
  HRESULT code = S_OK;  // of Invoke, or the number that the member raised
  Value result;
  std::vector<Value> arguments;  // as they are afterwards
  Text description;
  Text source;
};

// Calls a member by its name as a script does.
Called Call(IDispatch* object, const std::string& member, WORD flags,
            const std::vector<Value>& passed, By by = By::Value);
inline Called Call(IDispatch* object, const std::string& member, const std::vector<Value>& passed,
                   By by = By::Value) {
  return Call(object, member, DISPATCH_METHOD, passed, by);
}

// Type and content, for messages and comparisons.
std::string Show(const Value& value);

// What the component's type library says.
ComPtr<ITypeLib> TypeLibraryOfComponent();
std::string NameOf(ITypeInfo* info, MEMBERID member = MEMBERID_NIL);
void ForEachType(const std::function<void(ITypeInfo* info, const TYPEATTR& attributes)>& visit);
// The functions of a dual interface as they are called, without IDispatch's.
void ForEachFunction(ITypeInfo* dispatch,
                     const std::function<void(ITypeInfo* info, FUNCDESC& function)>& visit);

// The members of all its interfaces.
struct Member {
  std::string interfaceName;
  IID id;
  std::string name;
  FUNCDESC& function;

  std::string FullName() const { return interfaceName + "." + name; }
};
void ForEachMember(const std::function<void(const Member& member)>& visit);

// The entry, what can be got from it, a Utility and a Diagnostics, each by the name of its
// interface.
using Objects = std::map<std::string, ComPtr<IDispatch>>;
Objects ObjectsOf(const ComPtr<IInterface>& entry);

// Every readable property of the objects that is no object or record itself, such as
// "IBusiness.CurrencyID", late-bound.
std::map<std::string, Value> PropertiesOf(const Objects& objects);

// The text that is kept as tests/component/FILE and is in this program as a resource; and compared
// with it, a different text is written beside the program.
std::string Kept(const std::string& file);
void ExpectKept(const std::string& file, const std::string& text);

// Cancels every dialog and message box that the thread shows while it lives.
struct CancelsDialogs {
  CancelsDialogs() { shown = 0; }
  ~CancelsDialogs() { UnhookWindowsHookEx(hook); }
  static LRESULT CALLBACK Cancel(int code, WPARAM window, LPARAM) {
    if (code == HCBT_ACTIVATE) {
      ++shown;
      PostMessageW(reinterpret_cast<HWND>(window), WM_COMMAND, IDCANCEL, 0);
    }
    return 0;
  }
  static inline int shown = 0;
  HHOOK hook = SetWindowsHookExW(WH_CBT, Cancel, nullptr, GetCurrentThreadId());
};

// A test that logs in. Afterwards the library must be willing to go, with every reference to the
// host's objects given back.
class ComponentTest : public testing::Test {
 protected:
  void TearDown() override;

  // A new entry object on which Initialize has been called with the host.
  ComPtr<IInterface> LogIn();

  // The sample login; any other statement is answered with one wide row. While the library holds
  // one of its objects the test is not the only one who does.
  static std::shared_ptr<FakeConnection> MakeHost();
  std::shared_ptr<FakeConnection> host_ = MakeHost();
};

HRESULT Initialize(const ComPtr<IInterface>& entry, IUnknown* connection);
inline HRESULT Initialize(const ComPtr<IInterface>& entry, SessionConnectionPtr host) {
  return Initialize(entry, hosts::ConnectionObjectOf(std::move(host)).get());
}

}  // namespace fetchkit::test
