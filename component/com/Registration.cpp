#include "component/com/Registration.h"

#include <string>

#include "component/com/Boundary.h"
#include "component/com/ComPtr.h"
#include "component/com/Module.h"
#include "component/com/TypeLibrary.h"

// In the tool chain's import library, but not in its headers.
extern "C" {
HRESULT STDAPICALLTYPE RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* help);
HRESULT STDAPICALLTYPE UnRegisterTypeLibForUser(REFGUID library, WORD major, WORD minor, LCID lcid,
                                                SYSKIND kind);
}

namespace fetchkit {
namespace {

void Check(HRESULT result) {
  if (FAILED(result)) throw ComError{result};
}

void CheckStatus(LSTATUS status) {
  if (status != ERROR_SUCCESS) throw ComError{HRESULT_FROM_WIN32(static_cast<DWORD>(status))};
}

// A key under the scope's classes.
class Key {
 public:
  Key(RegistrationScope scope, const std::wstring& path, REGSAM access) {
    const HKEY root = scope == RegistrationScope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    const std::wstring whole = L"Software\\Classes" + (path.empty() ? L"" : L"\\" + path);
    CheckStatus(RegCreateKeyExW(root, whole.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, access,
                                nullptr, &key_, nullptr));
  }
  ~Key() { RegCloseKey(key_); }
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;

  // name: null for the key's own value.
  void Set(const wchar_t* name, const std::wstring& text) {
    CheckStatus(RegSetValueExW(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                               static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))));
  }

  void DeleteTree(const std::wstring& name) {
    const LSTATUS status = RegDeleteTreeW(key_, name.c_str());
    if (status != ERROR_FILE_NOT_FOUND) CheckStatus(status);
  }

 private:
  HKEY key_ = nullptr;
};

std::wstring TextOf(const GUID& id) {
  wchar_t text[40] = {};
  StringFromGUID2(id, text, 40);
  return text;
}

struct LibraryKey {
  GUID id;
  WORD major;
  WORD minor;
  LCID language;
  SYSKIND kind;

  std::wstring Version() const { return std::to_wstring(major) + L'.' + std::to_wstring(minor); }
};

LibraryKey KeyOf(ITypeLib* library) {
  TLIBATTR* attributes = nullptr;
  Check(library->GetLibAttr(&attributes));
  const LibraryKey key{attributes->guid, attributes->wMajorVerNum, attributes->wMinorVerNum,
                       attributes->lcid, attributes->syskind};
  library->ReleaseTLibAttr(attributes);
  return key;
}

void Enter(const CreatableClass& each, const LibraryKey& library, const std::wstring& path,
           RegistrationScope scope) {
  const std::wstring id = TextOf(*each.id);
  const std::wstring classPath = L"CLSID\\" + id;
  Key(scope, classPath, KEY_WRITE).Set(nullptr, each.description);
  {
    Key server(scope, classPath + L"\\InprocServer32", KEY_WRITE);
    server.Set(nullptr, path);
    server.Set(L"ThreadingModel", L"Apartment");
  }
  Key(scope, classPath + L"\\ProgID", KEY_WRITE).Set(nullptr, each.progId);
  Key(scope, classPath + L"\\TypeLib", KEY_WRITE).Set(nullptr, TextOf(library.id));
  Key(scope, classPath + L"\\Version", KEY_WRITE).Set(nullptr, library.Version());
  Key(scope, classPath + L"\\Programmable", KEY_WRITE);
  Key(scope, each.progId, KEY_WRITE).Set(nullptr, each.description);
  Key(scope, std::wstring(each.progId) + L"\\CLSID", KEY_WRITE).Set(nullptr, id);
}

// Whether the other of the two sizes is registered for the class. Identifiers of classes stand in
// two views of the registry, one for each size, their names in both at once. On a system of one
// size the two views are one, and what the class had in it is gone when this is asked.
bool OtherSizeHas(const CreatableClass& each, RegistrationScope scope) {
  const HKEY root = scope == RegistrationScope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
  const std::wstring path = L"Software\\Classes\\CLSID\\" + TextOf(*each.id) + L"\\InprocServer32";
  const REGSAM view = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ | view, &key) != ERROR_SUCCESS) return false;
  RegCloseKey(key);
  return true;
}

}  // namespace

HRESULT Register(std::span<const CreatableClass> classes, RegistrationScope scope) noexcept {
  const HRESULT result = Run([&] {
    const Text path = Module::Path();
    auto* widePath = reinterpret_cast<OLECHAR*>(const_cast<char16_t*>(path.c_str()));
    const ComPtr<ITypeLib> library = TypeLibrary::Library();
    const LibraryKey key = KeyOf(library.get());
    for (const CreatableClass& each : classes)
      Enter(each, key, widePath, scope);
    Check(scope == RegistrationScope::User
              ? RegisterTypeLibForUser(library.get(), widePath, nullptr)
              : RegisterTypeLib(library.get(), widePath, nullptr));
  });
  if (FAILED(result)) Unregister(classes, scope);
  return result;
}

HRESULT Unregister(std::span<const CreatableClass> classes, RegistrationScope scope) noexcept {
  HRESULT first = S_OK;
  const auto remember = [&first](HRESULT result) {
    if (SUCCEEDED(first) && FAILED(result)) first = result;
  };
  for (const CreatableClass& each : classes) {
    remember(Run([&] { Key(scope, L"CLSID", KEY_ALL_ACCESS).DeleteTree(TextOf(*each.id)); }));
    remember(Run([&] {
      if (!OtherSizeHas(each, scope)) Key(scope, L"", KEY_ALL_ACCESS).DeleteTree(each.progId);
    }));
  }
  remember(Run([&] {
    const LibraryKey key = KeyOf(TypeLibrary::Library().get());
    const auto remove =
        scope == RegistrationScope::User ? UnRegisterTypeLibForUser : UnRegisterTypeLib;
    const HRESULT result = remove(key.id, key.major, key.minor, key.language, key.kind);
    // What the system answers when the library is not entered.
    if (result != TYPE_E_REGISTRYACCESS) Check(result);
  }));
  return first;
}

}  // namespace fetchkit
