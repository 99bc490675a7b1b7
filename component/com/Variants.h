// The system's any-value and the core's.
#pragma once

#include "component/Windows.h"
#include "fetchkit/base/Value.h"

namespace fetchkit {

// A variant that is cleared with its holder.
class Variant {
 public:
  Variant() { VariantInit(&variant_); }
  explicit Variant(const Value& value);
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  ~Variant() { VariantClear(&variant_); }

  const VARIANT& get() const { return variant_; }
  VARIANT* InOut() { return &variant_; }
  VARIANT* Out() {
    VariantClear(&variant_);
    return &variant_;
  }

 private:
  VARIANT variant_;
};

// The value with the type that the variant has; by-reference variants are read through. Currency,
// decimals and integers beyond 32 bits become doubles, an omitted argument a missing value, an
// object an Object that holds a reference to it (ObjectOf gives it back). Arrays of one dimension
// are copied item by item, and as a whole where their items alone would not give them back. What
// the core has no type for is copied into an OpaqueValue: errors, arrays of several dimensions,
// records; and an empty one stands for what cannot be read at all, such as a null reference. So a
// member that never raises does not do it for want of a type. std::bad_alloc alone is thrown.
Value ValueOf(const VARIANT& variant);

// A copy in *variant, which must not hold anything yet. Objects get a reference of their own; a
// missing value becomes the omitted argument, an opaque value what it was made of.
void ToVariant(const Value& value, VARIANT* variant);

// Leaves a copy of value in the target or, when that is a reference, in the variable that it refers
// to, at any depth and in that variable's type. A failure leaves the variable as it was; so does a
// reference to an array: no member makes one, and the caller's may be one of fixed size.
HRESULT WriteThrough(VARIANT* target, VARIANT* value) noexcept;

// Whether the two would be the same variant; arrays, objects and opaque values only when they are
// one.
bool IsSame(const Value& a, const Value& b);

// The object inside a value that came out of a variant, without a reference; null for no object.
IUnknown* ObjectOf(const Value& value);

}  // namespace fetchkit
