// Text, array and value helpers of the public class Utility.
//
// Positions are 1-based and counted in UTF-16 units; 0 means not found. Binary comparison is the
// exact comparison of code units. None of these reports an error; on bad input each answers with
// the value that is named with it, and without memory with the empty text, 0, False or Empty.
#pragma once

#include <cstdint>
#include <optional>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"

namespace fetchkit {

enum class CompareMethod : std::int32_t {
  Binary = 0,      // exact
  IgnoreCase = 1,  // without regard to the case of ASCII letters; any other number counts as this
};

class StringHelpers {
 public:
  // The characters that the filter dialog refuses in names and titles.
  static constexpr TextView kErrorChars = u"`~!@#$%^&*=+'\";:,/?|\\";

  // A longer set, published for hosts; the library itself passes it to nothing.
  static constexpr TextView kAllErrorChars = u"`~!@#$%^&*()_+={}[]:;\"'<>,.?|/\\";

  // Whether strText holds a character of strCheckChar that is not in strFilterChar.
  static bool ContainErrorChar(TextView strText, TextView strCheckChar, TextView strFilterChar);

  // The intNumber-th piece of strText between delimiters, blanks trimmed. A number that is too
  // large gives the last piece, one below 1 the first; an empty text gives the empty text.
  static Text GetNoXString(TextView strText, std::int16_t intNumber, TextView strDelimiter);

  // Position of the intNumber-th delimiter; hits may overlap. 0 when there are fewer, and for
  // numbers below 1.
  static std::int32_t GetNoXPos(TextView strText, std::int16_t intNumber, TextView strDelimiter);

  // Pieces between delimiters, minus one: -1 for an empty text, which callers rely on.
  static std::int32_t StrCount(TextView strText, TextView strDelimiter);

  // Occurrences of strFind, where one character behind each hit is always skipped: the commas in
  // "a,,b" count 1, the letters in "aaaa" 2. Hosts' formulas are calibrated on this.
  static std::int32_t TextCount(TextView strText, TextView strFind, CompareMethod enmCompareMethod);

  // Characters equal to strChar; 0 when strChar is not exactly one character.
  static std::int32_t CharCount(TextView strText, TextView strChar);

  // Bytes of the text in the system's ANSI code page, up to an inner NUL.
  static std::int32_t StrLen(TextView strText);

  // The first n characters, all of a shorter text, none for n below 1, with one NUL behind them:
  // hosts pass the result to functions that expect it.
  static Text StrLeft(TextView strText, std::int32_t n);

  // Up to and including the last backslash; empty without one.
  static Text GetFilePath(TextView strFile);

  // Behind the last backslash; the whole text without one.
  static Text GetFileName(TextView strFile);

  // Behind the first strSearch. Without one: the whole text, or the empty text when it must be
  // found. An empty strSearch gives the whole text.
  static Text GetStrAfter(TextView strInfo, TextView strSearch, bool bMustFind);

  // In front of the first strSearch. Without one: the whole text, or the empty text when it must be
  // found. An empty strSearch gives the empty text, unlike GetStrAfter.
  static Text GetStrBefore(TextView strInfo, TextView strSearch, bool bMustFind);

  // Between the first strFrom and the first strTo behind it, both marks included with bInclude.
  // Empty when either mark is missing, whatever bMustFind says.
  static Text GetStrBetween(TextView strSource, TextView strFrom, TextView strTo, bool bInclude,
                            bool bMustFind);

  // strText intNumber times over, whatever the text; empty for numbers below 1.
  static Text GetSpace(TextView strText, std::int16_t intNumber);

  // Whether strText equals one of the pieces of strSource, whole and untrimmed.
  static bool StrInStr(TextView strSource, TextView strText, TextView strDelimiter,
                       CompareMethod enmCompareMethod);

  // Whether the value has no bounds: no array, or one that was never dimensioned. An array without
  // items whose bounds are 0 to -1 has bounds and is not empty in this sense.
  static bool ArrayIsEmpty(const Value& varArray);

  // Whether the value may stand as a date condition: a date of the years that dates can hold, a
  // date keyword, a custom range of two dates, or a date text without "," and "-". The text
  // "2004-01-31" is refused on purpose: a single date condition is not entered in that form.
  static bool DateIsValid(const Value& varDate);

  // A database field's value, or the default for Empty, Null, a missing argument and a text of
  // blanks. A numeric value comes back as the double at the front of its text, so "00123" is 123
  // and "1,234" is 1.
  static Value NotNull(const Value& varValue, const Value& varDefaultValue);
};

// The two halves of NotNull, for who needs no value of the result: whether the default stands in,
// and the number that any other value comes back as, if it is numeric.
bool StandsForNothing(const Value& value);
std::optional<double> NumberInFront(const Value& value);

}  // namespace fetchkit
