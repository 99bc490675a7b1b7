// An object of the host's that is called by name: one of a script, or any other that has no
// interface with fixed slots.
#pragma once

#include <map>
#include <span>

#include <dispex.h>

#include "component/Windows.h"
#include "component/com/Bstr.h"
#include "component/com/Variants.h"
#include "component/platform/HostPtr.h"
#include "fetchkit/base/Text.h"

namespace fetchkit {

// Arguments of a call. A text stays the caller's, as does the variable that a reference points to.
VARIANT Argument(const Bstr& text);
VARIANT Argument(std::int32_t number);
VARIANT Reference(Variant& variable);

class NamedObject {
 public:
  // Without an object every call is Error (Host).
  explicit NamedObject(HostPtr<IDispatch> object);

  explicit operator bool() const { return static_cast<bool>(object_); }

  // Whether the object knows the name, the empty one being that of its default member. Asked once
  // for each name.
  bool Has(TextView member);

  // Calls a method or reads a property, with the arguments in their order. References are variants
  // for the callee, as scripts pass their variables; one that refuses these for its typed arguments
  // is given references of the variables' types, from then on at once. Throws Error (Host) with the
  // callee's own words. An answer of a type that is not known here is an opaque value.
  Value Call(TextView member, std::span<const VARIANT> arguments = {});

  // The same for an answer that is an object; empty when it is none.
  HostPtr<IDispatch> Object(TextView member, std::span<const VARIANT> arguments = {});

 private:
  struct Member {
    DISPID id = DISPID_UNKNOWN;
    bool typed = false;  // wants typed references
  };
  Member& Find(TextView name);

  HostPtr<IDispatch> object_;
  HostPtr<IDispatchEx>
      script_;  // the same, where it has it: some engines' classes answer there alone
  std::map<Text, Member, std::less<>> members_;
};

// The object in a value that the host gave; empty for anything else.
inline HostPtr<IDispatch> ObjectIn(const Value& value) {
  return ComPtr<IUnknown>(ObjectOf(value)).As<IDispatch>(IID_IDispatch);
}

}  // namespace fetchkit
