// The DLL's doors: activation, unloading, registration.
#include <memory>

#include "component/RunTimeThreads.h"
#include "component/Windows.h"
#include "component/com/ClassFactory.h"
#include "component/com/Module.h"
#include "component/com/Registration.h"
#include "component/com/TypeLibrary.h"
#include "component/objects/DiagnosticsObject.h"
#include "component/objects/InterfaceObject.h"
#include "component/objects/TypeDefObject.h"
#include "component/objects/UtilityObject.h"
#include "component/platform/WindowsThreadSlot.h"
#include "fetchkit/base/ThreadState.h"

namespace fetchkit {
namespace {

template <class Shell, class Core>
IUnknown* Create() {
  return ShellOf<Shell>(std::make_shared<Core>());
}

const CreatableClass kClasses[] = {
    {&CLSID_Interface, L"FetchKit.Interface", L"FetchKit Interface",
     Create<InterfaceObject, Interface>},
    {&CLSID_Activity, L"FetchKit.Activity", L"FetchKit Activity", Create<ActivityObject, Activity>},
    {&CLSID_Utility, L"FetchKit.Utility", L"FetchKit Utility", Create<UtilityObject, Utility>},
    {&CLSID_ListSet, L"FetchKit.ListSet", L"FetchKit ListSet", Create<ListSetObject, ListSet>},
    {&CLSID_TypeDef, L"FetchKit.TypeDef", L"FetchKit TypeDef", Create<TypeDefObject, TypeDef>},
    {&CLSID_Diagnostics, L"FetchKit.Diagnostics", L"FetchKit Diagnostics",
     Create<DiagnosticsObject, Diagnostics>},
};

}  // namespace
}  // namespace fetchkit

// No host object is touched here: what a thread still holds of the host's is given up when the
// thread ends, and nothing at all is done when the whole process ends (reserved is not null then).
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID reserved) {
  if (reason == DLL_PROCESS_ATTACH) fetchkit::Module::SetHandle(module, u"FetchKit");
  if (reason == DLL_THREAD_DETACH) {
    fetchkit::AbandonThread();
    fetchkit::FreeThreadLocals();
  }
  if (reason == DLL_PROCESS_DETACH && !reserved) {
    fetchkit::AbandonAllThreads();
    fetchkit::FreeRunTime();
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID asked, REFIID interfaceId, void** object) {
  return fetchkit::GetClassObject(fetchkit::kClasses, asked, interfaceId, object);
}

// The library's own caches do not count as use. The calling thread's session goes before the
// answer, because afterwards nobody could release the host's connection.
STDAPI DllCanUnloadNow() {
  if (fetchkit::Module::IsUsed()) return S_FALSE;
  if (!fetchkit::ReleaseThread()) return S_FALSE;
  fetchkit::TypeLibrary::Forget();
  return fetchkit::Module::IsUsed() ? S_FALSE : S_OK;
}

STDAPI DllRegisterServer() {
  return fetchkit::Register(fetchkit::kClasses, fetchkit::RegistrationScope::Machine);
}

STDAPI DllUnregisterServer() {
  return fetchkit::Unregister(fetchkit::kClasses, fetchkit::RegistrationScope::Machine);
}

// "regsvr32 /n /i:user FetchKit.dll" registers for the current user, with /u it takes that back.
// Without a command line it is the same as the two above.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  using fetchkit::RegistrationScope;
  const bool user = commandLine && lstrcmpiW(commandLine, L"user") == 0;
  if (!user && commandLine && *commandLine) return E_INVALIDARG;
  const auto scope = user ? RegistrationScope::User : RegistrationScope::Machine;
  return install ? fetchkit::Register(fetchkit::kClasses, scope)
                 : fetchkit::Unregister(fetchkit::kClasses, scope);
}
