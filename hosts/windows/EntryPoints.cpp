// The doors of FetchKitHost.dll.
#include <memory>

#include "component/RunTimeThreads.h"
#include "component/Windows.h"
#include "component/com/ClassFactory.h"
#include "component/com/Module.h"
#include "component/com/Registration.h"
#include "component/com/TypeLibrary.h"
#include "hosts/windows/OdbcObject.h"
#include "hosts/windows/SampleObject.h"

namespace fetchkit::hosts {
namespace {

const CreatableClass kClasses[] = {
    {&CLSID_Odbc, L"FetchKitHost.Odbc", L"FetchKit on a database over ODBC",
     []() -> IUnknown* { return ShellOf<OdbcObject>(std::make_shared<OdbcHost>()); }},
    {&CLSID_Sample, L"FetchKitHost.Sample", L"FetchKit's sample accounts",
     []() -> IUnknown* { return ShellOf<SampleObject>(std::make_shared<demo::SampleHost>()); }},
};

}  // namespace
}  // namespace fetchkit::hosts

// Nothing at all is done when the whole process ends (reserved is not null then).
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID reserved) {
  if (reason == DLL_PROCESS_ATTACH) fetchkit::Module::SetHandle(module, u"FetchKitHost");
  if (reason == DLL_THREAD_DETACH) fetchkit::FreeThreadLocals();
  if (reason == DLL_PROCESS_DETACH && !reserved) fetchkit::FreeRunTime();
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID asked, REFIID interfaceId, void** object) {
  return fetchkit::GetClassObject(fetchkit::hosts::kClasses, asked, interfaceId, object);
}

STDAPI DllCanUnloadNow() {
  if (fetchkit::Module::IsUsed()) return S_FALSE;
  fetchkit::TypeLibrary::Forget();
  return S_OK;
}

STDAPI DllRegisterServer() {
  return fetchkit::Register(fetchkit::hosts::kClasses, fetchkit::RegistrationScope::Machine);
}

STDAPI DllUnregisterServer() {
  return fetchkit::Unregister(fetchkit::hosts::kClasses, fetchkit::RegistrationScope::Machine);
}

// "regsvr32 /n /i:user FetchKitHost.dll" is for the current user alone.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  using fetchkit::RegistrationScope;
  const bool user = commandLine && lstrcmpiW(commandLine, L"user") == 0;
  if (!user && commandLine && *commandLine) return E_INVALIDARG;
  const auto scope = user ? RegistrationScope::User : RegistrationScope::Machine;
  return install ? fetchkit::Register(fetchkit::hosts::kClasses, scope)
                 : fetchkit::Unregister(fetchkit::hosts::kClasses, scope);
}
