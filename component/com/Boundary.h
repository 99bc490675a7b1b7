// Where C++ ends: no exception crosses into the caller, and results leave in the system's types.
#pragma once

#include <cstdint>
#include <type_traits>
#include <utility>

#include "component/Windows.h"
#include "component/com/Bstr.h"
#include "component/com/Variants.h"
#include "fetchkit/base/Date.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"

namespace fetchkit {

// An HRESULT on its way out.
struct ComError {
  HRESULT result;
};

// To be called inside a catch block only: the number that the caller gets for the exception that is
// being handled. A core error is the number that scripts show for it (0x800A000D shows as 13), with
// its description left in the thread's error object; anything else is the system's own number.
HRESULT ReportCurrentError() noexcept;

// Runs the body of a member without result.
template <class Body>
HRESULT Run(Body&& body) noexcept {
  try {
    body();
    return S_OK;
  } catch (...) {
    return ReportCurrentError();
  }
}

// A core result as the system's type. References and memory become the caller's.
inline void Leave(bool value, VARIANT_BOOL* out) {
  *out = value ? VARIANT_TRUE : VARIANT_FALSE;
}
inline void Leave(std::uint8_t value, unsigned char* out) {
  *out = value;
}
inline void Leave(std::int16_t value, short* out) {
  *out = value;
}
inline void Leave(std::int32_t value, long* out) {
  *out = value;
}
inline void Leave(float value, float* out) {
  *out = value;
}
inline void Leave(double value, double* out) {
  *out = value;
}
inline void Leave(Date value, DATE* out) {
  *out = value.serial;
}
inline void Leave(TextView value, BSTR* out) {
  *out = NewBstr(value);
}
inline void Leave(const Value& value, VARIANT* out) {
  ToVariant(value, out);
}
template <class E>
requires std::is_enum_v<E>
void Leave(E value, E* out) {
  *out = value;
}
template <class I>
void Leave(I* reference, I** out) {
  *out = reference;
}

// Runs the body of a member with a result; E_POINTER when there is no place for it. A result that
// the caller frees is null until the body has answered.
template <class Out, class Body>
HRESULT Answer(Out* result, Body&& body) noexcept {
  if (!result) return E_POINTER;
  if constexpr (std::is_pointer_v<Out>) *result = nullptr;
  if constexpr (std::is_same_v<Out, VARIANT>) VariantInit(result);
  return Run([&] { Leave(body(), result); });
}

// By-reference arguments: read at construction, written back by the destructor, also when the
// member raises, because the core's members say what they leave in them then. Error (InvalidCall)
// for a null reference.
template <class Core, class Raw>
class ByReference {
 public:
  explicit ByReference(Raw* argument) : argument_(argument) {
    if (!argument) throw ComError{E_POINTER};
    Read();
  }
  ~ByReference() {
    if (!(value_ == before_)) Leave(value_, argument_);
  }
  ByReference(const ByReference&) = delete;
  ByReference& operator=(const ByReference&) = delete;

  operator Core&() { return value_; }  // NOLINT(google-explicit-constructor)

 private:
  void Read() {
    if constexpr (std::is_same_v<Core, Date>)
      value_ = Date{*argument_};
    else if constexpr (std::is_same_v<Core, bool>)
      value_ = *argument_ != VARIANT_FALSE;
    else
      value_ = *argument_;
    before_ = value_;
  }

  Raw* argument_;
  Core value_{};
  Core before_{};
};

using InOutBoolean = ByReference<bool, VARIANT_BOOL>;
using InOutInteger = ByReference<std::int16_t, short>;
using InOutLong = ByReference<std::int32_t, long>;
using InOutSingle = ByReference<float, float>;
using InOutDate = ByReference<Date, DATE>;

// The same for texts and any-values. The caller's old one is freed once the new one is there; when
// memory runs out the old one stays, and so does one that the member left alone.
class InOutText {
 public:
  explicit InOutText(BSTR* argument);
  ~InOutText();
  InOutText(const InOutText&) = delete;
  InOutText& operator=(const InOutText&) = delete;
  operator Text&() { return value_; }  // NOLINT(google-explicit-constructor)

 private:
  BSTR* argument_;
  Text value_;
};

class InOutValue {
 public:
  explicit InOutValue(VARIANT* argument);
  ~InOutValue();
  InOutValue(const InOutValue&) = delete;
  InOutValue& operator=(const InOutValue&) = delete;
  operator Value&() { return value_; }  // NOLINT(google-explicit-constructor)

 private:
  VARIANT* argument_;
  Value value_;
  Value before_;
};

}  // namespace fetchkit
