// Functions called with texts, as they stand in a row of a table.
#pragma once

#include <charconv>
#include <cstdlib>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/base/Value.h"
#include "support/Lines.h"

namespace fetchkit::test {

inline constexpr TextView kNul(u"\0", 1);  // "<NUL>" in the text

// "'" stands in front of a text, the type in front of a number that is no double.
inline Value ReadValue(const std::string& cell) {
  static const std::map<std::string, Value> kNamed = {
      {"empty", Value()},
      {"null", NullValue()},
      {"missing", MissingValue()},
      {"true", true},
      {"false", false},
      {"array", Value(ValueArray{})},
      {"short -4", std::int16_t{-4}},
      {"single 0.1", 0.1F},
      {"array without items", Value(ValueArray{true, 0, {}})}};
  if (const auto named = kNamed.find(cell); named != kNamed.end()) return named->second;
  if (cell.starts_with("'")) return FromUtf8(cell.substr(1));
  if (cell.starts_with("date ")) return Date{std::strtod(cell.c_str() + 5, nullptr)};
  return std::strtod(cell.c_str(), nullptr);
}

inline std::vector<std::int32_t> ReadNumbers(const std::string& cell) {
  std::vector<std::int32_t> numbers;
  const Text text = FromUtf8(cell);
  for (const TextView number : Split(text, u","))
    numbers.push_back(ToLong(number));
  return numbers;
}

template <class T>
T Read(std::vector<std::string>::const_iterator& next) {
  const std::string& cell = *next++;
  if constexpr (std::is_same_v<T, Value>)
    return ReadValue(cell);
  else if constexpr (std::is_same_v<T, Text>)
    return ReplaceText(FromUtf8(cell), u"<NUL>", kNul);
  else if constexpr (std::is_same_v<T, Date>)
    return {std::strtod(cell.c_str(), nullptr)};
  else if constexpr (std::is_same_v<T, std::vector<std::int32_t>>)
    return ReadNumbers(cell);
  else
    return static_cast<T>(std::strtod(cell.c_str(), nullptr));
}

inline std::string Shown(TextView text) {
  return ToUtf8(ReplaceText(text, kNul, u"<NUL>"));
}
inline std::string Shown(const Text& text) {
  return Shown(TextView(text));
}
inline std::string Shown(double number) {
  char digits[40];
  return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}
inline std::string Shown(const std::optional<Text>& text) {
  return text ? Shown(*text) : "none";
}
inline std::string Shown(bool yes) {
  return yes ? "True" : "False";
}
inline std::string Shown(std::int32_t number) {
  return std::to_string(number);
}
inline std::string Shown(Date date) {
  return ToUtf8(DefaultDateText(date));
}
inline std::string Shown(const std::optional<Date>& date) {
  return date ? Shown(*date) : "none";
}
inline std::string Shown(const Value& value) {
  const std::string text = ToUtf8(ToText(value));
  return value.Is<double>() ? "double " + text : value.Is<Date>() ? "date " + text : "'" + text;
}

// A function as one of texts: of its arguments; the result, and what it has put into arguments.
using Played = std::function<std::string(const std::vector<std::string>& cells)>;

template <class T>
using Held = std::conditional_t<std::is_same_v<std::decay_t<T>, TextView>, Text, std::decay_t<T>>;

template <class Parameter>
std::string Out(const Held<Parameter>& argument) {
  using Plain = std::remove_reference_t<Parameter>;
  if constexpr (std::is_reference_v<Parameter> && !std::is_const_v<Plain>)
    return ", " + Shown(argument);
  else
    return {};
}

template <class Result, class... Parameters>
Played Play(Result (*function)(Parameters...)) {
  return [function](const std::vector<std::string>& cells) {
    if (cells.size() != sizeof...(Parameters)) return std::string("has other arguments");
    [[maybe_unused]] auto next = cells.begin();
    std::tuple<Held<Parameters>...> held{Read<Held<Parameters>>(next)...};
    return std::apply(
        [&](auto&... arguments) {
          std::string result;
          try {
            if constexpr (std::is_void_v<Result>)
              function(arguments...);
            else
              result = Shown(function(arguments...));
          } catch (const Error& error) {
            result = error.kind() == ErrorKind::TypeMismatch       ? "raises a type mismatch"
                     : error.kind() == ErrorKind::InvalidUseOfNull ? "raises for Null"
                                                                   : "raises an overflow";
          }
          return (result + ... + Out<Parameters>(arguments));
        },
        held);
  };
}

// Plays a table's lines: a name, the function, its arguments, the answer.
inline void PlayLines(const std::map<std::string, Played>& functions, std::string_view lines) {
  for (const auto& cells : Lines(lines)) {
    SCOPED_TRACE(cells.front());
    const Played& function = functions.at(cells.at(1));
    EXPECT_EQ(function({cells.begin() + 2, cells.end() - 1}), cells.back()) << cells[1];
  }
}

}  // namespace fetchkit::test
