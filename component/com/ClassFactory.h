// Creatable classes, and the system's way to make their objects.
#pragma once

#include <span>

#include "component/Windows.h"

namespace fetchkit {

struct CreatableClass {
  const CLSID* id;
  const wchar_t* progId;       // such as L"FetchKit.Interface"
  const wchar_t* description;  // for people
  IUnknown* (*create)();       // a new object with one reference; may throw
};

// As DllGetClassObject, for those classes. They must live as long as the DLL.
HRESULT GetClassObject(std::span<const CreatableClass> classes, REFCLSID asked, REFIID interfaceId,
                       void** object) noexcept;

}  // namespace fetchkit
