#include "fetchkit/base/Value.h"

#include <charconv>
#include <type_traits>
#include <utility>

#include "fetchkit/base/Numbers.h"

namespace fetchkit {
namespace {

[[noreturn]] void ThrowMismatch() {
  throw ConvertError(ErrorKind::TypeMismatch, u"A value has the wrong type.");
}

[[noreturn]] void ThrowNull() {
  throw ConvertError(ErrorKind::InvalidUseOfNull, u"A Null stands where a value is needed.");
}

}  // namespace

std::int32_t ValueArray::UpperBound() const {
  if (!dimensioned) throw Error(ErrorKind::InvalidCall, u"An array has no bounds yet.");
  return lowerBound + static_cast<std::int32_t>(items.size()) - 1;
}

// Not the variant's own copy: some standard libraries hold texts for impossible to fail, and end
// the process when a copy of one does.
Value& Value::operator=(const Value& other) {
  std::visit(
      [this](const auto& data) {
        auto copy = data;
        data_ = std::move(copy);
      },
      other.data_);
  return *this;
}

std::uint8_t ToByte(const Value& value) {
  return RoundedTo<std::uint8_t>(ToDouble(value));
}

std::int16_t ToInteger(const Value& value) {
  return RoundedTo<std::int16_t>(ToDouble(value));
}

std::int32_t ToLong(const Value& value) {
  return RoundedTo<std::int32_t>(ToDouble(value));
}

double ToDouble(const Value& value) {
  return std::visit(
      [](const auto& data) -> double {
        using T = std::decay_t<decltype(data)>;
        if constexpr (std::is_same_v<T, EmptyValue>) {
          return 0;
        } else if constexpr (std::is_same_v<T, NullValue>) {
          ThrowNull();
        } else if constexpr (std::is_same_v<T, bool>) {
          return data ? -1 : 0;
        } else if constexpr (std::is_arithmetic_v<T>) {
          return data;
        } else if constexpr (std::is_same_v<T, Date>) {
          return data.serial;
        } else if constexpr (std::is_same_v<T, Text>) {
          if (!IsNumericText(data)) ThrowMismatch();
          return NumericTextToDouble(data);
        } else {
          ThrowMismatch();
        }
      },
      value.data());
}

bool ToBoolean(const Value& value) {
  if (const auto* text = std::get_if<Text>(&value.data())) {
    if (EqualFolded(*text, u"True")) return true;
    if (EqualFolded(*text, u"False")) return false;
  }
  return ToDouble(value) != 0;
}

Text ToText(const Value& value) {
  return std::visit(
      [](const auto& data) -> Text {
        using T = std::decay_t<decltype(data)>;
        if constexpr (std::is_same_v<T, EmptyValue>) {
          return {};
        } else if constexpr (std::is_same_v<T, NullValue>) {
          ThrowNull();
        } else if constexpr (std::is_same_v<T, bool>) {
          return data ? u"True" : u"False";
        } else if constexpr (std::is_same_v<T, float>) {
          // Its own shortest digits: widened to a double, 0.1 would show the noise behind them.
          char digits[32];
          const auto end = std::to_chars(digits, digits + sizeof digits, data);
          double shown = 0;
          std::from_chars(digits, end.ptr, shown);
          return NumberText(shown);
        } else if constexpr (std::is_arithmetic_v<T>) {
          return NumberText(static_cast<double>(data));
        } else if constexpr (std::is_same_v<T, Date>) {
          return DefaultDateText(data);
        } else if constexpr (std::is_same_v<T, Text>) {
          return data;
        } else {
          ThrowMismatch();
        }
      },
      value.data());
}

Text ToTextOrEmpty(const Value& value) {
  if (value.IsNull() || value.IsMissing()) return {};
  return ToText(value);
}

Text TakeText(Value&& value) {
  if (auto* text = std::get_if<Text>(&value.data_)) return std::move(*text);
  return ToText(value);
}

Text TakeTextOrEmpty(Value&& value) {
  if (value.IsNull() || value.IsMissing()) return {};
  return TakeText(std::move(value));
}

bool IsNumeric(const Value& value) {
  return std::visit(
      [](const auto& data) -> bool {
        using T = std::decay_t<decltype(data)>;
        if constexpr (std::is_same_v<T, Text>) {
          return IsNumericText(data);
        } else {
          return std::is_arithmetic_v<T> || std::is_same_v<T, EmptyValue>;
        }
      },
      value.data());
}

}  // namespace fetchkit
