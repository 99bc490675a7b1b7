// Late-bound calls, by the type library.
#pragma once

#include "component/Windows.h"

namespace fetchkit {

// As the members of IDispatch of the same names, for an object whose dual interface has that
// identifier.
HRESULT DispatchTypeInfo(const IID& interfaceId, UINT index, ITypeInfo** info) noexcept;
HRESULT DispatchIdsOfNames(const IID& interfaceId, LPOLESTR* names, UINT count,
                           DISPID* ids) noexcept;

// By-reference parameters take arguments of any type that converts, by value and by reference:
// scripts pass variables as VARIANT references, which the system's own Invoke refuses. What the
// member leaves in them is written back to those that were references.
HRESULT DispatchInvoke(const IID& interfaceId, IDispatch* object, DISPID member, WORD flags,
                       DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                       UINT* badArgument) noexcept;

}  // namespace fetchkit
