// The type library inside the DLL.
#pragma once

#include <vector>

#include "component/Windows.h"
#include "component/com/ComPtr.h"

namespace fetchkit::TypeLibrary {

// Loaded from the DLL's own resource at first use and kept until Forget. ComError when the system
// refuses.
ComPtr<ITypeLib> Library();

// The description of an interface or a record in it, kept likewise. A second library, resource 2,
// may describe interfaces that the DLL implements but whose identifiers are others' to register.
ComPtr<ITypeInfo> Describe(const GUID& id);

// The class whose default interface that is. TYPE_E_ELEMENTNOTFOUND when the library has none.
ComPtr<ITypeInfo> ClassOf(const IID& interfaceId);

// How records of that type are made and freed.
ComPtr<IRecordInfo> Record(const GUID& id);

// Of the member's parameters, what those by reference point to, as a type that a variant can hold;
// VT_EMPTY for a parameter by value, for a result and for records, which are handed on as they
// come. No types at all for a member that is not there. flags: as for IDispatch's Invoke. Valid
// until Forget.
const std::vector<VARTYPE>& Referred(const IID& interfaceId, DISPID member, WORD flags);

// Lets all of it go: before the DLL is unloaded.
void Forget();

}  // namespace fetchkit::TypeLibrary
