// The doors of FetchKitDemoHost.dll.
#include <memory>

#include "component/Windows.h"
#include "component/com/ClassFactory.h"
#include "component/com/Module.h"
#include "component/com/Registration.h"
#include "component/com/TypeLibrary.h"
#include "demo/windows/host/SampleHostObject.h"

namespace fetchkit::demo {
namespace {

const CreatableClass kClasses[] = {
    {&CLSID_SampleHost, L"FetchKitDemoHost.SampleHost", L"FetchKit's sample accounts for scripts",
     []() -> IUnknown* { return ShellOf<SampleHostObject>(std::make_shared<SampleHost>()); }},
};

}  // namespace
}  // namespace fetchkit::demo

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) fetchkit::Module::SetHandle(module, u"FetchKitDemoHost");
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID asked, REFIID interfaceId, void** object) {
  return fetchkit::GetClassObject(fetchkit::demo::kClasses, asked, interfaceId, object);
}

STDAPI DllCanUnloadNow() {
  if (fetchkit::Module::IsUsed()) return S_FALSE;
  fetchkit::TypeLibrary::Forget();
  return S_OK;
}

STDAPI DllRegisterServer() {
  return fetchkit::Register(fetchkit::demo::kClasses, fetchkit::RegistrationScope::Machine);
}

STDAPI DllUnregisterServer() {
  return fetchkit::Unregister(fetchkit::demo::kClasses, fetchkit::RegistrationScope::Machine);
}

// "regsvr32 /n /i:user FetchKitDemoHost.dll" is for the current user alone.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  using fetchkit::RegistrationScope;
  const bool user = commandLine && lstrcmpiW(commandLine, L"user") == 0;
  if (!user && commandLine && *commandLine) return E_INVALIDARG;
  const auto scope = user ? RegistrationScope::User : RegistrationScope::Machine;
  return install ? fetchkit::Register(fetchkit::demo::kClasses, scope)
                 : fetchkit::Unregister(fetchkit::demo::kClasses, scope);
}
