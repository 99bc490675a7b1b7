#include "component/host/NamedObject.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "component/host/HostCalls.h"
#include "fetchkit/base/Error.h"

namespace fetchkit {
namespace {

// In no import library.
constexpr IID kDispatchEx = {
    0xA6EF9860, 0xC720, 0x11D0, {0x93, 0x37, 0x00, 0xA0, 0xC9, 0x0D, 0xCA, 0xA9}};

// What a callee says of its failure. Its texts are the caller's to free.
struct Exception : EXCEPINFO {
  Exception() : EXCEPINFO{} {}
  ~Exception() {
    for (const BSTR text : {bstrSource, bstrDescription, bstrHelpFile})
      SysFreeString(text);
  }
  Exception(const Exception&) = delete;
  Exception& operator=(const Exception&) = delete;
};

[[noreturn]] void Throw(HRESULT result, Exception& exception) {
  if (result == DISP_E_EXCEPTION) {
    if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
    if (const TextView description = ViewOf(exception.bstrDescription); !description.empty())
      throw Error(ErrorKind::Host, description);
    if (exception.wCode != 0)
      throw Error(ErrorKind::Host, Join(u"the host raised error ", exception.wCode));
    if (FAILED(exception.scode)) result = exception.scode;
  }
  Called(result, nullptr);
  throw Error(ErrorKind::Host, u"the host did not answer");
}

}  // namespace

VARIANT Argument(const Bstr& text) {
  VARIANT argument{};
  argument.vt = VT_BSTR;
  argument.bstrVal = text.get();
  return argument;
}

VARIANT Argument(std::int32_t number) {
  VARIANT argument{};
  argument.vt = VT_I4;
  argument.lVal = number;
  return argument;
}

VARIANT Reference(Variant& variable) {
  VARIANT argument{};
  argument.vt = VT_BYREF | VT_VARIANT;
  argument.pvarVal = variable.InOut();
  return argument;
}

NamedObject::NamedObject(HostPtr<IDispatch> object)
    : object_(std::move(object)), script_(object_.As<IDispatchEx>(kDispatchEx)) {}

NamedObject::Member& NamedObject::Find(TextView name) {
  if (const auto known = members_.find(name); known != members_.end()) return known->second;
  const Bstr text(name);
  auto* wide = text.get();
  Member member;
  HRESULT found = DISP_E_UNKNOWNNAME;
  if (object_ && name.empty()) {
    found = S_OK;
    member.id = DISPID_VALUE;
  } else if (script_) {
    found = script_->GetDispID(wide, fdexNameCaseInsensitive, &member.id);
    // Not every language can look without regard to letter case.
    if (FAILED(found)) found = script_->GetDispID(wide, fdexNameCaseSensitive, &member.id);
  } else if (object_) {
    found = object_->GetIDsOfNames(IID_NULL, &wide, 1, LOCALE_USER_DEFAULT, &member.id);
  }
  if (FAILED(found)) member.id = DISPID_UNKNOWN;
  return members_.emplace(name, member).first->second;
}

bool NamedObject::Has(TextView member) {
  return Find(member).id != DISPID_UNKNOWN;
}

Value NamedObject::Call(TextView name, std::span<const VARIANT> arguments) {
  Member& member = Find(name);
  if (member.id == DISPID_UNKNOWN)
    throw Error(ErrorKind::Host, Join(u"the host's object has no member ", name));
  // The callee may let go of its last reference to itself; so may whoever holds this object.
  const ComPtr<IDispatch> callee = object_;
  const ComPtr<IDispatchEx> script = script_;
  Variant answer;
  const auto invoke = [&](bool typed, Exception& exception) {
    std::vector<VARIANT> given(arguments.rbegin(), arguments.rend());
    for (VARIANT& each : given) {
      if (!typed || each.vt != (VT_BYREF | VT_VARIANT) || each.pvarVal->vt <= VT_NULL) continue;
      VARIANT& variable = *each.pvarVal;
      each.vt = static_cast<VARTYPE>(VT_BYREF | variable.vt);
      each.byref = &variable.llVal;  // every type's data start there
    }
    DISPPARAMS parameters{given.data(), nullptr, static_cast<UINT>(given.size()), 0};
    constexpr WORD kFlags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    if (script)
      return script->InvokeEx(member.id, LOCALE_USER_DEFAULT, kFlags, &parameters, answer.Out(),
                              &exception, nullptr);
    return callee->Invoke(member.id, IID_NULL, LOCALE_USER_DEFAULT, kFlags, &parameters,
                          answer.Out(), &exception, nullptr);
  };
  Exception exception;
  HRESULT result = invoke(member.typed, exception);
  // Refused before the member ran: one that has run fails with an exception.
  if (result == DISP_E_TYPEMISMATCH && !member.typed) {
    member.typed = std::any_of(arguments.begin(), arguments.end(),
                               [](const VARIANT& each) { return (each.vt & VT_BYREF) != 0; });
    if (member.typed) result = invoke(true, exception);
  }
  if (FAILED(result)) Throw(result, exception);
  return ValueOf(answer.get());
}

HostPtr<IDispatch> NamedObject::Object(TextView member, std::span<const VARIANT> arguments) {
  return ObjectIn(Call(member, arguments));
}

}  // namespace fetchkit
