// The type library inside the DLL.
#pragma once

#include "component/Windows.h"
#include "component/com/ComPtr.h"

namespace fetchkit::TypeLibrary {

// Loaded from the DLL's own resource at first use and kept until Forget. ComError when the system
// refuses.
ComPtr<ITypeLib> Library();

// The description of an interface or a record in it, kept likewise.
ComPtr<ITypeInfo> Describe(const GUID& id);

// How records of that type are made and freed.
ComPtr<IRecordInfo> Record(const GUID& id);

// Lets all of it go: before the DLL is unloaded.
void Forget();

}  // namespace fetchkit::TypeLibrary
