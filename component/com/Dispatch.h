// Late-bound calls, by the type library.
#pragma once

#include "component/Windows.h"

namespace fetchkit {

// As the members of IDispatch of the same names, for an object whose dual interface has that
// identifier.
HRESULT DispatchTypeInfo(const IID& interfaceId, UINT index, ITypeInfo** info) noexcept;
HRESULT DispatchIdsOfNames(const IID& interfaceId, REFIID reserved, LPOLESTR* names, UINT count,
                           DISPID* ids) noexcept;

// By-reference parameters take arguments of any type that converts, by value and by reference:
// scripts pass variables as VARIANT references, which the system's own Invoke refuses. What the
// member leaves in them is written back to those that were references.
// Arguments may be named. reserved: IID_NULL, anything else is DISP_E_UNKNOWNINTERFACE.
HRESULT DispatchInvoke(const IID& interfaceId, REFIID reserved, IDispatch* object, DISPID member,
                       WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                       UINT* badArgument) noexcept;

// What Invoke answers for what a member did: an error with a description becomes an exception,
// which is filled in (null: nobody asks), anything else stays.
HRESULT AsException(HRESULT result, EXCEPINFO* exception) noexcept;

// The description of the class whose objects have that interface, under the name that scripts show
// for them: IProvideClassInfo's member.
HRESULT DispatchClassInfo(const IID& interfaceId, ITypeInfo** info) noexcept;

}  // namespace fetchkit
