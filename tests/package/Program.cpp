// A program on the unpacked archive alone: activates through the import library, with no key in the
// registry, and reads the host's interfaces out of their type library.
#include <FetchKit.h>
#include <FetchKitHost.h>

#include <cstdio>

STDAPI DllGetClassObject(REFCLSID, REFIID, void**);

int main() {
  OleInitialize(nullptr);
  IClassFactory* factory = nullptr;
  IUtility* utility = nullptr;
  BSTR letters = nullptr;
  if (SUCCEEDED(DllGetClassObject(CLSID_Utility, IID_IClassFactory,
                                  reinterpret_cast<void**>(&factory))) &&
      SUCCEEDED(
          factory->CreateInstance(nullptr, IID_IUtility, reinterpret_cast<void**>(&utility))) &&
      SUCCEEDED(utility->CellColToString(27, &letters)))
    std::printf("column 27 is %ls\n", letters);

  ITypeLib* library = nullptr;
  ITypeInfo* connection = nullptr;
  TYPEATTR* attributes = nullptr;
  if (SUCCEEDED(LoadTypeLibEx(L"FetchKitHostInterfaces.tlb", REGKIND_NONE, &library)) &&
      SUCCEEDED(library->GetTypeInfoOfGuid(IID_ISessionConnection, &connection)) &&
      SUCCEEDED(connection->GetTypeAttr(&attributes)))
    std::printf("%u interfaces, %d members of the connection\n", library->GetTypeInfoCount(),
                attributes->cFuncs);
  return 0;
}
