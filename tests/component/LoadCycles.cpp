// Loads the DLL, works with it and lets it go, a thousand times in one process, and says what that
// leaves behind. Usage: fetchkit-load-cycles [CYCLES]
#include "component/Windows.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "component/com/Bstr.h"
#include "component/com/ComPtr.h"
#include "idl/FetchKit.h"
#include "support/Footprint.h"

namespace fetchkit {
namespace {

using test::Footprint;

constexpr HRESULT kTypeMismatch = static_cast<HRESULT>(0x800A000D);

void Show(const char* when, const Footprint& footprint) {
  std::printf(
      "%-18s %6lld heap blocks, %8lld bytes; %6.1f MB resident; handle %4ld; %4d thread-local "
      "slots free\n",
      when, footprint.blocks, footprint.bytes, static_cast<double>(footprint.resident) / 1048576,
      footprint.handle, footprint.freeSlots);
}

// One life of the DLL; null, or what went wrong.
const char* Cycle() {
  const HMODULE module = LoadLibraryW(L"FetchKit.dll");
  if (!module) return "it does not load";
  const auto entry = [module](const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(module, name));
  };
  const auto getClass = reinterpret_cast<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>(
      entry("DllGetClassObject"));
  const auto canUnload = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(entry("DllCanUnloadNow"));
  {
    ComPtr<IClassFactory> factory;
    ComPtr<IInterface> object;
    ComPtr<IOrganization> organization;
    if (FAILED(getClass(CLSID_Interface, IID_IClassFactory,
                        reinterpret_cast<void**>(factory.Out()))) ||
        FAILED(factory->CreateInstance(nullptr, IID_IInterface,
                                       reinterpret_cast<void**>(object.Out()))) ||
        FAILED(object->get_LoginOrganization(organization.Out())))
      return "it makes no objects";
    short year = 0;
    if (organization->get_BeginYear(&year) != kTypeMismatch) return "nothing is raised";
  }
  SetErrorInfo(0, nullptr);
  if (canUnload() != S_OK) return "it does not want to go";
  FreeLibrary(module);
  return GetModuleHandleW(L"FetchKit.dll") ? "it stays loaded" : nullptr;
}

int Main(int cycles) {
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 2;
  const Footprint fresh = Footprint::Now();
  if (const char* wrong = Cycle()) return std::printf("cycle 1: %s\n", wrong), 1;
  const Footprint first = Footprint::Now();
  for (int cycle = 2; cycle <= cycles; ++cycle)
    if (const char* wrong = Cycle()) return std::printf("cycle %d: %s\n", cycle, wrong), 1;
  const Footprint last = Footprint::Now();
  Show("before", fresh);
  Show("after 1 cycle", first);
  char when[32];
  std::snprintf(when, sizeof when, "after %d cycles", cycles);
  Show(when, last);
  const double between = cycles - 1;
  std::printf(
      "per cycle: %.3f heap blocks, %.1f bytes, %.0f bytes resident, %.3f handles, %.3f "
      "thread-local slots\n",
      static_cast<double>(last.blocks - first.blocks) / between,
      static_cast<double>(last.bytes - first.bytes) / between,
      static_cast<double>(last.resident - first.resident) / between,
      static_cast<double>(last.handle - first.handle) / between,
      (first.freeSlots - last.freeSlots) / between);
  CoUninitialize();
  return 0;
}

}  // namespace
}  // namespace fetchkit

int main(int argc, char** argv) {
  return fetchkit::Main(argc > 1 ? std::max(2, std::atoi(argv[1])) : 1000);
}
