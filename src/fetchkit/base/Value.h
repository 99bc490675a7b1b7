// The any-value that hosts and databases hand over, and its conversions.
#pragma once

#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "fetchkit/base/Date.h"
#include "fetchkit/base/Error.h"
#include "fetchkit/base/Text.h"

namespace fetchkit {

class Value;

// An array inside a value. An array that was never dimensioned has no bounds at all, which is
// something else than an array without items (bounds 0 to -1).
struct ValueArray {
  bool dimensioned = false;
  std::int32_t lowerBound = 0;
  std::vector<Value> items;

  // What the array was made of, where its items do not say it all; known to who made it, who hands
  // it back in place of the items. Null for none.
  std::shared_ptr<const void> original = nullptr;

  // Error (InvalidCall) when the array was never dimensioned.
  std::int32_t UpperBound() const;
};

struct EmptyValue {};    // never assigned
struct NullValue {};     // the database's Null
struct MissingValue {};  // an optional argument that was left out

// What the core has no type for, such as the error in a spreadsheet's cell or an array of several
// dimensions. It is no number, text or date to anybody, and goes back to the host as it came.
struct OpaqueValue {
  bool isArray = false;                 // with bounds
  std::shared_ptr<const void> content;  // known to who made it; shared, and never changed
};

namespace detail {
template <class T, class Variant>
struct IsAlternative;
template <class T, class... Alternatives>
struct IsAlternative<T, std::variant<Alternatives...>>
    : std::disjunction<std::is_same<T, Alternatives>...> {};
}  // namespace detail

// A value type: copying copies. Arrays and objects are shared, and arrays are never changed once
// they are inside a value. A copy that throws for want of memory leaves the target as it was.
class Value {
 public:
  using Array = std::shared_ptr<const ValueArray>;
  using Object = std::shared_ptr<void>;
  using Storage =
      std::variant<EmptyValue, NullValue, MissingValue, bool, std::uint8_t, std::int16_t,
                   std::int32_t, float, double, Date, Text, Array, Object, OpaqueValue>;

  Value() = default;
  Value(const Value& other) { *this = other; }
  Value(Value&&) noexcept = default;
  Value& operator=(const Value& other);
  Value& operator=(Value&&) noexcept = default;
  ~Value() = default;
  Value(const char16_t* text) : data_(Text(text)) {}  // NOLINT(google-explicit-constructor)
  Value(TextView text) : data_(Text(text)) {}         // NOLINT(google-explicit-constructor)
  template <class T>
  // NOLINTNEXTLINE(google-explicit-constructor)
  requires(detail::IsAlternative<T, Storage>::value) Value(T data)
      : data_(std::in_place_type<T>, std::move(data)) {}
  explicit Value(ValueArray array) : data_(std::make_shared<const ValueArray>(std::move(array))) {}

  const Storage& data() const { return data_; }

  template <class T>
  bool Is() const {
    return std::holds_alternative<T>(data_);
  }
  bool IsEmpty() const { return Is<EmptyValue>(); }
  bool IsNull() const { return Is<NullValue>(); }
  bool IsMissing() const { return Is<MissingValue>(); }

  friend Text TakeText(Value&& value);

 private:
  Storage data_;
};

// Conversions. All throw ConvertError and change nothing when they fail: InvalidUseOfNull for
// Null, TypeMismatch for a missing value, an array, an object, an opaque value or a text that is no
// number, Overflow outside the target's range. Empty is 0, False or the empty text. Fractions are
// rounded half to even. A Boolean counts as -1 or 0.
std::uint8_t ToByte(const Value& value);
std::int16_t ToInteger(const Value& value);
std::int32_t ToLong(const Value& value);
double ToDouble(const Value& value);

// Any number but 0 is True; the texts "True" and "False" count, in any letter case.
bool ToBoolean(const Value& value);

// Numbers as NumberText writes them, dates as DefaultDateText, Booleans as "True" and "False".
Text ToText(const Value& value);

// The same with Null, a missing value and Empty read as the empty text: for the few columns where
// the database's Null is an ordinary empty entry.
Text ToTextOrEmpty(const Value& value);

// Both without copying a text, for a value that is not needed any more.
Text TakeText(Value&& value);
Text TakeTextOrEmpty(Value&& value);

// Whether the value is a number: numbers, Booleans and Empty are, texts by IsNumericText, dates
// and everything else are not.
bool IsNumeric(const Value& value);

}  // namespace fetchkit
