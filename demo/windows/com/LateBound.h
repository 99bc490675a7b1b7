// Late-bound calls by a table of names, for objects that no type library describes.
#pragma once

#include <array>
#include <cstddef>

#include "component/com/ComObject.h"
#include "fetchkit/base/Text.h"

namespace fetchkit::demo {

struct LateArguments {
  const DISPPARAMS& parameters;

  UINT count() const { return parameters.cArgs; }
  // In the order of the call; must be below count.
  const VARIANT& operator[](UINT index) const {
    return parameters.rgvarg[parameters.cArgs - 1 - index];
  }
};

// A method or a property that is read. call leaves its result in an empty variant.
template <class I>
struct LateMember {
  TextView name;
  HRESULT (*call)(I& object, const LateArguments& arguments, VARIANT& result);
  UINT mostArguments = 0;
};

// Tells a late-bound caller of the failure as the system does: DISP_E_EXCEPTION, with what the
// thread's error object holds.
HRESULT RaiseLate(HRESULT failure, EXCEPINFO* exception) noexcept;

// A shell whose members are found in a table. A member's identifier is its place in it, so that the
// first one is the default member.
template <class I, const IID& id, class Core, const auto& kMembers>
class LateBound : public ComObject<I, id, Core> {
 public:
  using ComObject<I, id, Core>::ComObject;

  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }

  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                             DISPID* ids) noexcept override {
    if (!names || !ids) return E_POINTER;
    // Further names are those of arguments, of which there are none.
    for (UINT i = 0; i < count; ++i)
      ids[i] = DISPID_UNKNOWN;
    const TextView name = reinterpret_cast<const char16_t*>(names[0]);
    for (std::size_t member = 0; count > 0 && member < kMembers.size(); ++member)
      if (EqualFolded(kMembers[member].name, name)) ids[0] = static_cast<DISPID>(member);
    return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
  }

  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* exception, UINT*) noexcept override {
    if (!parameters) return E_POINTER;
    if (member < 0 || static_cast<std::size_t>(member) >= kMembers.size() ||
        (flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) == 0)
      return DISP_E_MEMBERNOTFOUND;
    const LateMember<I>& entry = kMembers[static_cast<std::size_t>(member)];
    if (parameters->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
    if (parameters->cArgs > entry.mostArguments) return DISP_E_BADPARAMCOUNT;
    VARIANT answer;
    VariantInit(&answer);
    const HRESULT called = entry.call(*this, LateArguments{*parameters}, answer);
    if (FAILED(called)) return RaiseLate(called, exception);
    if (!result) return VariantClear(&answer);
    *result = answer;
    return S_OK;
  }
};

}  // namespace fetchkit::demo
